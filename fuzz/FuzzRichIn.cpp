// Any command line after --rich-in (arguments separated by line feeds): a
// ranking or a message with its status, never a crash; and the gap of the
// same foods for any day's total and daily value taken from the first bytes,
// whose quantities the quantity box takes back exactly.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "core/RunTimeError.h"
#include "foodlist/Quantity.h"
#include "richin/RichIn.h"
#include "richin/RichInCommand.h"

namespace {

pw::FoodTable Foods()
{
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    pw::FoodTable table;
    const auto add = [&table](const char* group, const char* description, pw::NutrientValues values) {
        table.Append({group, "Sub\tgroup", description, "1 cup", values});
    };
    add("Fruits", "Apple", {100, 0, 25, 0, 0, 4, 11, 2, 0});
    add("Fruits", "Water", {0, 0, 0, 0, 0, 0, 7, 5, 0});
    add("Vegetables", "", {0, 0, 0, 0, 0, 0, 0, 0, 0});
    add("Vegetables", "Huge", {kMost, kMost, kMost, kMost, kMost, kMost, kMost, kMost, 0});
    add("X", "Odd", {-kMost, -1, 1, -5, 30000000, 1, -kMost, 0, 0});
    add("Snacks", "Cr\xE8me\r\n\x1B[2J\x9B", {1, 1, 1, 1, 1, 1, 1, 1, 1});
    return table;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const pw::FoodTable table = Foods();
    const std::string text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> arguments = {"--rich-in"};
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        arguments.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    const pw::RichInParse parse = pw::ParseRichInArguments(arguments);
    if (parse.command.has_value() != (parse.status == 0) || (parse.status != 0 && parse.message.empty()))
        std::abort();
    if (parse.command) {
        // One food a line of six fields, and nothing that steers a terminal.
        for (const char c : pw::RichInLines(table, *parse.command))
            if ((static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n') || c == 0x7F)
                std::abort();
    }

    std::int32_t numbers[2] = {0, 0};
    std::memcpy(numbers, data, std::min(size, sizeof numbers));
    for (int n = 0; n < pw::kShownNutrients; ++n) {
        try {
            const pw::GapOutcome gap =
                pw::FillGap(table, static_cast<pw::Nutrient>(n), pw::kAllGroups, numbers[0], numbers[1]);
            for (const pw::GapRow& row : gap.rows) {
                std::string quantity = row.quantityText;
                if (pw::ParseQuantity(quantity) != static_cast<float>(row.eighths) / pw::kGapSteps)
                    std::abort();
            }
        } catch (const pw::RunTimeError&) {
            // a quantity's calories beyond 32 bits, as the chooser would find
        }
    }
    return 0;
}
