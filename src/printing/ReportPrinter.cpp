#include "printing/ReportPrinter.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "printing/ReportRenderer.h"

namespace pw {

namespace {

// The default printer with its own paper, turned and margined as the report
// wants.
void SetUp(QPrinter& printer, const ReportDocument& report)
{
    printer.setDocName(QString::fromLatin1(report.title));
    printer.setPageLayout(ReportPageLayout(report, printer.pageLayout().pageSize()));
}

}  // namespace

bool SystemPrinter::HasPrinter() const { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

bool SystemPrinter::Print(const ReportDocument& report)
{
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    SetUp(printer, report);
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("dlgPrint"));
    if (dialog.exec() != QDialog::Accepted)
        return false;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool printed = PaintReport(report, printer);
    QApplication::restoreOverrideCursor();
    return printed;
}

void SystemPrinter::Preview(const ReportDocument& report)
{
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    SetUp(printer, report);
    QPrintPreviewDialog dialog(&printer, QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("dlgPrintPreview"));
    dialog.setWindowTitle(QString::fromLatin1(report.title));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&report](QPrinter* target) { PaintReport(report, *target); });
    dialog.exec();
}

}  // namespace pw
