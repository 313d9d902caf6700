#pragma once
// Printing on the system's default printer; without one, the report is
// saved as a PDF file the user names.
#include "shell/Seams.h"

namespace pw {

class SystemPrinter : public Printer {
public:
    SystemPrinter(FileDialogs& files, Prompts& prompts, QString folder)
        : files_(files), prompts_(prompts), folder_(std::move(folder))
    {
    }
    bool Print(const QString& title, const QString& html) override;

private:
    FileDialogs& files_;
    Prompts& prompts_;
    QString folder_;
};

// Writes the report as a PDF file; false when the file cannot be written.
bool PrintToPdf(const QString& html, const QString& path);

}  // namespace pw
