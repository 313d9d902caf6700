#pragma once
// The system's printers through Qt's print dialog and print preview.
#include <QPointer>
#include <memory>

#include "core/views/Seams.h"

class QWidget;

class QPrinter;
class QPrintPreviewDialog;

namespace pw {

class SystemPrinter : public Printer {
public:
    SystemPrinter();
    ~SystemPrinter() override;
    bool HasPrinter() const override;
    bool Print(const ReportDocument& report) override;
    // One preview window serves every preview: a new one each time keeps
    // some of Qt's memory for good.
    void Preview(const ReportDocument& report) override;

private:
    std::unique_ptr<QPrinter> previewPrinter_;
    QPointer<QPrintPreviewDialog> preview_;
    const ReportDocument* previewed_ = nullptr;
};

}  // namespace pw
