#include <gtest/gtest.h>

#include "Fixtures.h"
#include "analysis/AnalysisOpening.h"
#include "analysis/DailyValues.h"
#include "printing/Report.h"

namespace pw {
namespace {

using Rows = std::vector<std::vector<std::string>>;

// 150 pounds, 64 inches, born 1962, female, sedentary: 2100 kcal, 63 g
// protein, 304 g carbs, 70 g fats, 315 mg cholesterol, 26 g fiber, 840 mg
// calcium, 2494 mg sodium. Milk 2-1/2 cups and a slice of bread.
struct Day {
    Profile profile;
    DailyValues dailyValues{};
    FoodList list;

    Day()
    {
        profile.inputs = {"Ann Example", "62", "64", "150", kMeasurementEnglish, kSexFemale, kLifestyleSedentary};
        profile.age = 64;
        profile.weightPounds = 150;
        profile.weightKilograms = ToSingle(150 / kPoundsPerKilogram);
        profile.heightInches = 64;
        profile.heightCentimeters = ToSingle(64 * kCentimetersPerInch);
        profile.valid = true;
        dailyValues = ComputeDailyValues(150, kSexFemale, kLifestyleSedentary);
        FoodListEntry milk{6, "2-1/2", "Dairy and Eggs", "Milk", "Whole, 3.25% \"fat\"", "1 cup", {}, {}};
        milk.amounts = {370, 20, 28, 20, 60, 0, 690, 245, 0};
        milk.percents = {18, 32, 9, 29, 19, 0, 82, 10};
        FoodListEntry bread{0, "1", "Bakery and Grains", "Bread", "White, caf\xE9 style", "1 slice", {}, {}};
        bread.amounts = {69, 2, 13, 1, 0, 1, 38, 170, 0};
        bread.percents = {3, 3, 4, 1, 0, 4, 5, 7};
        list.Append(milk);
        list.Append(bread);
    }
    ReportSource Source() const { return {profile, dailyValues, list, "2026-11-23"}; }
};

const ReportBlock& Block(const ReportDocument& report, BlockKind kind, int nth = 0)
{
    for (const ReportBlock& block : report.blocks)
        if (block.kind == kind && nth-- == 0)
            return block;
    throw std::runtime_error("no such block");
}

TEST(Report, AnalysisHoldsThePersonTheIntakeTheChartAndEveryFood)
{
    Day day;
    const ReportDocument report = BuildAnalysisReport(day.Source());
    EXPECT_EQ(report.title, "Platewell - Analysis Report");
    EXPECT_EQ(report.personName + "|" + report.dateText, "Ann Example|2026-11-23");
    EXPECT_FALSE(report.landscape);
    EXPECT_EQ(Block(report, BlockKind::Lines).lines,
              (std::vector<std::string>{"Name: Ann Example", "Age: 64 years (born 1962)", "Sex: Female",
                                        "Height: 64 inches", "Weight: 150 pounds", "Lifestyle: Sedentary",
                                        "BMI: 26 (Overweight)"}));
    EXPECT_EQ(Block(report, BlockKind::Table, 0).table.rows, (Rows{{"Calories", "2100", "439", "21%"},
                                                                    {"Protein", "63 g", "22 g", "35%"},
                                                                    {"Carbohydrates", "304 g", "41 g", "13%"},
                                                                    {"Fat", "70 g", "21 g", "30%"},
                                                                    {"Cholesterol", "315 mg", "60 mg", "19%"},
                                                                    {"Fiber", "26 g", "1 g", "4%"},
                                                                    {"Calcium", "840 mg", "728 mg", "87%"},
                                                                    {"Sodium", "2494 mg", "415 mg", "17%"}}));
    const std::vector<ChartBar> bars = {{"Calories", 21}, {"Protein", 35}, {"Carbohydrates", 13}, {"Fat", 30},
                                        {"Cholesterol", 19}, {"Fiber", 4}, {"Calcium", 87}, {"Sodium", 17}};
    EXPECT_EQ(Block(report, BlockKind::Chart).chart.bars, bars);

    const ReportTable& foods = Block(report, BlockKind::Table, 1).table;
    ASSERT_EQ(foods.columns.size(), 11u);
    EXPECT_EQ(foods.columns[2].caption + "|" + foods.columns[10].caption, "Food|Sodium (mg)");
    EXPECT_EQ(foods.columns[3].kind, ColumnKind::Number);
    EXPECT_EQ(foods.rows, (Rows{{"2-1/2", "1 cup", "Dairy and Eggs / Milk / Whole, 3.25% \"fat\"", "370", "20", "28",
                                 "20", "60", "0", "690", "245"},
                                {"1", "1 slice", "Bakery and Grains / Bread / White, caf\xE9 style", "69", "2", "13",
                                 "1", "0", "1", "38", "170"}}));
    EXPECT_EQ(foods.totals,
              (std::vector<std::string>{"Total", "", "", "439", "22", "41", "21", "60", "1", "728", "415"}));

    // The text holds the same: one line per nutrient, its columns apart,
    // numbers right-aligned.
    const std::string text = ReportText(report);
    for (const std::string& line : std::vector<std::string>{"\nCalories                   2100           439      21%\n",
                             "\nSodium                  2494 mg        415 mg      17%\n", "\nBMI: 26 (Overweight)\n",
                             "\nTotal" + std::string(63, ' ') + "439           22"})
        EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;

    // Without a valid profile: the person's entries, the foods, no analysis.
    day.profile.valid = false;
    const ReportDocument incomplete = BuildAnalysisReport(day.Source());
    EXPECT_EQ(Block(incomplete, BlockKind::Lines, 1).lines, std::vector<std::string>{texts::kNeedsCompleteProfile});
    for (const ReportBlock& block : incomplete.blocks)
        EXPECT_NE(block.kind, BlockKind::Chart);
    EXPECT_EQ(ReportText(incomplete).find("BMI"), std::string::npos);
}

TEST(Report, FoodListInAmountsAndInPercentsOfTheDailyValue)
{
    const Day day;
    const struct {
        bool byUnits;
        std::string caption;
        std::vector<std::string> milk;
        std::vector<std::string> totals;
    } cases[] = {
        {true, "Protein (g)", {"2-1/2", "1 cup", "Dairy and Eggs", "Milk", "Whole, 3.25% \"fat\"", "370", "20", "28",
                               "20", "60", "0", "690", "245"},
         {"Total", "", "", "", "", "439", "22", "41", "21", "60", "1", "728", "415"}},
        {false, "Protein (%DV)", {"2-1/2", "1 cup", "Dairy and Eggs", "Milk", "Whole, 3.25% \"fat\"", "18", "32", "9",
                                  "29", "19", "0", "82", "10"},
         {"Total", "", "", "", "", "21", "35", "13", "30", "19", "4", "87", "17"}},
    };
    for (const auto& c : cases) {
        const ReportDocument report = BuildFoodListReport(day.Source(), c.byUnits);
        EXPECT_TRUE(report.landscape);
        const ReportTable& table = Block(report, BlockKind::Table).table;
        ASSERT_EQ(table.columns.size(), 13u);
        EXPECT_EQ(table.columns[6].caption, c.caption);
        EXPECT_EQ(table.rows.at(0), c.milk);
        EXPECT_EQ(table.totals, c.totals);
    }
}

TEST(Report, CsvQuotesWhatNeedsItAndEndsWithTheTotals)
{
    const Day day;
    EXPECT_EQ(FoodListCsv(day.list),
              "\xEF\xBB\xBF"
              "Qty,Measure,Group,Subgroup,Description,Calories,Protein (g),Carbs (g),Fats (g),Cholesterol (mg),"
              "Fiber (g),Calcium (mg),Sodium (mg)\r\n"
              "2-1/2,1 cup,Dairy and Eggs,Milk,\"Whole, 3.25% \"\"fat\"\"\",370,20,28,20,60,0,690,245\r\n"
              "1,1 slice,Bakery and Grains,Bread,\"White, caf\xC3\xA9 style\",69,2,13,1,0,1,38,170\r\n"
              "Total,,,,,439,22,41,21,60,1,728,415\r\n");
    // The chart and the proposed names.
    EXPECT_TRUE(BuildChartData(DailyValues{}, day.list.Totals()).bars.empty());
    EXPECT_EQ(ProposedReportName("Ann: \"A\"/B ", "2026-11-23"), "Ann AB 2026-11-23");
    EXPECT_EQ(ProposedReportName("  ", "2026-11-23"), "Platewell 2026-11-23");
}

TEST(Report, AListOpensAsTheWindowOpensIt)
{
    const FoodTable table = test::SampleTable();
    const AnalysisFileContent content = ParseAnalysisBytes(
        "NAME:Ann Example\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:150\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n"
        "ITEM: 99 \t2-1/2\tDairy and Eggs\tMilk\tWhole\t1 cup\r\n"
        "ITEM: 3 \t1\tSnacks\tChips\tPotato\t1 oz\r\n"
        "ITEM: 0 \t1\tBakery and Grains\tBread\tWhite\t1 slice\r\n");
    const OpenedAnalysis opened = OpenAnalysis(content, table, 2026);
    ASSERT_TRUE(opened.valid);
    EXPECT_EQ(opened.profile.age, 64);
    EXPECT_EQ(opened.dailyValues[kCalories], 2100);
    ASSERT_EQ(opened.list.Count(), 2);
    EXPECT_EQ(opened.list.Entry(1).foodIndex, 6);  // found again by its texts
    EXPECT_EQ(opened.list.Entry(1).amounts, (NutrientValues{370, 20, 28, 20, 60, 0, 690, 245, 0}));
    EXPECT_EQ(opened.list.Totals()[kCalories], 439);
    ASSERT_EQ(opened.messages.size(), 1u);
    EXPECT_EQ(opened.messages[0].first,
              "\"Snacks/Chips/Potato/1 oz\"\r\nis no longer in the database.  It will not be imported.");

    for (const char* bytes : {"\x01\x02garbage", "NAME:Ann\r\nYOB:62\r\nHEIGHT:64\r\nWEIGHT:1000000000000000000000000000000000000000\r\n"})
        EXPECT_FALSE(OpenAnalysis(ParseAnalysisBytes(bytes), table, 2026).valid) << bytes;
    // A list holds 500 rows; a file of more is not a list file.
    std::string rows = "YOB:62\r\nHEIGHT:64\r\nWEIGHT:150\r\n";
    for (int r = 0; r < kFoodListCapacity; ++r)
        rows += "ITEM: 0 \t1\tBakery and Grains\tBread\tWhite\t1 slice\r\n";
    EXPECT_EQ(OpenAnalysis(ParseAnalysisBytes(rows), table, 2026).list.Count(), kFoodListCapacity);
    // It is refused whole, before any food is looked for: no message about a
    // food no longer in the database.
    const AnalysisFileContent over = ParseAnalysisBytes(
        rows + "ITEM: 3 \t1\tSnacks\tChips\tPotato\t1 oz\r\nITEM: 0 \t1\tBakery and Grains\tBread\tWhite\t1 slice\r\n");
    EXPECT_TRUE(over.refused && over.items.empty() && over.settings.empty());
    const OpenedAnalysis refused = OpenAnalysis(over, table, 2026);
    EXPECT_FALSE(refused.valid);
    EXPECT_TRUE(refused.messages.empty());
    // Under 13: told, and the year emptied, as the profile tab does.
    const OpenedAnalysis young = OpenAnalysis(ParseAnalysisBytes("YOB:20\r\nHEIGHT:64\r\nWEIGHT:150\r\n"), table, 1925);
    EXPECT_TRUE(young.valid);
    EXPECT_FALSE(young.profile.valid);
    EXPECT_EQ(young.messages.at(0).second, "Invalid age");
}

}  // namespace
}  // namespace pw
