#include "foodlist/TierMap.h"

#include "core/RunTimeError.h"
#include "fooddb/FoodTable.h"

namespace pw {

std::int16_t TierMap::Get(int row, int tier) const
{
    if (row < 0 || row >= kTierRows || tier < 0 || tier >= kTiers)
        throw RunTimeError(ErrorKind::SubscriptRange, "tier map row " + std::to_string(row));
    return rows_[row][tier];
}

void TierMap::Set(int row, int tier, int foodIndex)
{
    if (row < 0 || row >= kTierRows || tier < 0 || tier >= kTiers)
        throw RunTimeError(ErrorKind::SubscriptRange, "tier map row " + std::to_string(row));
    if (foodIndex < -1 || foodIndex > kFoodCapacity)
        throw RunTimeError(ErrorKind::SubscriptRange, "food index " + std::to_string(foodIndex));
    rows_[row][tier] = static_cast<std::int16_t>(foodIndex);
}

std::vector<std::string> RebuildGroupColumn(const FoodTable& table, TierMap& map)
{
    std::vector<std::string> groups;
    const std::string* previous = nullptr;
    int k = 0;
    int i = 0;
    for (; i <= table.LastIndex(); ++i) {
        const std::string& group = table.Group(i);
        if (previous == nullptr ? !group.empty() : group != *previous) {
            map.Set(k, 0, i);
            ++k;
            groups.push_back(group);
        }
        previous = &group;
    }
    map.Set(k, 0, i);
    map.Set(k + 1, 0, table.LastIndex());
    return groups;
}

std::vector<std::string> RebuildTierColumn(const FoodTable& table, TierMap& map, int tier, int position)
{
    if (tier < 1 || tier >= kTiers)
        throw RunTimeError(ErrorKind::SubscriptRange, "tier " + std::to_string(tier));
    const int first = map.Get(position, tier - 1);
    const int end = map.Get(position + 1, tier - 1);
    const auto field = [&](int i) -> const std::string& {
        return tier == 1 ? table.Subgroup(i) : tier == 2 ? table.Description(i) : table.Measure(i);
    };

    std::vector<std::string> entries;
    std::string previous;
    int k = 0;
    int i = first;
    for (; i < end; ++i) {
        const std::string& text = field(i);
        if (tier >= 2 && text.empty())
            continue;
        if (text != previous) {
            map.Set(k, tier, i);
            ++k;
            entries.push_back(text);
        }
        previous = text;
    }
    map.Set(k, tier, i);
    return entries;
}

std::vector<std::string> GroupSubgroups(const FoodTable& table, const TierMap& chooserMap, std::string_view group)
{
    // The walk writes the subgroup column; it writes into a copy, so the
    // chooser's lists still map to their foods when the dialog is left.
    TierMap map = chooserMap;
    for (int row = 0; row + 1 < kTierRows; ++row) {
        const int first = map.Get(row, 0);
        if (first < 0 || first > table.LastIndex())
            break;  // the row after the last group
        if (table.Group(first) == group)
            return RebuildTierColumn(table, map, 1, row);
    }
    return {};
}

}  // namespace pw
