// Any bytes as a few list files of a period: the input is cut at form feeds
// into files, each a name line (its date comes from it) and the file's
// bytes. The period is built, its report, text and both CSVs made; nothing
// may throw, and the days come in date order with sums that add up.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "days/Period.h"
#include "days/PeriodReport.h"

#include "FuzzFoods.h"

namespace {

const pw::FoodTable& Table() { return pw::fuzz::SeedFoods(); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    std::vector<pw::DayFileInput> files;
    for (std::size_t start = 0; start <= input.size() && files.size() < 8;) {
        std::size_t end = input.find('\f', start);
        if (end == std::string_view::npos)
            end = input.size();
        const std::string_view piece = input.substr(start, end - start);
        const std::size_t line = piece.find('\n');
        pw::DayFileInput file;
        file.name = std::string(piece.substr(0, line == std::string_view::npos ? piece.size() : line));
        file.path = file.name;
        file.bytes = line == std::string_view::npos ? std::string() : std::string(piece.substr(line + 1));
        if (const auto date = pw::DateFromName(file.name)) {
            file.date = *date;
        } else {
            file.dateFromModified = true;
        }
        files.push_back(std::move(file));
        start = end + 1;
    }
    const std::size_t given = files.size();

    const pw::Period period = pw::BuildPeriod(std::move(files), Table(), 2026);
    std::size_t opened = 0;
    for (std::size_t d = 0; d < period.days.size(); ++d) {
        if (d > 0 && period.days[d - 1].date >= period.days[d].date)
            std::abort();
        opened += period.days[d].files.size();
        for (int n = 0; n < pw::kShownNutrients; ++n)
            (void)period.days[d].Percent(n);
    }
    if (opened + period.skipped.size() != given)
        std::abort();
    for (int n = 0; n < pw::kShownNutrients; ++n) {
        std::int64_t sum = 0;
        for (const pw::TopFood& food : period.TopFoods(n, 1000))
            sum += food.amount;
        if (sum > period.Total(n) && period.Total(n) >= 0)
            std::abort();
        (void)pw::BuildSeries(period, n);
    }
    (void)pw::PeriodDaysCsv(period);
    (void)pw::PeriodFoodsCsv(period);
    (void)pw::PeriodText(period, "2026-11-24");
    return 0;
}
