#include "fooddb/FoodTable.h"

#include "core/Numeric.h"
#include "core/RunTimeError.h"

namespace pw {

std::int32_t ComputeCalories(std::int32_t protein, std::int32_t carbs, std::int32_t fats, std::int32_t alcohol)
{
    std::int32_t calories = MulInt32(4, AddInt32(carbs, protein));
    calories = AddInt32(calories, MulInt32(9, fats));
    return AddInt32(calories, MulInt32(7, alcohol));
}

FoodTable::FoodTable()
    : group_(kFoodCapacity), subgroup_(kFoodCapacity), description_(kFoodCapacity), measure_(kFoodCapacity),
      values_(kFoodCapacity), rawRecordLines_(kFoodCapacity)
{
}

int FoodTable::Check(int i) const
{
    if (i < 0 || i > lastIndex_)
        throw RunTimeError(ErrorKind::SubscriptRange, "food index " + std::to_string(i));
    return i;
}

int FoodTable::CheckSlot(int i) const
{
    if (i < 0 || i >= kFoodCapacity)
        throw RunTimeError(ErrorKind::SubscriptRange, "food index " + std::to_string(i));
    return i;
}

FoodRecord FoodTable::Record(int i) const
{
    Check(i);
    return FoodRecord{group_[i], subgroup_[i], description_[i], measure_[i], values_[i]};
}

void FoodTable::SetRecord(int i, const FoodRecord& record)
{
    CheckSlot(i);
    group_[i] = record.group;
    subgroup_[i] = record.subgroup;
    description_[i] = record.description;
    measure_[i] = record.measure;
    values_[i] = record.values;
}

void FoodTable::Append(const FoodRecord& record)
{
    SetRecord(lastIndex_ + 1, record);
    ++lastIndex_;
}

void FoodTable::SetLastIndex(int lastIndex)
{
    if (lastIndex < -1 || lastIndex >= kFoodCapacity)
        throw RunTimeError(ErrorKind::SubscriptRange, "last index " + std::to_string(lastIndex));
    lastIndex_ = static_cast<std::int16_t>(lastIndex);
}

void FoodTable::Clear()
{
    lastIndex_ = -1;
    DatabaseDirty = false;
}

std::string DailyValueText(Nutrient nutrient, std::int32_t value)
{
    std::string text = std::to_string(value);
    switch (nutrient) {
    case kProtein:
    case kCarbs:
    case kFats:
    case kFiber:
        return text + " g";
    case kCholesterol:
    case kCalcium:
    case kSodium:
        return text + " mg";
    default:
        return text;
    }
}

}  // namespace pw
