#include "dialogs/Search.h"

#include <algorithm>

#include "core/Text.h"

namespace pw {

SearchOutcome SearchFoods(const FoodTable& table, std::string_view term)
{
    const std::string wanted = LowerLatin1(term);
    SearchOutcome outcome;
    std::string text;
    for (int i = 0; i <= table.LastIndex(); ++i) {
        const std::string& group = table.Group(i);
        const std::string& subgroup = table.Subgroup(i);
        const std::string& description = table.Description(i);
        text = LowerLatin1(group + subgroup + description);
        if (text.find(wanted) == std::string::npos)
            continue;
        const bool duplicate =
            std::any_of(outcome.results.begin(), outcome.results.end(), [&](const SearchResult& listed) {
                return listed.group == group && listed.subgroup == subgroup && listed.description == description;
            });
        if (duplicate)
            continue;
        if (outcome.results.size() == static_cast<std::size_t>(kMaxSearchResults)) {
            outcome.overLimit = true;
            break;
        }
        outcome.results.push_back({static_cast<std::int16_t>(i), group, subgroup, description});
    }
    return outcome;
}

}  // namespace pw
