#include "fooddb/FoodGroups.h"

namespace pw {

std::string GroupNameFromLetter(std::string_view letter)
{
    if (letter.size() == 1 && letter[0] >= 'A' && letter[0] < 'A' + kGroupCount)
        return std::string(kGroupNames[letter[0] - 'A']);
    return std::string(letter);
}

std::optional<char> GroupLetterFromName(std::string_view name)
{
    for (int i = 0; i < kGroupCount; ++i)
        if (kGroupNames[i] == name)
            return GroupLetter(i);
    return std::nullopt;
}

}  // namespace pw
