#pragma once
// The foods of the earlier delivered database that the delivered one names
// otherwise: a list saved with the old names finds them by their old four
// texts. The table is made with data.dat by the database maker.
#include <cstdint>
#include <string_view>

namespace pw {

struct FoodRename {
    std::string_view group;
    std::string_view subgroup;
    std::string_view description;
    std::string_view measure;
    std::string_view newSubgroup;  // the group stays
    std::string_view newDescription;
    std::string_view newMeasure;
    // A quantity of the old measure is numerator / denominator times as
    // many of the new one ("1 large" olive is 1/2 of "2 large").
    std::int32_t quantityNumerator;
    std::int32_t quantityDenominator;
};

// The rename of a food by its old texts (compared exactly), or nullptr.
const FoodRename* FindFoodRename(std::string_view group, std::string_view subgroup, std::string_view description,
                                 std::string_view measure);

}  // namespace pw
