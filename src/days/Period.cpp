#include "days/Period.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <tuple>

#include "analysis/AnalysisFile.h"
#include "analysis/AnalysisOpening.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "printing/Report.h"

namespace pw {

namespace {

namespace chr = std::chrono;

const char* const kCsvAmountCaptions[kShownNutrients] = {"Calories",         "Protein (g)", "Carbs (g)",
                                                         "Fats (g)",         "Cholesterol (mg)", "Fiber (g)",
                                                         "Calcium (mg)",     "Sodium (mg)"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int Digits(std::string_view text)
{
    int value = 0;
    for (char c : text)
        value = value * 10 + (c - '0');
    return value;
}

std::int64_t HalfEvenQuotient(double numerator, double denominator)
{
    return static_cast<std::int64_t>(RoundHalfEven(numerator / denominator));
}

std::string TierPath(const AnalysisItem& item)
{
    return item.group + "/" + item.subgroup + "/" + item.description + "/" + item.measure;
}

// One file opened: its profile, daily values and list, or why not.
struct OpenedFile {
    const DayFileInput* input = nullptr;
    OpenedAnalysis opened;
    std::vector<std::string> lost;  // tier paths, in file order
};

}  // namespace

std::optional<DaySerial> DateFromName(std::string_view name)
{
    for (std::size_t i = 0; i + 10 <= name.size(); ++i) {
        const std::string_view s = name.substr(i, 10);
        bool shape = s[4] == '-' && s[7] == '-';
        for (std::size_t k : {0, 1, 2, 3, 5, 6, 8, 9})
            shape = shape && IsDigit(s[k]);
        if (!shape)
            continue;
        const chr::year_month_day date{chr::year(Digits(s.substr(0, 4))),
                                       chr::month(static_cast<unsigned>(Digits(s.substr(5, 2)))),
                                       chr::day(static_cast<unsigned>(Digits(s.substr(8, 2))))};
        if (date.ok())
            return static_cast<DaySerial>(chr::sys_days(date).time_since_epoch().count());
    }
    return std::nullopt;
}

std::string DateText(DaySerial date)
{
    const chr::year_month_day ymd{chr::sys_days(chr::days(date))};
    char text[16];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(ymd.year()),
                  static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()));
    return text;
}

std::optional<std::int64_t> PeriodDay::Percent(int nutrient) const
{
    if (!haveDailyValues)
        return std::nullopt;
    // As the analysis tab computes it: the quotient first, then times 100.
    return static_cast<std::int64_t>(
        RoundHalfEven(static_cast<double>(totals[nutrient]) / static_cast<double>(dailyValues[nutrient]) * 100.0));
}

bool PeriodDay::Over(int nutrient) const
{
    const auto percent = Percent(nutrient);
    return percent && *percent > 100;
}

const PeriodDay* Period::LatestDayWithDailyValues() const
{
    for (auto day = days.rbegin(); day != days.rend(); ++day)
        if (day->haveDailyValues)
            return &*day;
    return nullptr;
}

int Period::CalendarDays() const { return days.empty() ? 0 : days.back().date - days.front().date + 1; }

std::string Period::PeriodLine() const
{
    if (days.empty())
        return "No days logged";
    const std::size_t logged = days.size();
    const int calendar = CalendarDays();
    return std::to_string(logged) + (logged == 1 ? " day" : " days") + " logged from " +
           DateText(days.front().date) + " to " + DateText(days.back().date) + " (" + std::to_string(calendar) +
           (calendar == 1 ? " calendar day)" : " calendar days)");
}

std::int64_t Period::AverageFoods() const
{
    if (days.empty())
        return 0;
    double sum = 0;
    for (const PeriodDay& day : days)
        sum += static_cast<double>(day.foods.size());
    return HalfEvenQuotient(sum, static_cast<double>(days.size()));
}

std::int64_t Period::Total(int nutrient) const
{
    std::int64_t sum = 0;
    for (const PeriodDay& day : days)
        sum += day.totals[nutrient];
    return sum;
}

std::int64_t Period::Average(int nutrient) const
{
    if (days.empty())
        return 0;
    return HalfEvenQuotient(static_cast<double>(Total(nutrient)), static_cast<double>(days.size()));
}

std::optional<std::int64_t> Period::AveragePercent(int nutrient) const
{
    double sum = 0;
    int counted = 0;
    for (const PeriodDay& day : days) {
        if (const auto percent = day.Percent(nutrient)) {
            sum += static_cast<double>(*percent);
            ++counted;
        }
    }
    if (counted == 0)
        return std::nullopt;
    return HalfEvenQuotient(sum, counted);
}

int Period::DaysOver(int nutrient) const
{
    return static_cast<int>(std::count_if(days.begin(), days.end(), [&](const PeriodDay& d) { return d.Over(nutrient); }));
}

std::vector<TopFood> Period::TopFoods(int nutrient, std::size_t count) const
{
    using Key = std::tuple<std::string, std::string, std::string, std::string>;
    std::map<Key, std::int64_t> sums;
    for (const PeriodDay& day : days)
        for (const PeriodFood& food : day.foods) {
            const FoodListEntry& e = food.entry;
            sums[{e.group, e.subgroup, e.description, e.measure}] += e.amounts[nutrient];
        }
    std::vector<TopFood> foods;
    const std::int64_t total = Total(nutrient);
    for (const auto& [key, amount] : sums) {
        if (amount <= 0)
            continue;
        TopFood food{std::get<0>(key), std::get<1>(key), std::get<2>(key), std::get<3>(key), amount, 0};
        if (total > 0)
            food.share = HalfEvenQuotient(static_cast<double>(amount) * 100.0, static_cast<double>(total));
        foods.push_back(std::move(food));
    }
    // The map is in the order of the texts; a stable sort keeps it for ties.
    std::stable_sort(foods.begin(), foods.end(), [](const TopFood& a, const TopFood& b) { return a.amount > b.amount; });
    if (foods.size() > count)
        foods.resize(count);
    return foods;
}

Period BuildPeriod(std::vector<DayFileInput> files, const FoodTable& table, int currentYear)
{
    std::stable_sort(files.begin(), files.end(), [](const DayFileInput& a, const DayFileInput& b) {
        return std::tie(a.date, a.name, a.path) < std::tie(b.date, b.name, b.path);
    });
    Period period;
    std::vector<OpenedFile> opened;
    for (const DayFileInput& file : files) {
        if (!file.failure.empty()) {
            period.skipped.push_back({file.path, file.failure});
            continue;
        }
        const AnalysisFileContent content = ParseAnalysisBytes(file.bytes);
        if (!content.valid || (content.settings.empty() && content.items.empty())) {
            period.skipped.push_back({file.path, texts::kNotAListFile});
            continue;
        }
        OpenedFile one;
        one.input = &file;
        one.opened = OpenAnalysis(content, table, currentYear);
        if (!one.opened.valid) {
            period.skipped.push_back({file.path, texts::kNotAListFile});
            continue;
        }
        try {
            // The person as the report shows them: a BMI beyond its range
            // leaves the file out rather than the report unmade.
            (void)PersonLines(one.opened.profile, one.opened.dailyValues);
        } catch (const RunTimeError& error) {
            period.skipped.push_back({file.path, error.Name()});
            continue;
        }
        // The opening tells each lost food by its message; the items say
        // which food each message names.
        for (const auto& [text, title] : one.opened.messages) {
            if (title != std::string(texts::kTitleOpenList))
                continue;
            for (const AnalysisItem& item : content.items)
                if (MissingFoodText(item) == text) {
                    one.lost.push_back(TierPath(item));
                    break;
                }
        }
        opened.push_back(std::move(one));
    }

    for (OpenedFile& file : opened) {
        const DayFileInput& input = *file.input;
        if (period.days.empty() || period.days.back().date != input.date) {
            period.days.emplace_back();
            period.days.back().date = input.date;
        }
        PeriodDay& day = period.days.back();
        day.dateFromModified = day.dateFromModified || input.dateFromModified;
        day.files.push_back(input.name);
        day.paths.push_back(input.path);
        const FoodList& list = file.opened.list;
        for (int row = 1; row <= list.Count(); ++row)
            day.foods.push_back({day.files.size() - 1, list.Entry(row)});
        const NutrientValues totals = list.Totals();
        for (int n = 0; n < kShownNutrients; ++n)
            day.totals[n] += totals[n];
        // The files are in name order: the last one's profile stands.
        day.profile = file.opened.profile;
        day.dailyValues = file.opened.dailyValues;
        day.haveDailyValues = std::all_of(day.dailyValues.begin(), day.dailyValues.end(),
                                          [](std::int32_t dv) { return dv != 0; });
        for (const std::string& path : file.lost) {
            auto found = std::find_if(period.lost.begin(), period.lost.end(),
                                      [&](const LostFood& lost) { return lost.tierPath == path; });
            if (found == period.lost.end()) {
                period.lost.push_back({path, {}});
                found = period.lost.end() - 1;
            }
            if (found->dates.empty() || found->dates.back() != input.date)
                found->dates.push_back(input.date);
        }
    }
    return period;
}

std::string PeriodDaysCsv(const Period& period)
{
    std::string csv = "\xEF\xBB\xBF";
    std::vector<std::string> header = {"Date", "Files", "Foods"};
    header.insert(header.end(), std::begin(kCsvAmountCaptions), std::end(kCsvAmountCaptions));
    AppendCsvRow(header, csv);
    for (const PeriodDay& day : period.days) {
        std::vector<std::string> fields = {DateText(day.date), std::to_string(day.files.size()),
                                           std::to_string(day.foods.size())};
        for (int n = 0; n < kShownNutrients; ++n)
            fields.push_back(std::to_string(day.totals[n]));
        AppendCsvRow(fields, csv);
    }
    std::vector<std::string> average = {texts::kAverageRow, "", std::to_string(period.AverageFoods())};
    std::vector<std::string> percent = {texts::kAveragePercentRow, "", ""};
    for (int n = 0; n < kShownNutrients; ++n) {
        average.push_back(std::to_string(period.Average(n)));
        const auto p = period.AveragePercent(n);
        percent.push_back(p ? std::to_string(*p) : std::string());
    }
    AppendCsvRow(average, csv);
    AppendCsvRow(percent, csv);
    return csv;
}

std::string PeriodFoodsCsv(const Period& period)
{
    std::string csv = "\xEF\xBB\xBF";
    std::vector<std::string> header = {"Date", "File", "Qty", "Measure", "Group", "Subgroup", "Description"};
    header.insert(header.end(), std::begin(kCsvAmountCaptions), std::end(kCsvAmountCaptions));
    AppendCsvRow(header, csv);
    for (const PeriodDay& day : period.days)
        for (const PeriodFood& food : day.foods) {
            const FoodListEntry& e = food.entry;
            std::vector<std::string> fields = {DateText(day.date), day.files[food.file]};
            for (const std::string* text : {&e.quantityText, &e.measure, &e.group, &e.subgroup, &e.description})
                fields.push_back(Latin1ToUtf8(*text));
            for (int n = 0; n < kShownNutrients; ++n)
                fields.push_back(std::to_string(e.amounts[n]));
            AppendCsvRow(fields, csv);
        }
    return csv;
}

}  // namespace pw
