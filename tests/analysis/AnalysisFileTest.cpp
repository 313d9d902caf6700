#include <gtest/gtest.h>

#include "TempFolder.h"
#include "analysis/AnalysisFile.h"

namespace pw {
namespace {

TEST(AnalysisFile, WritesProfileAndItemLinesByteForByte)
{
    const ProfileInputs ann{"Ann", "5", "64", "130", kMeasurementEnglish, kSexFemale, kLifestyleModerate};
    FoodList list;
    list.Append({123, "2-1/2", "Dairy and Eggs", "Butter", "Salted", "1 tbsp", {}, {}});
    list.Append({4, " 1", "Dairy and Eggs", "Butter", "Salted", "1 pat", {}, {}});
    test::TempFolder folder;
    WriteAnalysisFile(folder.File("day.pwl"), ann, list);
    EXPECT_EQ(folder.Read("day.pwl"),
              "NAME:Ann\r\nYOB:\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"
              "ITEM: 123 \t2-1/2\tDairy and Eggs\tButter\tSalted\t1 tbsp\r\n"
              "ITEM: 4 \t 1\tDairy and Eggs\tButter\tSalted\t1 pat\r\n");
}

TEST(AnalysisFile, AFaultyLineEndsTheFileKeepingWhatCameBefore)
{
    const std::string head = "NAME:Ann\r\nitem: 7 \t3/4\tA\tB\tC\tD\tignored\r\n";
    const struct {
        const char* line;
        bool valid;
    } cases[] = {
        {"HEIGHT:64", true},
        {"ITEM:2\t1", false},                  // too few fields
        {"ITEM:99999\t1\tA\tB\tC\tD", false},  // index beyond 16 bits
        {"ITEM:2\t1 1/2\tA\tB\tC\tD", false},  // a quantity the chooser refuses
        {"ITEM:2\t100\tA\tB\tC\tD", false},    // above the largest quantity
        {"ITEM:2\t1\tA\x01\tB\tC\tD", false},  // a control byte
    };
    for (const auto& c : cases) {
        const AnalysisFileContent content = ParseAnalysisBytes(head + c.line + "\r\nWEIGHT:130\r\n");
        EXPECT_EQ(content.valid, c.valid) << c.line;
        EXPECT_EQ(content.settings.size(), c.valid ? 3u : 1u) << c.line;
        ASSERT_EQ(content.items.size(), 1u) << c.line;
        EXPECT_EQ(content.items[0], (AnalysisItem{7, "3/4", "A", "B", "C", "D"}));
    }
    EXPECT_FALSE(ReadAnalysisFile(test::TempFolder().File("missing.pwl")).valid);
}

}  // namespace
}  // namespace pw
