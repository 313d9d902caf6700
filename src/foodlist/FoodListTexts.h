#pragma once
// Every fixed message and caption the food-list grid shows. Lines are joined
// with CR LF.

namespace pw::texts {

inline constexpr const char* kTitleListFull = "Unable to Add to List";
inline constexpr const char* kListFull =
    "List is full, unable to add\r\n"
    "any more.";

inline constexpr const char* kTitleConfirmDelete = "Confirm Delete from List";
inline constexpr const char* kDeleteQuestionFirst = "This will delete the item:";
inline constexpr const char* kDeleteQuestionAfterItem =
    "from your list, as shown in the grid.\r\n"
    "\r\n"
    "Do you want to delete this item?";
inline constexpr const char* kTitleDeleteFromList = "Delete from List";
inline constexpr const char* kDeleteCancelled = "Operation cancelled.";
inline constexpr const char* kItemRemoved = "Item removed from your list.";
inline constexpr const char* kItemSeparator = " / ";

inline constexpr const char* kCaptionChange = "Change";
inline constexpr const char* kCellPercent = "%DV";
inline constexpr const char* kIntakePercentSpaced = "% DV";
inline constexpr const char* kIntakePercentUnspaced = "%DV";
inline constexpr const char* kMainTitle = "Platewell";

}  // namespace pw::texts
