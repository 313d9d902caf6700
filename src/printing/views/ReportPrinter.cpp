#include "printing/views/ReportPrinter.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>

#include "printing/views/ReportRenderer.h"

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

SystemPrinter::SystemPrinter() = default;

// The preview window goes first: it draws on the printer.
SystemPrinter::~SystemPrinter() { delete preview_.data(); }

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
    const bool first = !preview_;
    if (first) {
        previewPrinter_ = std::make_unique<QPrinter>(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
        preview_ = new QPrintPreviewDialog(previewPrinter_.get(), QApplication::activeWindow());
        preview_->setObjectName(QStringLiteral("dlgPrintPreview"));
        QObject::connect(preview_, &QPrintPreviewDialog::paintRequested, preview_, [this](QPrinter* target) {
            if (previewed_)
                PaintReport(*previewed_, *target);
        });
    }
    SetUp(*previewPrinter_, report);
    preview_->setWindowTitle(QString::fromLatin1(report.title));
    previewed_ = &report;
    // The window draws its pages when first shown; later reports are drawn
    // anew here.
    if (!first)
        if (auto* pages = preview_->findChild<QPrintPreviewWidget*>())
            pages->updatePreview();
    preview_->exec();
    previewed_ = nullptr;
}

}  // namespace pw
