#pragma once
// The program's command line: an optional list file to open in the window,
// or a report made from a list file without any window:
//   platewell [LIST.pwl]
//   platewell --export-pdf OUT.pdf LIST.pwl
//   platewell --export-csv OUT.csv LIST.pwl
//   platewell --export-text LIST.pwl      (the analysis on standard output)
//   platewell --rich-in NUTRIENT [...]   (the foods ranked by a nutrient)
//   platewell --export-days-... (see DaysCommandLine.h)
//   platewell --help | --version
#include <QString>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

#include "core/OutputTarget.h"

namespace pw {

enum class CommandAction { Window, ExportPdf, ExportCsv, ExportText, ExportDays, Help, Version, Error };

struct CommandLineRequest {
    CommandAction action = CommandAction::Window;
    QString output;    // the file an export writes
    QString listFile;  // the list to open or export; empty for none
    QStringList arguments;  // ExportDays: the whole command line, parsed by the period exports
    QString text;      // Help: the help text; Version: the version line; Error: what is wrong
    // The paths hold the command line's bytes as they were, one Latin-1
    // character a byte, so a name the file system holds in any encoding
    // is opened and written as itself.
    bool bytePaths = false;
};

class FoodTable;

// Reads the data file of programFolder into table; false after telling why
// on standard error.
bool LoadFoodTable(const std::string& programFolder, FoodTable& table);
// A path of the request as the file system's bytes.
std::string PathBytes(const CommandLineRequest& request, const QString& path);

// The files of the program's folders that no report may replace.
std::vector<OwnFile> OwnFilesOfProgram(const std::string& programFolder);

// A message on standard error: UTF-8, CR LF made LF, every control
// character read from a file escaped.
void PrintUtf8(const std::string& utf8);

// arguments as the program got them, the program's own name first.
CommandLineRequest ParseCommandLine(const QStringList& arguments);

// Runs a request that needs no window (every action but Window) against the
// data file of programFolder, writing what the window would show on
// standard error; returns the exit status. Exports need a QGuiApplication.
int RunCommandLineRequest(const CommandLineRequest& request, const std::string& programFolder);

// The hook at the start of the program: parses the command line and, when
// it asks for no window, runs it on the offscreen platform (unless the
// caller chose one) and returns the exit status. For the window, returns
// nothing and leaves the parsed request (with the list to open) in request.
std::optional<int> RunWithoutWindow(int& argc, char** argv, CommandLineRequest& request);

}  // namespace pw
