#pragma once
// Finding foods by a piece of text: the search of the search dialog, without
// the dialog.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fooddb/FoodTable.h"

namespace pw {

// At most this many foods are listed; meeting one more distinct match ends
// the scan with the over-limit warning.
inline constexpr int kMaxSearchResults = 199;

struct SearchResult {
    std::int16_t foodIndex = 0;
    std::string group;
    std::string subgroup;
    std::string description;
};

struct SearchOutcome {
    std::vector<SearchResult> results;  // in FoodTable order
    bool overLimit = false;             // a 200th distinct match was met
};

// The foods whose group, subgroup and description, joined with nothing
// between them, contain term, ignoring case (so a term may run across the
// join of two fields). A food with the same three texts as one already
// listed is skipped, whatever its measure.
SearchOutcome SearchFoods(const FoodTable& table, std::string_view term);

}  // namespace pw
