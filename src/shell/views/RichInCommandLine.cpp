#include "shell/views/RichInCommandLine.h"

#include <QCoreApplication>
#include <cstdio>
#include <string>
#include <vector>

#include "core/Text.h"
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
        const std::string shown = TerminalText(parse.message) + "\n";
        std::fwrite(shown.data(), 1, shown.size(), stderr);
        return parse.status;
    }
    // No display: the program's folder is all the application is asked for.
    QCoreApplication app(argc, argv);
    FoodTable table;
    if (!LoadFoodTable(ProgramFolderToRead(QCoreApplication::applicationDirPath().toStdString()), table))
        return 1;
    const std::string lines = RichInLines(table, *parse.command);
    std::fwrite(lines.data(), 1, lines.size(), stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
}

}  // namespace pw
