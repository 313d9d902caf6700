#pragma once
// Every fixed message and caption the food chooser shows. Lines are joined
// with CR LF.

namespace pw::texts {

inline constexpr const char* kTitleInputError = "Error in your input";
inline constexpr const char* kQuantityInputError =
    "Enter only numbers, decimals, or fractions\r\n"
    "in the quantity box.\r\n"
    "\r\n"
    "Enter compound fractions with a dash (\"-\")\r\n"
    "between the whole number and the fraction.\r\n"
    "For example, enter \"two-and-a-half\" as \"2-1/2\"";
inline constexpr const char* kQuantityLimit = "Please enter a number less than 100";

inline constexpr const char* kTitleCategoryEmpty = "Category is empty";
inline constexpr const char* kCategoryEmpty =
    "There are no items in this category\r\n"
    "because you have not yet added\r\n"
    "anything to this category.\r\n"
    "\r\n"
    "Adding your favorite foods, dishes\r\n"
    "and meals to the Favorites category\r\n"
    "is the most useful part of this program.\r\n"
    "\r\n"
    "Would you like help with this feature now?\r\n";

inline constexpr const char* kCaptionAddToList = "Add to List";
// The Accept button's caption after a food came from the search dialog.
inline constexpr const char* kSearchAcceptItemCaption = "Accept";
inline constexpr const char* kUnitDV = "%DV";

}  // namespace pw::texts
