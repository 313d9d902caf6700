#pragma once
// The system's printers through Qt's print dialog and print preview.
#include "core/views/Seams.h"

class QWidget;

namespace pw {

class SystemPrinter : public Printer {
public:
    bool HasPrinter() const override;
    bool Print(const ReportDocument& report) override;
    void Preview(const ReportDocument& report) override;
};

}  // namespace pw
