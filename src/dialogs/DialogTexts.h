#pragma once
// Every fixed message and caption the database dialogs show. Lines are
// joined with CR LF.

namespace pw::texts {

inline constexpr const char* kTitleSearch = "Search";
// The dialog lists 199 foods although the message speaks of 200.
inline constexpr const char* kSearchOverLimit =
    "Over 200 matching items found.\r\n"
    "Only the first 200 will be shown.";
inline constexpr const char* kSearchNoMatch = "No matching items found.";
// The chooser's add button after a search result was taken over.

}  // namespace pw::texts
