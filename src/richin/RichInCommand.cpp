#include "richin/RichInCommand.h"

#include <algorithm>
#include <charconv>

#include "core/Text.h"
#include "fooddb/FoodGroups.h"

namespace pw {

namespace {

// One name a line: group names hold commas of their own.
std::string NameList(const std::vector<std::string>& names)
{
    std::string lines;
    for (const std::string& name : names)
        lines += "\n  " + name;
    return lines;
}

std::string Field(const std::string& latin1)
{
    std::string text = latin1;
    std::replace_if(text.begin(), text.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return TerminalText(Latin1ToUtf8(text));
}

RichInParse Malformed(const std::string& why)
{
    RichInParse parse;
    parse.status = 2;
    parse.message = why + "\nTry 'platewell --help' for more information.";
    return parse;
}

RichInParse UnknownName(const char* what, const std::string& given, const std::vector<std::string>& valid)
{
    RichInParse parse;
    parse.status = 1;
    parse.message = std::string("Unknown ") + what + " \"" + given + "\". Give one of:" + NameList(valid);
    return parse;
}

}  // namespace

bool AsksForRichIn(const std::vector<std::string>& arguments)
{
    return std::any_of(arguments.begin(), arguments.end(), [](const std::string& a) {
        return a == kRichInOption || a.starts_with(std::string(kRichInOption) + "=");
    });
}

RichInParse ParseRichInArguments(const std::vector<std::string>& arguments)
{
    std::optional<std::string> nutrient, group, top;
    bool per100 = false, most = false, least = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string option = arguments[i];
        std::optional<std::string> inlineValue;
        if (const auto equals = option.find('='); option.starts_with("--") && equals != std::string::npos) {
            inlineValue = option.substr(equals + 1);
            option = option.substr(0, equals);
        }
        auto value = [&](std::optional<std::string>& into) -> bool {
            if (into)
                return false;
            if (inlineValue)
                into = *inlineValue;
            else if (i + 1 < arguments.size())
                into = arguments[++i];
            else
                return false;
            return true;
        };
        auto flag = [&](bool& into) {
            if (into || inlineValue)
                return false;
            into = true;
            return true;
        };
        bool ok = true;
        if (option == kRichInOption)
            ok = value(nutrient);
        else if (option == "--group")
            ok = value(group);
        else if (option == "--top")
            ok = value(top);
        else if (option == "--per-100-calories")
            ok = flag(per100);
        else if (option == "--most")
            ok = flag(most);
        else if (option == "--least")
            ok = flag(least);
        else
            return Malformed("Unknown argument for --rich-in: '" + arguments[i] + "'.");
        if (!ok)
            return Malformed("The option " + option + " is given twice or without its value.");
    }
    if (!nutrient)
        return Malformed("The option --rich-in needs a nutrient.");
    if (most && least)
        return Malformed("Give --most or --least, not both.");

    std::vector<std::string> nutrientNames(kRichNutrientNames.begin(), kRichNutrientNames.end());
    const std::optional<Nutrient> kind = RichNutrientByName(*nutrient);
    if (!kind)
        return UnknownName("nutrient", *nutrient, nutrientNames);
    RichInCommand command;
    command.query.nutrient = *kind;
    command.query.basis = per100 ? RichBasis::Per100Calories : RichBasis::PerServing;
    command.query.order = most ? RichOrder::Most : least ? RichOrder::Least : DefaultRichOrder(*kind);
    if (group) {
        const std::optional<int> found = RichGroupByName(*group);
        if (!found)
            return UnknownName("food group", *group, std::vector<std::string>(kGroupNames.begin(), kGroupNames.end()));
        command.query.group = *found;
    }
    if (top) {
        int n = 0;
        const auto [end, error] = std::from_chars(top->data(), top->data() + top->size(), n);
        if (error != std::errc() || end != top->data() + top->size() || n < 1)
            return Malformed("The option --top needs a whole number of 1 or more, not '" + *top + "'.");
        command.top = n;
    }
    RichInParse parse;
    parse.command = command;
    return parse;
}

std::string RichInLines(const FoodTable& table, const RichInCommand& command)
{
    const RichRanking ranking = RankFoods(table, command.query);
    std::size_t count = ranking.rows.size();
    if (command.top)
        count = std::min(count, static_cast<std::size_t>(*command.top));
    std::string lines;
    for (std::size_t k = 0; k < count; ++k) {
        const RichRow& row = ranking.rows[k];
        const int i = row.foodIndex;
        lines += std::to_string(k + 1) + "\t" + Field(table.Group(i)) + "\t" + Field(table.Subgroup(i)) + "\t" +
                 Field(table.Description(i)) + "\t" + Field(table.Measure(i)) + "\t" +
                 RichAmountText(row.shown, command.query.basis) + "\n";
    }
    return lines;
}

}  // namespace pw
