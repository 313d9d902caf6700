#include "Fixtures.h"

#include <gtest/gtest.h>

#include "core/LineFile.h"
#include "fooddb/DataFile.h"

namespace pw::test {

FoodRecord Food(const std::string& group, const std::string& subgroup, const std::string& description,
                const std::string& measure, int protein, int carbs, int fats, int cholesterol, int fiber, int calcium,
                int sodium, int alcohol)
{
    FoodRecord r{group, subgroup, description, measure, {}};
    r.values = {ComputeCalories(protein, carbs, fats, alcohol), protein, carbs, fats, cholesterol, fiber, calcium,
                sodium, alcohol};
    return r;
}

FoodTable SampleTable(const std::string& versionLine)
{
    FoodTable table;
    SetDataVersion(table, versionLine);
    table.Append(Food("Bakery and Grains", "Bread", "White", "1 slice", 2, 13, 1, 0, 1, 38, 170));
    table.Append(Food("Bakery and Grains", "Bread", "Whole wheat", "1 slice", 4, 12, 1, 0, 2, 30, 146));
    table.Append(Food("Beverages", "Beer", "Regular", "12 fl oz", 2, 13, 0, 0, 1, 14, 14, 14));
    table.Append(Food("Dairy and Eggs", "Butter", "Salted", "1 pat", 0, 0, 4, 11, 0, 1, 29));
    table.Append(Food("Dairy and Eggs", "Butter", "Salted", "1 tbsp", 0, 0, 12, 31, 0, 3, 82));
    table.Append(Food("Dairy and Eggs", "Cheese", "Cheddar", "1 oz", 7, 0, 9, 30, 0, 204, 176));
    table.Append(Food("Dairy and Eggs", "Milk", "Whole", "1 cup", 8, 11, 8, 24, 0, 276, 98));
    table.Append(Food("Favorites", "My Favorites", "", "", 0, 0, 0));
    table.Append(Food("Fruits", "Apples", "Raw, with skin", "1 cup slices", 0, 15, 0, 0, 3, 7, 1));
    table.Append(Food("Fruits", "Apples", "Raw, with skin", "1 medium", 0, 25, 0, 0, 4, 11, 2));
    table.Append(Food("Vegetables", "Carrots", "Raw", "1 medium", 1, 6, 0, 0, 2, 20, 42));
    table.Append(Food("Vegetables", "Peas", "Green, frozen", "1 cup", 7, 19, 1, 0, 6, 32, 148));
    table.DatabaseDirty = true;
    return table;
}

std::string DataFileBytes(FoodTable table)
{
    table.DatabaseDirty = true;
    return SaveDatabaseToBytes(table);
}

FoodTable LoadTable(const std::string& bytes)
{
    FoodTable table;
    EXPECT_EQ(LoadDatabaseHeader(bytes, table), HeaderResult::Ok);
    LoadDatabaseRecords(table);
    return table;
}

std::vector<FoodRecord> Records(const FoodTable& table)
{
    std::vector<FoodRecord> records;
    for (int i = 0; i < table.Count(); ++i)
        records.push_back(table.Record(i));
    return records;
}

void WriteProgramFolder(const std::string& folder, const std::string& dataBytes, const std::string& settings)
{
    WriteFileAtomic(JoinPath(folder, "data.dat"), dataBytes);
    WriteFileAtomic(JoinPath(folder, "tips.txt"), "First tip.\r\nSecond tip.\r\nThird tip.\r\n");
    if (!settings.empty())
        WriteFileAtomic(JoinPath(folder, "pw.ini"), settings);
}

}  // namespace pw::test
