#pragma once
// The period exports of the command line, made without any window:
//   platewell --export-days-csv OUT.csv PATH...        the days as CSV
//   platewell --export-days-foods-csv OUT.csv PATH...  every food of every day as CSV
//   platewell --export-days-pdf OUT.pdf PATH...        the period report as PDF
//   platewell --export-days-text PATH...               the period as text on standard output
// A PATH is a list file or a folder of them. Files left out and foods no
// longer in the database are told on standard error.
#include <QCommandLineParser>
#include <QString>
#include <QStringList>
#include <string>

namespace pw {

// True when the arguments ask for a period export.
bool IsDaysRequest(const QStringList& arguments);

// The usage lines of the period exports, and their options for --help.
QString DaysUsageText();
void AddDaysOptions(QCommandLineParser& parser);

// Runs the period export the arguments (the program's name first) ask for
// against the food table of programFolder; returns the exit status: 0 when
// at least one day was read and the output written, 1 otherwise, 2 for a
// wrong command line. bytePaths: each path holds the command line's bytes,
// one Latin-1 character a byte. Needs a QGuiApplication for the PDF.
int RunDaysRequest(const QStringList& arguments, const std::string& programFolder, bool bytePaths);

}  // namespace pw
