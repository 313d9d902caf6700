#pragma once
// The 17 fixed food groups: a one-letter code "A".."Q" in the data file, a
// name everywhere on screen. Letter order and name order agree.
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace pw {

inline constexpr int kGroupCount = 17;

inline constexpr std::array<std::string_view, kGroupCount> kGroupNames = {
    "Bakery and Grains",
    "Beverages",
    "Condiments",
    "Dairy and Eggs",
    "Desserts and Sweets",
    "Fast Foods",
    "Fats and Oils",
    "Favorites",
    "Fruits",
    "Meals, Entrees and Sidedishes",
    "Meats",
    "Nuts, Seeds, Legumes, Beans",
    "Poultry",
    "Seafood",
    "Snacks",
    "Soups",
    "Vegetables",
};

inline constexpr std::string_view kFavoritesGroup = "Favorites";

// The letter of group i (0..16): 'A' + i.
inline constexpr char GroupLetter(int index) { return static_cast<char>('A' + index); }

// Letter to name; a text that is not one of the 17 letters is kept as the
// name, as it stands.
std::string GroupNameFromLetter(std::string_view letter);

// Name to letter, exact and case-sensitive; no letter for an unknown name.
std::optional<char> GroupLetterFromName(std::string_view name);

}  // namespace pw
