#pragma once
// The chooser's map from list positions to FoodTable indices: 500 rows of
// four columns, one column per tier. Row k of column t holds the index of the
// first record of the k-th entry of tier t's list; the row after the last
// entry holds the index one past the run.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pw {

class FoodTable;

inline constexpr int kTierRows = 500;
inline constexpr int kTiers = 4;

class TierMap {
public:
    std::int16_t Get(int row, int tier) const;
    void Set(int row, int tier, int foodIndex);

private:
    std::array<std::array<std::int16_t, kTiers>, kTierRows> rows_{};
};

// Rebuilds column 0 from the table and returns the group list: each group
// text once, in table order, where it first differs from the record before.
std::vector<std::string> RebuildGroupColumn(const FoodTable& table, TierMap& map);

// Rebuilds column tier (1 subgroups, 2 descriptions, 3 measures) from the run
// of records that row position of column tier - 1 names, and returns the
// tier's list: each text once where it differs from the one before (the
// first compared with an empty text). Records with an empty description or
// measure are skipped at tiers 2 and 3. The row after the last entry gets the
// index one past the run. Rows and indices out of range are run-time errors.
std::vector<std::string> RebuildTierColumn(const FoodTable& table, TierMap& map, int tier, int position);

// The subgroups of a group, each once in table order, for the dialogs that
// add foods: the group's run is the row of the chooser's group column whose
// first food carries the group's name (the row of the group list), walked
// as the chooser walks it. The chooser's own map is left as it is. A group
// without foods has none.
std::vector<std::string> GroupSubgroups(const FoodTable& table, const TierMap& chooserMap, std::string_view group);

}  // namespace pw
