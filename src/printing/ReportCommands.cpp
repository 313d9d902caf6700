#include "printing/ReportCommands.h"

#include <QFile>

#include "core/views/Widgets.h"
#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "printing/ReportRenderer.h"

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

bool ReportCommands::ExportPdf(const ReportDocument& report)
{
    const std::optional<QString> path = AskPath(report.personName, report.dateText, ".pdf", texts::kPdfFilter);
    if (!path)
        return false;
    if (!WriteReportPdf(report, *path)) {
        prompts_.Message(QString::fromLatin1(texts::kReportNotWritten) + *path,
                         QString::fromLatin1(texts::kTitleExportPdf), MsgIcon::Exclamation);
        return false;
    }
    return true;
}

bool ReportCommands::ExportCsv(const FoodList& list, const std::string& personName, const std::string& dateText)
{
    const std::optional<QString> path = AskPath(personName, dateText, ".csv", texts::kCsvFilter);
    if (!path)
        return false;
    try {
        WriteFileAtomic(ToNativePath(*path), FoodListCsv(list));
    } catch (const RunTimeError&) {
        prompts_.Message(QString::fromLatin1(texts::kListNotWritten) + *path,
                         QString::fromLatin1(texts::kTitleExportCsv), MsgIcon::Exclamation);
        return false;
    }
    return true;
}

}  // namespace pw
