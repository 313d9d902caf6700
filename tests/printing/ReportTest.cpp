#include <gtest/gtest.h>

#include "Fixtures.h"
#include "analysis/DailyValues.h"
#include "printing/Report.h"
#include "shell/Session.h"

namespace pw {
namespace {

// A valid profile of 150 pounds and 64 inches and two foods in the list.
Session SessionWithList()
{
    Session s;
    s.profile.inputs.name = "Ann <\"A&B\">";
    s.profile.inputs.yob = "62";
    s.profile.inputs.height = "64";
    s.profile.inputs.weight = "150";
    s.profile.age = 64;
    s.profile.weightPounds = 150;
    s.profile.weightKilograms = 150 / 2.203f;
    s.profile.heightInches = 64;
    s.profile.heightCentimeters = 64 * 2.54f;
    s.profile.valid = true;
    s.dailyValues = ComputeDailyValues(150, kSexFemale, kLifestyleSedentary);
    FoodListEntry milk{5, "2-1/2", "Dairy and Eggs", "Milk", "Whole", "1 cup", {}, {}};
    milk.amounts = {370, 20, 28, 20, 60, 0, 690, 245, 0};
    FoodListEntry bread{0, "1", "Bakery and Grains", "Bread", "White", "1 slice", {}, {}};
    bread.amounts = {69, 2, 13, 1, 0, 1, 38, 170, 0};
    s.foodList.Append(milk);
    s.foodList.Append(bread);
    return s;
}

TEST(Report, FoodListShowsEveryRowAndTheTotals)
{
    const Session s = SessionWithList();
    const std::string units = FoodListReportHtml(s, true, "1 May");
    for (const char* text : {"2-1/2", "Whole", "White", "370", "245 mg", "439", "415 mg", "Cholest.", "1 May"})
        EXPECT_NE(units.find(text), std::string::npos) << text;
    EXPECT_NE(units.find("Ann &lt;&quot;A&amp;B&quot;&gt;"), std::string::npos);  // escaped, never markup
    EXPECT_EQ(units.find("Ann <"), std::string::npos);

    const std::string dv = FoodListReportHtml(s, false, "1 May");
    // 439 of 2100 calories is 21% of the daily value.
    EXPECT_NE(dv.find("21%DV"), std::string::npos);
}

TEST(Report, AnalysisHasTheProfileSummaryIntakeAndFoods)
{
    Session s = SessionWithList();
    const std::string html = AnalysisReportHtml(s, "1 May");
    for (const char* text : {"1962", "64 years", "BMI:", "26 (Overweight)", "2100", "63 g", "2494 mg", "439", "21% DV",
                             "Whole", "White"})
        EXPECT_NE(html.find(text), std::string::npos) << text;

    s.profile.valid = false;
    const std::string incomplete = AnalysisReportHtml(s, "1 May");
    EXPECT_NE(incomplete.find("needs a complete profile"), std::string::npos);
    EXPECT_EQ(incomplete.find("BMI:"), std::string::npos);
}

}  // namespace
}  // namespace pw
