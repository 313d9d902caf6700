#pragma once
// The small food table the list and period harnesses open their inputs
// against: the foods their seed files name. Five hundred rows of the
// short-named one fit in 32 bits only at small quantities; two rows of the
// salt never do.
#include <cstdint>

#include "fooddb/FoodTable.h"

namespace pw::fuzz {

inline FoodRecord Food(const char* group, const char* subgroup, const char* description, const char* measure,
                       std::int32_t protein, std::int32_t carbs, std::int32_t fats, std::int32_t sodium)
{
    FoodRecord r{group, subgroup, description, measure, {}};
    r.values = {ComputeCalories(protein, carbs, fats, 0), protein, carbs, fats, 31, 2, 200, sodium, 0};
    return r;
}

inline const FoodTable& SeedFoods()
{
    static const FoodTable table = [] {
        FoodTable t;
        t.Append(Food("A", "B", "C", "D", 1, 1, 1, 50000));
        t.Append(Food("Bakery and Grains", "Bread", "White", "1 slice", 2, 13, 1, 170));
        t.Append(Food("Dairy and Eggs", "Butter", "Salted", "1 pat", 0, 0, 4, 29));
        t.Append(Food("Dairy and Eggs", "Butter", "Salted", "1 tbsp", 0, 0, 12, 82));
        t.Append(Food("Dairy and Eggs", "Cheese", "Cheddar", "1 oz", 7, 0, 9, 176));
        t.Append(Food("Dairy and Eggs", "Milk", "Whole", "1 cup", 8, 11, 8, 98));
        t.Append(Food("Favorites", "My Favorites", "", "", 0, 0, 0, 0));
        t.Append(Food("Fruits", "Apples", "Raw, with skin", "1 medium", 0, 25, 0, 2));
        t.Append(Food("Spices and Herbs", "Salt", "Table", "1 sack", 30000000, 30000000, 30000000, 2000000000));
        return t;
    }();
    return table;
}

}  // namespace pw::fuzz
