#pragma once
// The report commands of the File menu: print through the print dialog
// (without a printer, the user is told and offered a PDF instead), preview,
// and export as PDF or CSV to a file the user names.
#include <QString>
#include <string_view>
#include <vector>

#include "printing/Report.h"
#include "core/OutputTarget.h"
#include "core/views/Seams.h"

namespace pw {

namespace texts {

inline constexpr const char* kTitlePrint = "Print";
inline constexpr const char* kTitleExportPdf = "Export as PDF";
inline constexpr const char* kTitleExportCsv = "Export as CSV";
inline constexpr const char* kNoPrinter =
    "No printer is set up on this computer.\r\n"
    "Do you want to save the report as a PDF file instead?";
// Follow the path of the file.
inline constexpr const char* kReportNotWritten = "The report could not be written to\r\n";
inline constexpr const char* kListNotWritten = "The food list could not be written to\r\n";
inline constexpr const char* kPdfFilter = "PDF documents (*.pdf)|*.pdf";
inline constexpr const char* kCsvFilter = "Comma-separated values (*.csv)|*.csv";

}  // namespace texts

class ReportCommands {
public:
    // ownFiles: the program's files, which an export never replaces.
    ReportCommands(Prompts& prompts, FileDialogs& files, Printer& printer, QString folder,
                   std::vector<OwnFile> ownFiles = {})
        : prompts_(prompts), files_(files), printer_(printer), folder_(std::move(folder)), ownFiles_(std::move(ownFiles))
    {
    }

    // False when nothing was printed or saved.
    bool PrintReport(const ReportDocument& report);
    void PreviewReport(const ReportDocument& report);
    bool ExportPdf(const ReportDocument& report);
    // The list of the report's person, named with the report's date.
    bool ExportCsv(const FoodList& list, const std::string& personName, const std::string& dateText);

private:
    std::optional<QString> AskPath(const std::string& personName, const std::string& dateText, const char* extension,
                                   const char* filter);
    // Writes bytes to path unless it is one of the program's files or a
    // folder; a device is written in place. False, with the user told, when
    // it was not written.
    bool WriteExport(const QString& path, std::string_view bytes, const char* failure, const char* title);

    Prompts& prompts_;
    FileDialogs& files_;
    Printer& printer_;
    QString folder_;
    std::vector<OwnFile> ownFiles_;
};

}  // namespace pw
