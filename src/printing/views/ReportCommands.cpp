#include "printing/views/ReportCommands.h"

#include <QFile>

#include "core/views/Widgets.h"
#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "printing/views/ReportRenderer.h"

namespace pw {

std::optional<QString> ReportCommands::AskPath(const std::string& personName, const std::string& dateText,
                                               const char* extension, const char* filter)
{
    FileDialogRequest request;
    request.initialFolder = folder_;
    request.defaultExtension = QString::fromLatin1(extension);
    request.proposedName = QString::fromLatin1(ProposedReportName(personName, dateText) + extension);
    request.filter = QString::fromLatin1(filter);
    request.overwritePrompt = true;
    request.pathMustExist = true;
    return files_.SaveFile(request);
}

bool ReportCommands::PrintReport(const ReportDocument& report)
{
    if (printer_.HasPrinter())
        return printer_.Print(report);
    if (prompts_.Message(QString::fromLatin1(texts::kNoPrinter), QString::fromLatin1(texts::kTitlePrint),
                         MsgIcon::Question, MsgButtons::YesNo) != MsgResult::Yes)
        return false;
    return ExportPdf(report);
}

void ReportCommands::PreviewReport(const ReportDocument& report) { printer_.Preview(report); }

bool ReportCommands::WriteExport(const QString& path, std::string_view bytes, const char* failure, const char* title)
{
    const std::string native = ToNativePath(path);
    const OutputTarget target = CheckOutputTarget(native, {}, ownFiles_);
    if (target.kind == OutputTarget::Kind::Refused) {
        prompts_.Message(path + QStringLiteral("\r\nis not written: it ") + FromNativePath(target.reason) +
                             QLatin1Char('.'),
                         QString::fromLatin1(title), MsgIcon::Exclamation);
        return false;
    }
    try {
        WriteOutput(native, target, bytes);
    } catch (const RunTimeError&) {
        prompts_.Message(QString::fromLatin1(failure) + path, QString::fromLatin1(title), MsgIcon::Exclamation);
        return false;
    }
    return true;
}

bool ReportCommands::ExportPdf(const ReportDocument& report)
{
    const std::optional<QString> path = AskPath(report.personName, report.dateText, ".pdf", texts::kPdfFilter);
    if (!path)
        return false;
    // Drawn in memory and written whole, so a failed write leaves no
    // half-written file behind.
    const std::optional<QByteArray> pdf = ReportPdfBytes(report);
    if (!pdf) {
        prompts_.Message(QString::fromLatin1(texts::kReportNotWritten) + *path,
                         QString::fromLatin1(texts::kTitleExportPdf), MsgIcon::Exclamation);
        return false;
    }
    return WriteExport(*path, std::string_view(pdf->constData(), std::size_t(pdf->size())), texts::kReportNotWritten,
                       texts::kTitleExportPdf);
}

bool ReportCommands::ExportCsv(const FoodList& list, const std::string& personName, const std::string& dateText)
{
    const std::optional<QString> path = AskPath(personName, dateText, ".csv", texts::kCsvFilter);
    if (!path)
        return false;
    return WriteExport(*path, FoodListCsv(list), texts::kListNotWritten, texts::kTitleExportCsv);
}

}  // namespace pw
