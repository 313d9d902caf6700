// The chooser's stages: which controls each step opens or closes, as the
// page shows them through its one routine.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "foodlist/ChooserState.h"

namespace pw {
namespace {

// "tiers 1100 qty 0 values 0 food 0 measure 0 accept 0 search 1 row 0"
std::string Shown(const ChooserStage& s)
{
    std::string tiers;
    for (bool open : s.tierOpen)
        tiers += open ? '1' : '0';
    auto flag = [](const char* name, bool on) { return std::string(" ") + name + (on ? " 1" : " 0"); };
    return "tiers " + tiers + flag("qty", s.quantityOpen) + flag("values", s.valuesShown) +
           flag("food", s.foodShown) + flag("measure", s.measureChosen) + flag("accept", s.acceptOffered) +
           flag("search", s.searchOffered) + flag("row", s.rowLoaded);
}

using Step = std::function<void(ChooserStage&)>;
const Step kNewItem = [](ChooserStage& s) { s.StartNewItem(); };
const Step kGroup = [](ChooserStage& s) { s.UpperTierChosen(0, true); };
const Step kNoGroup = [](ChooserStage& s) { s.UpperTierChosen(0, false); };
const Step kSubgroup = [](ChooserStage& s) { s.UpperTierChosen(1, true); };
const Step kDescription = [](ChooserStage& s) { s.DescriptionChosen(); };
const Step kMeasure = [](ChooserStage& s) { s.MeasureChosen(true); };
const Step kNoMeasure = [](ChooserStage& s) { s.MeasureChosen(false); };
Step Judged(QuantityVerdict v)
{
    return [v](ChooserStage& s) { s.QuantityJudged(v); };
}
const Step kValid = Judged(QuantityVerdict::Valid);
const Step kLoadRow = [](ChooserStage& s) {
    s.LoadRow();
    s.ShowRowValues();
};

TEST(ChooserStageTest, EachStepOpensAndClosesItsControls)
{
    const std::vector<Step> chosen = {kNewItem, kGroup, kSubgroup, kDescription, kMeasure, kValid};
    auto then = [&chosen](std::vector<Step> more) {
        std::vector<Step> steps = chosen;
        steps.insert(steps.end(), more.begin(), more.end());
        return steps;
    };
    const struct {
        const char* what;
        std::vector<Step> steps;
        const char* shown;
    } cases[] = {
        {"built", {[](ChooserStage& s) { s.CloseAll(); }}, "tiers 0000 qty 0 values 0 food 0 measure 0 accept 0 search 0 row 0"},
        {"new item", {kNewItem}, "tiers 1000 qty 0 values 0 food 0 measure 0 accept 0 search 1 row 0"},
        {"group", {kNewItem, kGroup}, "tiers 1100 qty 0 values 0 food 0 measure 0 accept 0 search 1 row 0"},
        {"subgroup", {kNewItem, kGroup, kSubgroup}, "tiers 1110 qty 0 values 0 food 0 measure 0 accept 0 search 1 row 0"},
        {"description", {kNewItem, kGroup, kSubgroup, kDescription},
         "tiers 1111 qty 0 values 0 food 0 measure 0 accept 0 search 1 row 0"},
        {"measure", {kNewItem, kGroup, kSubgroup, kDescription, kMeasure},
         "tiers 1111 qty 1 values 1 food 1 measure 1 accept 0 search 1 row 0"},
        {"valid quantity", chosen, "tiers 1111 qty 1 values 1 food 1 measure 1 accept 1 search 1 row 0"},
        {"zero", then({Judged(QuantityVerdict::Zero)}), "tiers 1111 qty 1 values 0 food 1 measure 1 accept 0 search 1 row 0"},
        // A refused quantity leaves Accept as it was.
        {"refused", then({Judged(QuantityVerdict::Refused)}),
         "tiers 1111 qty 1 values 0 food 1 measure 1 accept 1 search 1 row 0"},
        {"too large", then({Judged(QuantityVerdict::TooLarge)}),
         "tiers 1111 qty 1 values 0 food 1 measure 1 accept 1 search 1 row 0"},
        {"measure cleared", then({kNoMeasure}), "tiers 1111 qty 0 values 0 food 0 measure 0 accept 1 search 1 row 0"},
        {"another group", then({kGroup}), "tiers 1100 qty 0 values 0 food 0 measure 0 accept 1 search 1 row 0"},
        {"group cleared", then({kNoGroup}), "tiers 1000 qty 0 values 0 food 0 measure 0 accept 1 search 1 row 0"},
        {"row loaded", {kLoadRow}, "tiers 1111 qty 1 values 1 food 1 measure 0 accept 1 search 1 row 1"},
        // The tiers emptied by a change of the table keep the loaded row.
        {"row, then closed", {kLoadRow, [](ChooserStage& s) { s.CloseAll(); }},
         "tiers 0000 qty 0 values 0 food 0 measure 0 accept 0 search 0 row 1"},
        {"row forgotten", {kLoadRow, [](ChooserStage& s) { s.ForgetRow(); }},
         "tiers 0000 qty 0 values 0 food 0 measure 0 accept 0 search 0 row 0"},
        {"new item after a row", {kLoadRow, kNewItem}, "tiers 1000 qty 0 values 0 food 0 measure 0 accept 0 search 1 row 0"},
        {"found by the search", {kLoadRow, [](ChooserStage& s) { s.ShowFound(); }},
         "tiers 1111 qty 0 values 0 food 0 measure 0 accept 0 search 1 row 0"},
    };
    for (const auto& c : cases) {
        ChooserStage stage;
        stage.StartNewItem();
        stage.rowLoaded = true;
        stage.CloseAll();
        stage.ForgetRow();
        for (const Step& step : c.steps)
            step(stage);
        EXPECT_EQ(Shown(stage), c.shown) << c.what;
    }
}

TEST(ChooserStageTest, QuantitiesAreJudgedAtTheirLimits)
{
    const std::pair<float, QuantityVerdict> cases[] = {
        {-1.0f, QuantityVerdict::Refused}, {0.0f, QuantityVerdict::Zero},       {0.125f, QuantityVerdict::Valid},
        {99.0f, QuantityVerdict::Valid},   {99.01f, QuantityVerdict::TooLarge},
    };
    for (const auto& [quantity, verdict] : cases)
        EXPECT_EQ(JudgeQuantity(quantity), verdict) << quantity;
}

}  // namespace
}  // namespace pw
