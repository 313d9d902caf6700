#include "shell/views/RichInCommandLine.h"

#include <QCoreApplication>
#include <unistd.h>
#include <string>
#include <vector>

#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "fooddb/FoodTable.h"
#include "richin/RichInCommand.h"
#include "shell/ProgramFolder.h"
#include "shell/views/CommandLine.h"

namespace pw {

std::optional<int> RunRichInCommandLine(int& argc, char** argv)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.emplace_back(argv[i]);
    if (!AsksForRichIn(arguments))
        return std::nullopt;
    const RichInParse parse = ParseRichInArguments(arguments);
    if (!parse.command) {
        // The message repeats what was typed: escaped for the terminal.
        PrintUtf8(parse.message);
        return parse.status;
    }
    // No display: the program's folder is all the application is asked for.
    QCoreApplication app(argc, argv);
    FoodTable table;
    if (!LoadFoodTable(ProgramFolderToRead(QCoreApplication::applicationDirPath().toStdString()), table))
        return 1;
    // Every byte checked: a full disk or a closed pipe is a failure, not a
    // ranking cut short.
    try {
        WriteInPlace(STDOUT_FILENO, "standard output", RichInLines(table, *parse.command));
    } catch (const SaveError& error) {
        PrintUtf8("The ranking could not be written to standard output: " + error.Reason());
        return 1;
    }
    return 0;
}

}  // namespace pw
