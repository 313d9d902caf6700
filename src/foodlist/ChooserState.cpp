#include "foodlist/ChooserState.h"

#include "core/Numeric.h"
#include "core/RunTimeError.h"
#include "foodlist/Quantity.h"

namespace pw {

QuantityVerdict JudgeQuantity(float quantity)
{
    if (quantity < 0.0f)
        return QuantityVerdict::Refused;
    if (quantity > kMaxQuantity)
        return QuantityVerdict::TooLarge;
    if (quantity == 0.0f)
        return QuantityVerdict::Zero;
    return QuantityVerdict::Valid;
}

void ChooserStage::CloseAll()
{
    const bool loaded = rowLoaded;
    *this = ChooserStage{};
    rowLoaded = loaded;
}

void ChooserStage::StartNewItem()
{
    CloseAll();
    tierOpen[0] = true;
    searchOffered = true;
    rowLoaded = false;
}

void ChooserStage::OpenForChange()
{
    tierOpen = {true, true, true, true};
    quantityOpen = true;
    valuesShown = false;
    foodShown = false;
    acceptOffered = true;
}

void ChooserStage::UpperTierChosen(int tier, bool chosen)
{
    for (int t = tier + 1; t < 3; ++t)
        tierOpen[static_cast<std::size_t>(t)] = chosen && t == tier + 1;
    MeasureTierClosed();
}

void ChooserStage::MeasureTierClosed()
{
    tierOpen[3] = false;
    MeasureChosen(false);
}

void ChooserStage::DescriptionChosen()
{
    tierOpen[3] = true;
    MeasureChosen(false);
}

void ChooserStage::MeasureChosen(bool chosen)
{
    quantityOpen = chosen;
    measureChosen = chosen;
    valuesShown = chosen;
    foodShown = chosen;
}

void ChooserStage::QuantityJudged(QuantityVerdict verdict)
{
    valuesShown = verdict == QuantityVerdict::Valid;
    if (verdict == QuantityVerdict::Zero || verdict == QuantityVerdict::Valid)
        acceptOffered = verdict == QuantityVerdict::Valid;
}

void ChooserStage::ForgetRow()
{
    rowLoaded = false;
    CloseAll();
}

void ChooserStage::LoadRow()
{
    searchOffered = true;
    rowLoaded = true;
    OpenForChange();
}

void ChooserStage::ShowRowValues()
{
    valuesShown = true;
    foodShown = true;
}

void ChooserStage::ShowFound()
{
    MeasureChosen(false);
    acceptOffered = false;
    rowLoaded = false;
}

ScaledNutrients ScaleNutrients(const NutrientValues& perMeasure, float quantity, const DailyValues& dailyValues)
{
    ScaledNutrients scaled;
    for (int i = 0; i < kNutrientValues; ++i)
        scaled.amounts[i] = ToInt32(static_cast<double>(quantity) * static_cast<double>(perMeasure[i]));
    for (int i = 0; i < kShownNutrients; ++i) {
        if (dailyValues[i] == 0)
            throw RunTimeError(ErrorKind::DivisionByZero, "daily value " + std::to_string(i));
        scaled.percents[i] =
            ToInt32(static_cast<double>(scaled.amounts[i]) / static_cast<double>(dailyValues[i]) * 100.0);
    }
    return scaled;
}

}  // namespace pw
