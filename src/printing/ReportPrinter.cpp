#include "printing/ReportPrinter.h"

#include <QApplication>
#include <QFileInfo>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextDocument>

namespace pw {

namespace {

void PrintDocument(const QString& html, QPrinter& printer)
{
    QTextDocument document;
    document.setHtml(html);
    document.print(&printer);
}

}  // namespace

bool PrintToPdf(const QString& html, const QString& path)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    PrintDocument(html, printer);
    const QFileInfo written(path);
    return written.exists() && written.size() > 0;
}

bool SystemPrinter::Print(const QString& title, const QString& html)
{
    const QPrinterInfo defaultPrinter = QPrinterInfo::defaultPrinter();
    if (!defaultPrinter.isNull()) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QPrinter printer(defaultPrinter, QPrinter::HighResolution);
        printer.setDocName(title);
        PrintDocument(html, printer);
        QApplication::restoreOverrideCursor();
        return true;
    }

    FileDialogRequest request;
    request.initialFolder = folder_;
    request.defaultExtension = QStringLiteral(".pdf");
    request.proposedName = title + QStringLiteral(".pdf");
    request.filter = QStringLiteral("PDF documents (*.pdf)|*.pdf");
    request.overwritePrompt = true;
    request.pathMustExist = true;
    const std::optional<QString> path = files_.SaveFile(request);
    if (!path)
        return false;
    if (!PrintToPdf(html, *path)) {
        prompts_.Message(QStringLiteral("The report could not be written to\r\n") + *path, QStringLiteral("Print"),
                         MsgIcon::Exclamation);
        return false;
    }
    prompts_.Message(QStringLiteral("No printer is set up, so the report was saved as\r\n") + *path,
                     QStringLiteral("Print"), MsgIcon::Information);
    return true;
}

}  // namespace pw
