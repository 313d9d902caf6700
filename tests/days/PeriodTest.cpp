// The period model on list files the test writes: dates from names and
// modification times, files of one date summed, gaps, lost foods, files
// left out, a day without daily values, the averages and the two CSVs.
#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <filesystem>

#include "Fixtures.h"
#include "TempFolder.h"
#include "days/DayFiles.h"
#include "days/Period.h"
#include "days/PeriodReport.h"

namespace pw {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAnn = "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:150\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n";
// 95 pounds: a protein DV of 40, so 15 g is 37.5 %.
constexpr const char* kAnnLight = "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:95\r\nSEX: 0 \r\nLIFESTYLE: 0 \r\n";
constexpr const char* kMilk = "\tDairy and Eggs\tMilk\tWhole\t1 cup\r\n";
constexpr const char* kBread = "\tBakery and Grains\tBread\tWhite\t1 slice\r\n";
constexpr const char* kCarrot = "\tVegetables\tCarrots\tRaw\t1 medium\r\n";
constexpr const char* kChips = "ITEM: 3 \t1\tSnacks\tChips\tPotato\t1 oz\r\n";

std::string Item(const char* quantity, const char* food) { return std::string("ITEM: 0 \t") + quantity + food; }

void SetModifiedLocalDate(const std::string& path, int year, int month, int day)
{
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = 12;
    local.tm_isdst = -1;
    const auto system = std::chrono::system_clock::from_time_t(std::mktime(&local));
    fs::last_write_time(path, std::chrono::file_clock::from_sys(system));
}

// Four logged days in five, one of two files, one dated by its
// modification time and without daily values, a lost food on two days, a
// file that is no list and one that is missing.
struct Diary {
    test::TempFolder folder;
    Period period;

    Diary()
    {
        folder.Write("2026-11-01 breakfast.pwl", std::string(kAnn) + Item("1", kMilk) + Item("1", kBread));
        folder.Write("2026-11-01 dinner.pwl", std::string(kAnnLight) + Item("2", kBread) + Item("1", kCarrot));
        folder.Write("x2026-02-30 diary 2026-11-03.pwl", std::string(kAnn) + Item("1/2", kMilk) + kChips);
        folder.Write("notes.pwl", "NAME:Cy\r\n" + Item("1", kBread));
        SetModifiedLocalDate(folder.File("notes.pwl"), 2026, 11, 4);
        folder.Write("2026-11-05.pwl", std::string(kAnn) + kChips + Item("2-1/2", kMilk) + Item("15", kBread));
        folder.Write("2026-11-06 bad.pwl", "Just a note\r\n");
        folder.Write("2026-11-07 readme.txt", std::string(kAnn));  // not a list file's name
        period = ReadPeriod({folder.Path(), folder.File("gone.pwl")}, test::SampleTable(), 2026);
    }
};

TEST(Period, DatesComeFromTheFirstValidDateInTheName)
{
    const struct {
        const char* name;
        const char* date;  // "" for none
    } cases[] = {
        {"2026-11-01.pwl", "2026-11-01"},         {"lunch 2024-02-29.pwl", "2024-02-29"},
        {"2023-02-29 then 2023-03-01", "2023-03-01"}, {"2026-13-01 2026-12-31", "2026-12-31"},
        {"2026-1-01.pwl", ""},                    {"notes.pwl", ""},
        {"12026-11-019", "2026-11-01"},
    };
    for (const auto& c : cases) {
        const auto date = DateFromName(c.name);
        EXPECT_EQ(date ? DateText(*date) : std::string(), c.date) << c.name;
    }
}

TEST(Period, DaysAreSummedInDateOrderWithTheirGapsAndProfiles)
{
    const Diary diary;
    const Period& p = diary.period;
    ASSERT_EQ(p.days.size(), 4u);
    EXPECT_EQ(p.PeriodLine(), "4 days logged from 2026-11-01 to 2026-11-05 (5 calendar days)");

    const PeriodDay& first = p.days[0];
    EXPECT_EQ(first.files, (std::vector<std::string>{"2026-11-01 breakfast.pwl", "2026-11-01 dinner.pwl"}));
    EXPECT_EQ(first.totals, (PeriodValues{383, 15, 56, 11, 24, 5, 410, 650}));
    // The dinner's profile (the last file) gives the day's daily values.
    EXPECT_EQ(first.dailyValues, (DailyValues{1330, 40, 194, 44, 200, 17, 532, 1579}));
    EXPECT_EQ(first.Percent(kProtein), 38);  // 37.5, half to even
    EXPECT_FALSE(first.dateFromModified);

    const PeriodDay& notes = p.days[2];
    EXPECT_EQ(DayDateText(notes), "2026-11-04 (modified)");
    EXPECT_FALSE(notes.haveDailyValues);
    EXPECT_EQ(DayCellText(notes, kSodium, true), "170");
    EXPECT_EQ(DayCellText(notes, kSodium, false), "");
    EXPECT_EQ(DayCellText(p.days[3], kSodium, false), "112%");

    // A bar per calendar day, the missing one a gap, not a zero.
    const SeriesData sodium = BuildSeries(p, kSodium);
    ASSERT_EQ(sodium.values.size(), 5u);
    EXPECT_FALSE(sodium.values[1].has_value());
    EXPECT_EQ(sodium.values[4], 2795);
    EXPECT_EQ(sodium.dailyValue, 2494);
    EXPECT_EQ(sodium.average, 916);
}

TEST(Period, LostFoodsAndSkippedFilesAreListedOnce)
{
    const Diary diary;
    const Period& p = diary.period;
    ASSERT_EQ(p.lost.size(), 1u);
    EXPECT_EQ(LostFoodLine(p.lost[0]), "Snacks/Chips/Potato/1 oz: 2026-11-03, 2026-11-05");
    ASSERT_EQ(p.skipped.size(), 2u);
    EXPECT_EQ(p.skipped[0].path, diary.folder.File("gone.pwl"));
    EXPECT_EQ(p.skipped[0].reason, "No such file or directory");
    EXPECT_EQ(p.skipped[1].path, diary.folder.File("2026-11-06 bad.pwl"));
    EXPECT_EQ(p.skipped[1].reason, texts::kNotAListFile);
}

TEST(Period, AveragesTopFoodsAndTheTwoCsvShapes)
{
    const Diary diary;
    const Period& p = diary.period;
    EXPECT_EQ(PeriodDaysCsv(p),
              "\xEF\xBB\xBF"
              "Date,Files,Foods,Calories,Protein (g),Carbs (g),Fats (g),Cholesterol (mg),Fiber (g),Calcium (mg),"
              "Sodium (mg)\r\n"
              "2026-11-01,2,4,383,15,56,11,24,5,410,650\r\n"
              "2026-11-03,1,1,74,4,6,4,12,0,138,49\r\n"
              "2026-11-04,1,1,69,2,13,1,0,1,38,170\r\n"
              "2026-11-05,1,2,1405,50,223,35,60,15,1260,2795\r\n"
              // 298 / 4 = 74.5 and 1846 / 4 = 461.5: halves to even.
              "Average,,2,483,18,74,13,24,5,462,916\r\n"
              "Average % of DV,,,33,41,35,27,12,29,81,52\r\n");
    EXPECT_EQ(PeriodFoodsCsv(p),
              "\xEF\xBB\xBF"
              "Date,File,Qty,Measure,Group,Subgroup,Description,Calories,Protein (g),Carbs (g),Fats (g),"
              "Cholesterol (mg),Fiber (g),Calcium (mg),Sodium (mg)\r\n"
              "2026-11-01,2026-11-01 breakfast.pwl,1,1 cup,Dairy and Eggs,Milk,Whole,148,8,11,8,24,0,276,98\r\n"
              "2026-11-01,2026-11-01 breakfast.pwl,1,1 slice,Bakery and Grains,Bread,White,69,2,13,1,0,1,38,170\r\n"
              "2026-11-01,2026-11-01 dinner.pwl,2,1 slice,Bakery and Grains,Bread,White,138,4,26,2,0,2,76,340\r\n"
              "2026-11-01,2026-11-01 dinner.pwl,1,1 medium,Vegetables,Carrots,Raw,28,1,6,0,0,2,20,42\r\n"
              "2026-11-03,x2026-02-30 diary 2026-11-03.pwl,1/2,1 cup,Dairy and Eggs,Milk,Whole,74,4,6,4,12,0,138,49\r\n"
              "2026-11-04,notes.pwl,1,1 slice,Bakery and Grains,Bread,White,69,2,13,1,0,1,38,170\r\n"
              "2026-11-05,2026-11-05.pwl,2-1/2,1 cup,Dairy and Eggs,Milk,Whole,370,20,28,20,60,0,690,245\r\n"
              "2026-11-05,2026-11-05.pwl,15,1 slice,Bakery and Grains,Bread,White,1035,30,195,15,0,15,570,2550\r\n");

    const int over[kShownNutrients] = {0, 0, 0, 0, 0, 0, 1, 1};
    for (int n = 0; n < kShownNutrients; ++n)
        EXPECT_EQ(p.DaysOver(n), over[n]) << n;

    const std::vector<TopFood> sodium = p.TopFoods(kSodium, 2);
    ASSERT_EQ(sodium.size(), 2u);
    EXPECT_EQ(sodium[0].description, "White");
    EXPECT_EQ(sodium[0].amount, 3230);
    EXPECT_EQ(sodium[0].share, 88);
    EXPECT_EQ(sodium[1].description, "Whole");
    EXPECT_EQ(sodium[1].share, 11);
    // Foods that gave none of a nutrient are not among its top foods.
    EXPECT_EQ(p.TopFoods(kCholesterol, 10).size(), 1u);
}

TEST(Period, AReportAndTextHoldEveryDayAndTheAverages)
{
    const Diary diary;
    const std::string text = PeriodText(diary.period, "2026-11-24");
    for (const char* expected : {"4 days logged from 2026-11-01 to 2026-11-05 (5 calendar days).",
                                 "2026-11-01", "2026-11-03", "2026-11-04 (modified)", "2026-11-05", "Average",
                                 "Snacks/Chips/Potato/1 oz: 2026-11-03, 2026-11-05", "No such file or directory"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    const ReportDocument report = BuildPeriodReport(diary.period, "2026-11-24");
    EXPECT_EQ(report.personName, "Ann");
    int series = 0;
    for (const ReportBlock& block : report.blocks)
        series += block.kind == BlockKind::Series;
    EXPECT_EQ(series, kShownNutrients);

    // No file read: no day, nothing averaged, nothing to divide by.
    const Period none = BuildPeriod({}, test::SampleTable(), 2026);
    EXPECT_TRUE(none.Empty());
    EXPECT_EQ(none.Average(kCalories), 0);
    EXPECT_FALSE(none.AveragePercent(kCalories).has_value());
}

}  // namespace
}  // namespace pw
