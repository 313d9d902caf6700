#include "fooddb/DataFile.h"

#include "core/LineFile.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "fooddb/FoodGroups.h"

namespace pw {

namespace {

constexpr char kTab = '\t';

std::string ShiftField(std::string_view text, const std::array<std::int16_t, 76>& table)
{
    if (text.size() > static_cast<std::size_t>(kMaxTextField))
        throw RunTimeError(ErrorKind::SubscriptRange, "field longer than 75 characters");
    std::string out(text);
    for (std::size_t p = 1; p <= text.size(); ++p) {
        int code = static_cast<unsigned char>(text[p - 1]) + table[p];
        if (code < 0 || code > 255)
            throw RunTimeError(ErrorKind::InvalidCall, "character code " + std::to_string(code));
        out[p - 1] = static_cast<char>(code);
    }
    return out;
}

// The text of a number in the record line: its signed text without the first
// character, so the sign of a negative number is lost.
std::string NumberField(std::int32_t value) { return StrNumber(value).substr(1); }

// Cuts the next TAB-ended field off line and returns it unscrambled.
std::string TakeField(std::string_view& line, const ShiftTables& tables)
{
    auto tab = line.find(kTab);
    if (tab == std::string_view::npos)
        throw RunTimeError(ErrorKind::InvalidCall, "record line with too few fields");
    std::string field = UnscrambleField(line.substr(0, tab), tables);
    line.remove_prefix(tab + 1);
    return field;
}

// Whether the header's checksum matches with these shifts; sets lastIndex.
bool HeaderChecksWith(const std::vector<std::string>& lines, const ShiftTables& shifts, std::int16_t& lastIndex)
{
    const std::string lastIndexText = UnscrambleField(lines[1], shifts);
    const std::int16_t sum = AddInt16(CharSum(lines[0]), CharSum(lastIndexText));
    lastIndex = ToInt16(Val(lastIndexText));
    const std::int16_t checksum = ToInt16(Val(UnscrambleField(lines[2], shifts)));
    return checksum == sum;
}

// The same, where a field that today's shifts turn into nonsense (a character
// code or a number out of range) counts as a header that does not check.
bool HeaderChecks(const std::vector<std::string>& lines, const ShiftTables& shifts, std::int16_t& lastIndex)
{
    try {
        return HeaderChecksWith(lines, shifts, lastIndex);
    } catch (const RunTimeError&) {
        return false;
    }
}

}  // namespace

std::string ShiftDigits()
{
    // A 5-step cycle of shifts for most seeds, the delivered seed among them.
    static const std::string digits = [] {
        std::string d;
        for (int i = 0; i < 29; ++i)
            d += "12340";
        return d;
    }();
    return digits;
}

std::string LegacyShiftDigits()
{
    // Kept in pieces and joined at run time; the second piece is used twice.
    static const char* const pieces[] = {
        "824591510225522956559136", "171521335058603392249955", "669764803937876771795161",
        "754124340965745078269982", "888737151643940093297991",
    };
    static const std::string digits = std::string(pieces[0]) + pieces[1] + pieces[2] + pieces[1] + pieces[3] + pieces[4];
    return digits;
}

ShiftTables BuildShiftTables(std::int16_t seed, const std::string& digits)
{
    ShiftTables tables;
    if (seed == 0)
        return tables;
    int prev = 0;
    for (int i = 0; i <= 75; ++i) {
        const int position = seed + prev;
        if (position < 1)
            throw RunTimeError(ErrorKind::InvalidCall, "scramble seed " + std::to_string(seed));
        int d = 0;
        if (static_cast<std::size_t>(position) <= digits.size())
            d = digits[position - 1] - '0';
        const int shift = d < 5 ? d - 5 : d - 4;
        tables.scramble[i] = static_cast<std::int16_t>(shift);
        tables.unscramble[i] = static_cast<std::int16_t>(-shift);
        prev = shift;
    }
    return tables;
}

std::string ScrambleField(std::string_view text, const ShiftTables& tables) { return ShiftField(text, tables.scramble); }

std::string UnscrambleField(std::string_view text, const ShiftTables& tables)
{
    return ShiftField(text, tables.unscramble);
}

std::int16_t CharSum(std::string_view text)
{
    std::int16_t sum = 0;
    for (char c : text)
        sum = AddInt16(sum, static_cast<std::int16_t>(static_cast<unsigned char>(c)));
    return sum;
}

std::int16_t SeedFromVersionLine(std::string_view versionLine)
{
    auto dot = versionLine.find('.');
    std::string_view after = dot == std::string_view::npos ? versionLine : versionLine.substr(dot + 1);
    return ToInt16(Val(after));
}

void SetDataVersion(FoodTable& table, const std::string& versionLine)
{
    table.DataVersionLine = versionLine;
    table.ScrambleSeed = SeedFromVersionLine(versionLine);
    table.Shifts = BuildShiftTables(table.ScrambleSeed);
}

HeaderResult LoadDatabaseHeader(std::string_view bytes, FoodTable& table)
{
    const std::vector<std::string> lines = SplitLines(bytes);
    if (lines.size() < 3)
        throw RunTimeError(ErrorKind::InputPastEnd, "data file header");

    // Today's shifts first; a header that does not check with them may have
    // been written with the earlier digit string.
    const std::int16_t seed = SeedFromVersionLine(lines[0]);
    bool legacy = false;
    std::int16_t lastIndex = 0;
    if (!HeaderChecks(lines, BuildShiftTables(seed), lastIndex)) {
        if (!HeaderChecksWith(lines, BuildShiftTables(seed, LegacyShiftDigits()), lastIndex))
            return HeaderResult::ChecksumMismatch;
        legacy = true;
    }

    if (lastIndex >= kFoodCapacity)
        throw RunTimeError(ErrorKind::SubscriptRange, "more than 4,000 records");
    const int count = lastIndex + 1;
    if (lines.size() < static_cast<std::size_t>(3 + std::max(count, 0)))
        throw RunTimeError(ErrorKind::InputPastEnd, "data file records");

    table.Clear();
    SetDataVersion(table, lines[0]);
    table.LegacyScramble = legacy;
    if (legacy)
        table.Shifts = BuildShiftTables(seed, LegacyShiftDigits());
    auto& raw = table.RawRecordLines();
    for (int i = 0; i < count; ++i)
        raw[i] = lines[3 + i];
    table.SetLastIndex(std::max<int>(lastIndex, -1));
    return HeaderResult::Ok;
}

void LoadDatabaseRecords(FoodTable& table, const RecordProgress& progress)
{
    const auto& raw = table.RawRecordLines();
    const int last = table.LastIndex();
    for (int i = 0; i <= last; ++i) {
        std::string_view line = raw[i];
        FoodRecord record;
        record.group = GroupNameFromLetter(TakeField(line, table.Shifts));
        record.subgroup = TakeField(line, table.Shifts);
        record.description = TakeField(line, table.Shifts);
        record.measure = TakeField(line, table.Shifts);
        for (int n = kProtein; n <= kSodium; ++n)
            record.values[n] = ToInt32(Val(TakeField(line, table.Shifts)));
        record.values[kAlcohol] = ToInt32(Val(UnscrambleField(line, table.Shifts)));
        record.values[kCalories] = ComputeCalories(record.values[kProtein], record.values[kCarbs],
                                                   record.values[kFats], record.values[kAlcohol]);
        table.SetRecord(i, record);
        if (progress)
            progress(i);
    }
    if (table.LegacyScramble) {
        // Read with the old shifts: written back with today's at the exit.
        table.Shifts = BuildShiftTables(table.ScrambleSeed);
        table.LegacyScramble = false;
        table.DatabaseDirty = true;
    }
}

std::string BuildRecordLine(const FoodRecord& record, std::string_view letter, const ShiftTables& tables)
{
    std::string line;
    auto add = [&](std::string_view field) {
        line += ScrambleField(field, tables);
        line += kTab;
    };
    add(letter);
    add(record.subgroup);
    add(record.description);
    add(record.measure);
    for (int n = kProtein; n <= kAlcohol; ++n)
        add(NumberField(record.values[n]));
    return line;
}

std::string SaveDatabaseToBytes(FoodTable& table, const RecordProgress& progress)
{
    const int last = table.LastIndex();
    auto& raw = table.RawRecordLines();
    if (table.DatabaseDirty) {
        std::string letter;  // an unknown group name takes the letter written before it
        for (int i = 0; i <= last; ++i) {
            if (auto known = GroupLetterFromName(table.Group(i)))
                letter = std::string(1, *known);
            raw[i] = BuildRecordLine(table.Record(i), letter, table.Shifts);
            if (progress)
                progress(i);
        }
    }
    table.DatabaseDirty = false;

    const std::string lastIndexText = std::to_string(last);
    const std::int16_t checksum = AddInt16(CharSum(table.DataVersionLine), CharSum(lastIndexText));
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(last + 4) * 96);
    bytes += table.DataVersionLine;
    bytes += kCrLf;
    bytes += ScrambleField(lastIndexText, table.Shifts);
    bytes += kCrLf;
    bytes += ScrambleField(std::to_string(checksum), table.Shifts);
    bytes += kCrLf;
    for (int i = 0; i <= last; ++i) {
        bytes += raw[i];
        bytes += kCrLf;
    }
    return bytes;
}

void SaveDatabase(FoodTable& table, const std::string& path, const RecordProgress& progress)
{
    WriteFileAtomic(path, SaveDatabaseToBytes(table, progress));
}

}  // namespace pw
