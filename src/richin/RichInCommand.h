#pragma once
// The ranking from a shell:
//   platewell --rich-in NUTRIENT [--per-100-calories] [--group NAME]
//             [--most | --least] [--top N]
// one food a line: rank, group, subgroup, description, measure and amount,
// separated by tabs.
#include <optional>
#include <string>
#include <vector>

#include "fooddb/FoodTable.h"
#include "richin/RichIn.h"

namespace pw {

inline constexpr const char* kRichInOption = "--rich-in";

struct RichInCommand {
    RichQuery query;
    std::optional<int> top;  // every food of the group without it
};

struct RichInParse {
    std::optional<RichInCommand> command;
    int status = 0;       // 1 for an unknown nutrient or group, 2 for a malformed command line
    std::string message;  // what is wrong, naming the valid names where a name was wrong
};

// True when the arguments (after the program's name) ask for the ranking.
bool AsksForRichIn(const std::vector<std::string>& arguments);

// The arguments after the program's name, names matched without regard to
// case; without --most or --least the order is the nutrient's default.
RichInParse ParseRichInArguments(const std::vector<std::string>& arguments);

// The ranking's lines in UTF-8, each ended by a line feed. Tabs and line
// breaks inside a food's texts become blanks, so each line keeps its six
// fields, and other control characters are escaped for the terminal.
std::string RichInLines(const FoodTable& table, const RichInCommand& command);

}  // namespace pw
