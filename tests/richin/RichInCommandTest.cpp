#include <gtest/gtest.h>

#include "Fixtures.h"
#include "richin/RichInCommand.h"

using namespace pw;
using namespace pw::test;

TEST(RichInCommand, ParsesTheOptionsAndRefusesWhatIsWrong)
{
    using B = RichBasis;
    using O = RichOrder;
    const struct {
        std::vector<std::string> arguments;
        int status;
        Nutrient nutrient;
        B basis;
        int group;
        O order;
        std::optional<int> top;
        const char* messagePart;
    } cases[] = {
        {{"--rich-in", "fiber"}, 0, kFiber, B::PerServing, kAllGroups, O::Most, {}, ""},
        {{"--rich-in=SODIUM"}, 0, kSodium, B::PerServing, kAllGroups, O::Least, {}, ""},
        {{"--rich-in", "Sodium", "--most"}, 0, kSodium, B::PerServing, kAllGroups, O::Most, {}, ""},
        {{"--least", "--rich-in", "Calcium", "--per-100-calories", "--group", "dairy and eggs", "--top", "5"},
         0, kCalcium, B::Per100Calories, 3, O::Least, 5, ""},
        {{"--rich-in", "Fat", "--group=Fruits", "--top=1"}, 0, kFats, B::PerServing, 8, O::Least, 1, ""},
        {{"--rich-in", "Vitamin C"}, 1, kFiber, B::PerServing, kAllGroups, O::Most, {},
         "Unknown nutrient \"Vitamin C\". Give one of:\n  Calories\n  Protein\n  Carbohydrates\n  Fat\n  "
         "Cholesterol\n  Fiber\n  Calcium\n  Sodium"},
        {{"--rich-in", "Fiber", "--group", "Candy"}, 1, kFiber, B::PerServing, kAllGroups, O::Most, {},
         "Give one of:\n  Bakery and Grains\n  Beverages\n"},
        {{"--rich-in"}, 2, kFiber, B::PerServing, kAllGroups, O::Most, {}, "without its value"},
        {{"--rich-in", "Fiber", "--most", "--least"}, 2, kFiber, B::PerServing, kAllGroups, O::Most, {}, "not both"},
        {{"--rich-in", "Fiber", "--top", "0"}, 2, kFiber, B::PerServing, kAllGroups, O::Most, {}, "--top"},
        {{"--rich-in", "Fiber", "--top", "99999999999"}, 2, kFiber, B::PerServing, kAllGroups, O::Most, {}, "--top"},
        {{"--rich-in", "Fiber", "--rich-in", "Fat"}, 2, kFiber, B::PerServing, kAllGroups, O::Most, {}, "twice"},
        {{"--rich-in", "Fiber", "--most=yes"}, 2, kFiber, B::PerServing, kAllGroups, O::Most, {}, "--most"},
        {{"--rich-in", "Fiber", "day.pwl"}, 2, kFiber, B::PerServing, kAllGroups, O::Most, {}, "'day.pwl'"},
    };
    for (const auto& c : cases) {
        std::string label;
        for (const std::string& a : c.arguments)
            label += a + " ";
        EXPECT_TRUE(AsksForRichIn(c.arguments)) << label;
        const RichInParse parse = ParseRichInArguments(c.arguments);
        EXPECT_EQ(parse.status, c.status) << label;
        EXPECT_NE(parse.message.find(c.messagePart), std::string::npos) << label << parse.message;
        EXPECT_EQ(parse.command.has_value(), c.status == 0) << label;
        if (!parse.command)
            continue;
        EXPECT_EQ(parse.command->query.nutrient, c.nutrient) << label;
        EXPECT_EQ(parse.command->query.basis, c.basis) << label;
        EXPECT_EQ(parse.command->query.group, c.group) << label;
        EXPECT_EQ(parse.command->query.order, c.order) << label;
        EXPECT_EQ(parse.command->top, c.top) << label;
    }
    EXPECT_FALSE(AsksForRichIn({"--export-text", "day.pwl", "--rich-inx"}));
}

TEST(RichInCommand, PrintsOneFoodALineWithSixFields)
{
    FoodTable table;
    table.Append(Food("Fruits", "Apples", "Raw", "1 medium", 0, 25, 0, 0, 4));          // 100 kcal
    table.Append(Food("Fruits", "Pears", "Cr\xE8me\tpoire", "1 medium", 0, 27, 0, 0, 6));  // 108 kcal
    table.Append(Food("Vegetables", "Carrots", "Raw\x1B[2J", "1 medium", 0, 20, 0, 0, 3));  // 80 kcal
    RichInCommand command;
    command.query = {kFiber, RichBasis::PerServing, kAllGroups, RichOrder::Most};
    EXPECT_EQ(RichInLines(table, command),
              "1\tFruits\tPears\tCr\xC3\xA8me poire\t1 medium\t6\n"
              "2\tFruits\tApples\tRaw\t1 medium\t4\n"
              "3\tVegetables\tCarrots\tRaw\\x1b[2J\t1 medium\t3\n");  // no escape reaches the terminal
    command.query.basis = RichBasis::Per100Calories;
    command.query.order = RichOrder::Least;
    command.top = 2;
    EXPECT_EQ(RichInLines(table, command),
              "1\tVegetables\tCarrots\tRaw\\x1b[2J\t1 medium\t3.8\n"  // 3.75 to the even tenth
              "2\tFruits\tApples\tRaw\t1 medium\t4.0\n");
}
