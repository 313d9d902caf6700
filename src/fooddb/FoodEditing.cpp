#include "fooddb/FoodEditing.h"

#include "core/Numeric.h"
#include "core/RunTimeError.h"
#include "core/Text.h"

namespace pw {

void FieldsFilled::Set(int field, bool filled)
{
    if (field < 0 || field >= kFirstNutrientField + kCustomNutrients)
        throw RunTimeError(ErrorKind::SubscriptRange, "field " + std::to_string(field));
    if (filled)
        mask |= 1 << field;
    else
        mask &= ~(1 << field);
}

std::int16_t FoodInserter::InsertFood(FoodTable& table, std::string group, std::string& subgroup,
                                      std::string& description, std::string& measure, NutrientValues values)
{
    subgroup = Trim(subgroup);
    description = Trim(description);
    measure = Trim(measure);
    const int last = table.LastIndex();

    // The same four texts, looked for up to the end of the group's place.
    for (int i = 0; i <= last; ++i) {
        if (table.Group(i) == group && table.Subgroup(i) == subgroup && table.Description(i) == description &&
            table.Measure(i) == measure) {
            insertPosition_ = kInsertDuplicate;
            return kInsertDuplicate;
        }
        if (table.Group(i) > group)
            break;
    }
    if (table.IsFull())
        return kInsertNoRoom;

    // The place: three scans nested in the scan of the group, each marking
    // the food before the first one that compares greater. Whether a food
    // marks depends on that food alone, never on where its scan began, so a
    // scan that ran to the end without a mark would do so again from any
    // later start: such a scan is not repeated. That keeps the result of the
    // nested scans in one pass over the table.
    int p = insertPosition_;
    bool measuresExhausted = false;
    bool descriptionsExhausted = false;
    const auto scanMeasures = [&](int k) {
        if (measuresExhausted)
            return false;
        for (int m = k; m <= last; ++m) {
            if (table.Description(m) > description || table.Measure(m) > measure) {
                p = m - 1;
                return true;
            }
        }
        measuresExhausted = true;
        return false;
    };
    const auto scanDescriptions = [&](int j) {
        if (descriptionsExhausted)
            return false;
        for (int k = j; k <= last; ++k) {
            const std::string& text = table.Description(k);
            if (text != description) {
                if (text > description || table.Subgroup(k) > subgroup) {
                    p = k - 1;
                    return true;
                }
            } else if (scanMeasures(k)) {
                return true;
            }
        }
        descriptionsExhausted = true;
        return false;
    };
    const auto scanSubgroups = [&](int i) {
        for (int j = i; j <= last; ++j) {
            const std::string& text = table.Subgroup(j);
            if (text != subgroup) {
                if (text > subgroup || table.Group(j) > group) {
                    p = j - 1;
                    return true;
                }
            } else if (scanDescriptions(j)) {
                return true;
            }
        }
        return false;
    };
    bool found = false;
    for (int i = 0; i <= last; ++i) {
        if (table.Group(i) == group) {
            // The scans from the group's later foods cover a part of this one.
            found = scanSubgroups(i);
            break;
        }
    }

    const int newLast = last + 1;
    table.SetLastIndex(newLast);
    if (p != -1) {
        if (found) {
            for (int n = newLast; n > p + 1; --n)
                table.SetRecord(n, table.Record(n - 1));
            table.SetRecord(p + 1, FoodRecord{group, subgroup, description, measure, values});
        } else {
            // Nothing compared greater (a group not in the table yet, for
            // one): after the last food.
            p = newLast;
            table.SetRecord(p, FoodRecord{group, subgroup, description, measure, values});
        }
    } else {
        for (int n = newLast; n > 0; --n)
            table.SetRecord(n, table.Record(n - 1));
        table.SetRecord(0, FoodRecord{group, subgroup, description, measure, values});
        p = 0;
    }
    insertPosition_ = static_cast<std::int16_t>(p);
    table.DatabaseDirty = true;
    return insertPosition_;
}

void DeleteFoods(FoodTable& table, int first, int n)
{
    const int last = table.LastIndex();
    if (n < 1 || first < 0 || first + n - 1 > last)
        throw RunTimeError(ErrorKind::SubscriptRange,
                           "foods " + std::to_string(first) + " to " + std::to_string(first + n - 1));
    table.DatabaseDirty = true;
    if (first + n - 1 != last) {
        for (int i = first + n; i <= last; ++i)
            table.SetRecord(i - n, table.Record(i));
        table.SetLastIndex(last - n);
    } else {
        table.SetLastIndex(first - 1);
    }
}

std::string CapitalizeFirst(std::string_view text)
{
    if (text.size() < 2)
        return UpperLatin1(text);
    std::string out(text);
    out[0] = UpperLatin1(out[0]);
    return out;
}

std::int32_t CustomNutrientValue(int row, std::string_view text, bool percentOfDV)
{
    if (row < 0 || row >= kCustomNutrients)
        throw RunTimeError(ErrorKind::SubscriptRange, "nutrient row " + std::to_string(row));
    const std::int32_t amount = ToInt32(Val(text));
    if (!percentOfDV)
        return amount;
    return ToInt32(static_cast<double>(amount) * kCustomDailyValues[static_cast<std::size_t>(row)] / 100.0);
}

NutrientValues CustomFoodValues(const std::array<std::int32_t, kCustomNutrients>& rows)
{
    NutrientValues values{};
    for (int i = 0; i < kCustomNutrients; ++i)
        values[static_cast<std::size_t>(kProtein + i)] = rows[static_cast<std::size_t>(i)];
    const std::int32_t calories = AddInt32(MulInt32(4, rows[0]), MulInt32(4, rows[1]));
    values[kCalories] = AddInt32(calories, MulInt32(9, rows[2]));
    values[kAlcohol] = 0;
    return values;
}

namespace {

std::string FoodPath(const std::string& subgroup, const std::string& description, const std::string& measure)
{
    return subgroup + " / " + description + " / " + measure;
}

std::string Quoted(const std::string& text) { return kQuote + text + kQuote; }

std::string InFavorites(const std::string& subgroup, const std::string& description, const std::string& measure)
{
    return "Favorites / " + FoodPath(subgroup, description, measure);
}

}  // namespace

std::string DeleteFoodQuestion(const std::string& group, const std::string& subgroup,
                               const std::string& description)
{
    return JoinLines({"This will permanently delete the item:", Quoted(group + " / " + subgroup + " / " + description),
                      "from the database of foods.", "", "Do you want to delete this item?"});
}

std::string AddFoodQuestion(const std::string& subgroup, const std::string& description, const std::string& measure)
{
    return JoinLines({"Add " + Quoted(FoodPath(subgroup, description, measure)), "to the database?"});
}

std::string AddFoodExists(const std::string& subgroup, const std::string& description, const std::string& measure)
{
    return JoinLines({Quoted(FoodPath(subgroup, description, measure)), "already exists in the database."});
}

std::string AddFoodAdded(const std::string& subgroup, const std::string& description, const std::string& measure)
{
    return JoinLines({Quoted(FoodPath(subgroup, description, measure)), "added to the database."});
}

std::string DishExists(const std::string& subgroup, const std::string& description, const std::string& measure)
{
    return JoinLines({InFavorites(subgroup, description, measure), "already exists in the database."});
}

std::string DishAddedQuestion(const std::string& subgroup, const std::string& description,
                              const std::string& measure)
{
    return JoinLines({InFavorites(subgroup, description, measure), "successfully added to database.", "",
                      "Do you want to clear the grid?"});
}

std::string CopiedToFavorites(const std::string& subgroup, const std::string& description,
                              const std::string& measure)
{
    return JoinLines({InFavorites(subgroup, description, measure), "successfully copied to Favorites."});
}

std::string CopyExists(const std::string& subgroup, const std::string& description, const std::string& measure)
{
    return JoinLines({InFavorites(subgroup, description, measure), "already exists in the Favorites section."});
}

}  // namespace pw
