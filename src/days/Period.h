#pragma once
// Several days of saved lists: each list file opened as File > Open opens
// it, the files of one date summed as one day, and what the period shows
// from them: the days in date order, the averages over the logged days
// against the daily values, how many days went over, the foods behind each
// nutrient, the foods no longer in the table and the files that could not be
// read. Texts are Latin-1 like the rest of the model, file names as the
// system gives them.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/Profile.h"
#include "fooddb/FoodTable.h"
#include "foodlist/FoodList.h"

namespace pw {

namespace texts {

// Why a file of the period was left out when it holds no list.
inline constexpr const char* kNotAListFile = "is not a valid Platewell .pwl file";
inline constexpr const char* kAverageRow = "Average";
inline constexpr const char* kAveragePercentRow = "Average % of DV";
inline constexpr const char* kDaysOverRow = "Days over DV";
inline constexpr const char* kModifiedMark = "modified";

}  // namespace texts

// A calendar date as days since 1970-01-01.
using DaySerial = std::int32_t;

// The first valid YYYY-MM-DD in name (a real day of a real month), or none.
std::optional<DaySerial> DateFromName(std::string_view name);
// "2026-11-01".
std::string DateText(DaySerial date);

using PeriodValues = std::array<std::int64_t, kShownNutrients>;

// One list file as the period reads it: its name without folder, its date
// from the name or else from its modification time, and its bytes, or why
// they could not be read.
struct DayFileInput {
    std::string name;
    std::string path;  // as the user gave it, for messages
    DaySerial date = 0;
    bool dateFromModified = false;
    std::string bytes;
    std::string failure;  // the system's reason; empty when read
};

struct PeriodFood {
    std::size_t file = 0;  // index into PeriodDay::files
    FoodListEntry entry;
};

struct PeriodDay {
    DaySerial date = 0;
    bool dateFromModified = false;   // some file dated by its modification time
    std::vector<std::string> files;  // names, in name order
    std::vector<std::string> paths;  // the same files as given
    std::vector<PeriodFood> foods;   // file by file, each in list order
    PeriodValues totals{};           // the lists' totals summed over the files
    Profile profile;                 // of the last file in name order
    DailyValues dailyValues{};       // all 0 without a valid profile
    bool haveDailyValues = false;

    // round(total / DV x 100), half to even; none without daily values.
    std::optional<std::int64_t> Percent(int nutrient) const;
    bool Over(int nutrient) const;  // the percent beyond 100
};

// A food no longer in the table, by its tier path, and the days it was in.
struct LostFood {
    std::string tierPath;  // "Group/Subgroup/Description/Measure"
    std::vector<DaySerial> dates;
};

struct SkippedFile {
    std::string path;
    std::string reason;
};

// A food of the period by its four texts and what it gave of one nutrient.
struct TopFood {
    std::string group, subgroup, description, measure;
    std::int64_t amount = 0;
    std::int64_t share = 0;  // percent of the period's total, half to even
};

struct Period {
    std::vector<PeriodDay> days;  // in date order
    std::vector<LostFood> lost;   // in the order first met
    std::vector<SkippedFile> skipped;

    bool Empty() const { return days.empty(); }
    // Days from the first to the last logged day, both counted.
    int CalendarDays() const;
    // "12 days logged from 2026-11-01 to 2026-11-14 (14 calendar days)".
    std::string PeriodLine() const;
    // The latest day's profile and daily values.
    const PeriodDay* LatestDay() const { return days.empty() ? nullptr : &days.back(); }
    // The latest day that has daily values, whose DVs the period is held
    // against; none when no day has them.
    const PeriodDay* LatestDayWithDailyValues() const;

    // Averages per logged day, half to even.
    std::int64_t AverageFoods() const;
    std::int64_t Average(int nutrient) const;
    // The average over the days with daily values of each day's percent;
    // none when no day has them.
    std::optional<std::int64_t> AveragePercent(int nutrient) const;
    int DaysOver(int nutrient) const;
    std::int64_t Total(int nutrient) const;
    // The count foods that gave most of nutrient, largest first (ties by
    // their texts); foods that gave nothing are left out.
    std::vector<TopFood> TopFoods(int nutrient, std::size_t count) const;
};

// Opens each file as a list file is opened (profile, foods found again by
// their four texts, quantities parsed again), skips the ones that cannot be
// read or hold no list (neither a profile line nor an item), gathers the
// foods no longer in table once with their days, and sums the files of each
// date. Never throws for a file's content: a run-time error while opening a
// file skips that file with the error's name as the reason.
Period BuildPeriod(std::vector<DayFileInput> files, const FoodTable& table, int currentYear);

// The days as comma-separated values (RFC 4180, CR LF, UTF-8 with a
// byte-order mark): one row per day, then the averages and the averages of
// the percents of DV.
std::string PeriodDaysCsv(const Period& period);
// One row per food per file: the date, the file's name, the quantity as
// typed, the food's texts and its eight amounts.
std::string PeriodFoodsCsv(const Period& period);

}  // namespace pw
