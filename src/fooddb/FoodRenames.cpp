#include "fooddb/FoodRenames.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace pw {

namespace {

// Sorted by the old texts, as the maker writes them.
constexpr FoodRename kDeliveredRenames[] = {
#include "fooddb/DeliveredRenames.inc"
};

auto OldTexts(const FoodRename& r) { return std::tie(r.group, r.subgroup, r.description, r.measure); }

}  // namespace

const FoodRename* FindFoodRename(std::string_view group, std::string_view subgroup, std::string_view description,
                                 std::string_view measure)
{
    const auto wanted = std::tie(group, subgroup, description, measure);
    const auto* at = std::lower_bound(std::begin(kDeliveredRenames), std::end(kDeliveredRenames), wanted,
                                      [](const FoodRename& r, const auto& key) { return OldTexts(r) < key; });
    if (at == std::end(kDeliveredRenames) || OldTexts(*at) != wanted)
        return nullptr;
    return at;
}

}  // namespace pw
