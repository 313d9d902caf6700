#include "foodlist/FoodList.h"

#include "core/Numeric.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "foodlist/FoodListTexts.h"

namespace pw {

int FoodList::CheckRow(int row) const
{
    if (row < 1 || row > Count())
        throw RunTimeError(ErrorKind::SubscriptRange, "food list row " + std::to_string(row));
    return row - 1;
}

const FoodListEntry& FoodList::Entry(int row) const { return entries_[CheckRow(row)]; }

int FoodList::Append(FoodListEntry entry)
{
    if (IsFull())
        throw RunTimeError(ErrorKind::SubscriptRange, "food list row " + std::to_string(Count() + 1));
    entries_.push_back(std::move(entry));
    listSaved = false;
    blankRowBelow = true;
    return Count();
}

void FoodList::Replace(int row, FoodListEntry entry)
{
    entries_[CheckRow(row)] = std::move(entry);
    listSaved = false;
}

void FoodList::Delete(int row)
{
    entries_.erase(entries_.begin() + CheckRow(row));
    listSaved = false;
}

void FoodList::Insert(int row, FoodListEntry entry)
{
    if (IsFull() || row < 1 || row > Count() + 1)
        throw RunTimeError(ErrorKind::SubscriptRange, "food list row " + std::to_string(row));
    entries_.insert(entries_.begin() + (row - 1), std::move(entry));
}

void FoodList::Clear()
{
    entries_.clear();
    blankRowBelow = false;
}

void FoodList::Assign(std::vector<FoodListEntry> entries)
{
    if (static_cast<int>(entries.size()) > kFoodListCapacity)
        throw RunTimeError(ErrorKind::SubscriptRange, "food list row " + std::to_string(entries.size()));
    entries_ = std::move(entries);
}

void FoodList::RelocateEntries(const FoodTable& table)
{
    for (FoodListEntry& entry : entries_) {
        std::int16_t index = entry.foodIndex;
        ItemLocation(table, entry.group, entry.subgroup, entry.description, entry.measure, index);
        if (index >= 0)
            entry.foodIndex = index;
    }
}

NutrientValues FoodList::Totals() const
{
    NutrientValues totals{};
    for (const FoodListEntry& entry : entries_)
        for (int i = 0; i < kNutrientValues; ++i)
            totals[i] = AddInt32(totals[i], entry.amounts[i]);
    return totals;
}

std::string GridCellText(const FoodListEntry& entry, int column, bool byUnits)
{
    switch (column) {
    case 0: return entry.quantityText;
    case 1: return entry.measure;
    case 2: return entry.group;
    case 3: return entry.subgroup;
    case 4: return entry.description;
    default: break;
    }
    const int nutrient = column - kFirstNutrientColumn;
    if (nutrient < 0 || nutrient >= kShownNutrients)
        throw RunTimeError(ErrorKind::SubscriptRange, "grid column " + std::to_string(column));
    if (byUnits)
        return DailyValueText(static_cast<Nutrient>(nutrient), entry.amounts[nutrient]);
    return std::to_string(entry.percents[nutrient]) + texts::kCellPercent;
}

std::string DailyIntakeText(Nutrient nutrient, std::int32_t total, std::int32_t dailyValue, IntakeStyle style)
{
    if (style == IntakeStyle::Units)
        return DailyValueText(nutrient, total);
    if (dailyValue == 0)
        return {};
    const std::int32_t percent = ToInt32(static_cast<double>(total) / static_cast<double>(dailyValue) * 100.0);
    return std::to_string(percent) +
           (style == IntakeStyle::PercentSpaced ? texts::kIntakePercentSpaced : texts::kIntakePercentUnspaced);
}

std::string ListItemText(const std::string& group, const std::string& subgroup, const std::string& description)
{
    return kQuote + group + texts::kItemSeparator + subgroup + texts::kItemSeparator + description + kQuote;
}

std::string DeleteQuestionText(const std::string& itemText)
{
    return JoinLines({texts::kDeleteQuestionFirst, itemText, texts::kDeleteQuestionAfterItem});
}

std::string ItemRemovedText(const std::string& itemText) { return JoinLines({itemText, texts::kItemRemoved}); }

ListCommandStates ListCommandsFor(int count)
{
    ListCommandStates states;
    states.clear = count >= 1;
    states.save = count >= 1;
    states.print = count >= 1;
    states.saveAsDish = count >= 2;
    return states;
}

void ItemLocation(const FoodTable& table, const std::string& group, const std::string& subgroup,
                  const std::string& description, const std::string& measure, std::int16_t& index)
{
    auto matches = [&](int i) {
        return table.Group(i) == group && table.Subgroup(i) == subgroup && table.Description(i) == description &&
               table.Measure(i) == measure;
    };
    if (index >= 0 && index <= table.LastIndex() && matches(index))
        return;
    for (int i = 0; i <= table.LastIndex(); ++i) {
        if (matches(i)) {
            index = static_cast<std::int16_t>(i);
            return;
        }
    }
    index = -1;
}

}  // namespace pw
