#include <gtest/gtest.h>

#include <functional>

#include "Fixtures.h"
#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "fooddb/DataFile.h"
#include "fooddb/FoodGroups.h"

namespace pw {
namespace {

using test::DataFileBytes;
using test::ErrorKindOf;
using test::Food;
using test::LoadTable;
using test::Records;
using test::SampleTable;

// A data file with the given version line and raw record lines, with a
// header that checks and names lastIndex (by default the last line's).
std::string HandMadeFile(const std::string& version, const std::vector<std::string>& records, int lastIndex = -2)
{
    ShiftTables shifts = BuildShiftTables(SeedFromVersionLine(version));
    const std::string last = std::to_string(lastIndex == -2 ? int(records.size()) - 1 : lastIndex);
    std::string bytes = version + "\r\n" + ScrambleField(last, shifts) + "\r\n" +
                        ScrambleField(std::to_string(CharSum(version) + CharSum(last)), shifts) + "\r\n";
    for (const auto& r : records)
        bytes += r + "\r\n";
    return bytes;
}

TEST(DataFile, RoundTripIsByteExactAndKeepsEveryRecord)
{
    const FoodTable original = SampleTable();
    const std::string bytes = DataFileBytes(original);
    FoodTable loaded = LoadTable(bytes);
    EXPECT_EQ(Records(loaded), Records(original));
    EXPECT_EQ(loaded.DataVersionLine, test::kTestVersionLine);
    EXPECT_EQ(loaded.ScrambleSeed, 37);

    // Unchanged: written from the lines as read. Changed: rebuilt, and the
    // same records give the same bytes.
    EXPECT_EQ(SaveDatabaseToBytes(loaded), bytes);
    loaded.DatabaseDirty = true;
    EXPECT_EQ(SaveDatabaseToBytes(loaded), bytes);
    EXPECT_FALSE(loaded.DatabaseDirty);

    // The scrambling hides the texts.
    EXPECT_EQ(bytes.find("Butter"), std::string::npos);
}

TEST(DataFile, EveryPrintableLatin1CharacterIsStoredAtEveryPosition)
{
    // Seed 0 shifts nothing; any other shifts every position by 1 to 5 either
    // way. Control characters never reach the table; every other Latin-1
    // code, at every one of the 75 positions, scrambles to a byte that is
    // neither a field nor a line end and reads back unchanged.
    EXPECT_EQ(BuildShiftTables(0).scramble, ShiftTables{}.scramble);
    for (std::int16_t seed : {6, 37, 47, 100, 111, 150, 30000}) {
        const ShiftTables t = BuildShiftTables(seed);
        for (int i = 0; i <= 75; ++i) {
            EXPECT_NE(t.scramble[i], 0);
            EXPECT_LE(std::abs(t.scramble[i]), 5);
            EXPECT_EQ(t.unscramble[i], -t.scramble[i]);
        }
        for (int code = 32; code <= 255; ++code) {
            if (code >= 127 && code < 160)
                continue;
            const std::string text(75, static_cast<char>(code));
            const std::string scrambled = ScrambleField(text, t);
            EXPECT_EQ(scrambled.find_first_of("\t\r\n"), std::string::npos) << seed << " " << code;
            EXPECT_EQ(UnscrambleField(scrambled, t), text) << seed << " " << code;
        }
    }
    // Through the whole file, as a custom food added in the dialog is saved.
    FoodTable table = SampleTable();
    const char* names[] = {"M\xfcsli", "Cr\xe8me br\xfbl\xe9" "e", "Pi\xf1\x61 colada", "Jalape\xf1o", "\xff"};
    for (int i = 0; i < 5; ++i) {
        FoodRecord record = table.Record(i);
        record.description = names[i];
        record.measure = std::string(74, 'x') + "\xfd";
        table.SetRecord(i, record);
    }
    EXPECT_EQ(Records(LoadTable(DataFileBytes(table))), Records(table));
}

TEST(DataFile, AFileWrittenWithTheEarlierDigitStringOpensAndIsWrittenAnew)
{
    FoodTable old = SampleTable();
    old.Shifts = BuildShiftTables(old.ScrambleSeed, LegacyShiftDigits());
    const std::string legacyBytes = DataFileBytes(old);
    ASSERT_NE(legacyBytes, DataFileBytes(SampleTable()));

    FoodTable loaded = LoadTable(legacyBytes);
    EXPECT_EQ(Records(loaded), Records(old));
    // Saved at the exit with today's shifts: the bytes a new file has.
    EXPECT_TRUE(loaded.DatabaseDirty);
    EXPECT_EQ(SaveDatabaseToBytes(loaded), DataFileBytes(SampleTable()));
}

TEST(DataFile, AnEditedHeaderIsRefusedAndLeavesTheTableAlone)
{
    const auto lines = SplitLines(DataFileBytes(SampleTable()));
    auto checksum = lines, version = lines;
    checksum[2][0] = static_cast<char>(checksum[2][0] + 1);
    version[0] = "v1.37 Test dat4";
    for (const auto& edited : {checksum, version}) {
        FoodTable table;
        table.Append(Food("Fruits", "Kept", "As it was", "1", 1, 1, 1));
        EXPECT_EQ(LoadDatabaseHeader(LinesToBytes(edited), table), HeaderResult::ChecksumMismatch);
        EXPECT_EQ(table.Count(), 1);
    }
}

TEST(DataFile, SeedZeroStoresPlainText)
{
    FoodTable table = SampleTable("Plain data, seed .0");
    EXPECT_EQ(table.ScrambleSeed, 0);
    const std::string bytes = DataFileBytes(table);
    const auto lines = SplitLines(bytes);
    EXPECT_EQ(lines[1], "11");
    EXPECT_EQ(lines[3 + 3], "D\tButter\tSalted\t1 pat\t0\t0\t4\t11\t0\t1\t29\t0\t");
    EXPECT_EQ(LoadTable(bytes).Record(3), table.Record(3));
}

TEST(DataFile, GroupLettersBothWays)
{
    FoodTable table = SampleTable();
    const ShiftTables& s = table.Shifts;
    FoodTable loaded = LoadTable(HandMadeFile(table.DataVersionLine,
                                              {BuildRecordLine(Food("", "Carrots", "Raw", "1 medium", 1, 6, 0), "Q", s),
                                               BuildRecordLine(Food("", "Mystery", "Thing", "1", 1, 1, 1), "R", s),
                                               BuildRecordLine(Food("", "Lower", "Case", "1", 1, 1, 1), "q", s)}));
    EXPECT_EQ(loaded.Group(0) + "|" + loaded.Group(1) + "|" + loaded.Group(2), "Vegetables|R|q");

    // Written back, an unknown name takes the letter of the record before it;
    // the first record has none to take.
    loaded.DatabaseDirty = true;
    FoodTable again = LoadTable(SaveDatabaseToBytes(loaded));
    EXPECT_EQ(again.Group(1) + "|" + again.Group(2), "Vegetables|Vegetables");
    FoodTable first;
    SetDataVersion(first, table.DataVersionLine);
    first.Append(Food("Nuts, Seeds, Lugumes, Beans", "Almonds", "Raw", "1 oz", 6, 6, 14));
    EXPECT_EQ(SplitLines(DataFileBytes(first))[3][0], '\t');  // an empty letter field

    for (int i = 0; i < kGroupCount; ++i) {
        EXPECT_EQ(GroupNameFromLetter(std::string(1, GroupLetter(i))), kGroupNames[i]);
        EXPECT_EQ(GroupLetterFromName(kGroupNames[i]), GroupLetter(i));
    }
    EXPECT_FALSE(GroupLetterFromName("favorites").has_value());
}

TEST(DataFile, NumbersLoseTheirSignAndCaloriesAreComputed)
{
    FoodTable table = SampleTable();
    FoodRecord food = Food("Fruits", "Odd", "Negative", "1", 10, 20, 5);
    food.values[kSodium] = -5;
    table.SetRecord(0, food);
    const FoodTable loaded = LoadTable(DataFileBytes(table));
    EXPECT_EQ(loaded.Value(0, kSodium), 5);
    EXPECT_EQ(loaded.Value(0, kCalories), 165);
    EXPECT_EQ(loaded.Value(2, kCalories), 4 * (13 + 2) + 7 * 14);  // beer: alcohol counts
}

TEST(DataFile, ChecksumsAndSeeds)
{
    EXPECT_EQ(CharSum(""), 0);
    EXPECT_EQ(CharSum("AB"), 65 + 66);
    EXPECT_EQ(CharSum(std::string(128, '\xff')), 32640);
    EXPECT_EQ(SeedFromVersionLine("v21.47 USDA"), 47);
    EXPECT_EQ(SeedFromVersionLine("no point 9"), 0);
    EXPECT_EQ(SeedFromVersionLine("12"), 12);
}

TEST(DataFile, BrokenFilesAndValuesAreRunTimeErrors)
{
    const std::string version = test::kTestVersionLine;
    FoodTable table = SampleTable();
    const std::string good = BuildRecordLine(table.Record(0), "A", table.Shifts);
    FoodRecord longText = table.Record(0);
    longText.description = std::string(76, 'x');  // 75 is the most a field holds
    const ShiftTables& t = table.Shifts;
    const std::string edge(1, t.scramble[1] > 0 ? '\xff' : '\0');  // shifted past a byte

    const struct {
        const char* what;
        std::function<void()> call;
        ErrorKind kind;
    } cases[] = {
        {"no header", [] { LoadTable(""); }, ErrorKind::InputPastEnd},
        {"two lines", [&] { LoadTable(version + "\r\n1\r\n"); }, ErrorKind::InputPastEnd},
        {"records missing", [&] { LoadTable(HandMadeFile(version, {good}, 1)); }, ErrorKind::InputPastEnd},
        {"4,001 records", [&] { LoadTable(HandMadeFile(version, {}, 4000)); }, ErrorKind::SubscriptRange},
        {"no tabs", [&] { LoadTable(HandMadeFile(version, {"abc"})); }, ErrorKind::InvalidCall},
        {"field too long", [&] { LoadTable(HandMadeFile(version, {std::string(80, 'x') + "\t"})); },
         ErrorKind::SubscriptRange},
        {"a 76-character field written",
         [&] { table.SetRecord(0, longText), DataFileBytes(table); }, ErrorKind::SubscriptRange},
        {"calories beyond 32 bits", [] { ComputeCalories(0, 0, 300000000, 0); }, ErrorKind::Overflow},
        {"seed 1 reads position 1 + 4 - 5 - 4 < 1", [] { BuildShiftTables(1); }, ErrorKind::InvalidCall},
        {"checksum beyond 16 bits", [] { CharSum(std::string(129, '\xff')); }, ErrorKind::Overflow},
        {"a shift past a byte", [&] { ScrambleField(edge, t); }, ErrorKind::InvalidCall},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ErrorKindOf(c.call), c.kind) << c.what;

    // A field of 75 characters is stored whole.
    longText.description.pop_back();
    table.SetRecord(0, longText);
    EXPECT_EQ(LoadTable(DataFileBytes(table)).Description(0), std::string(75, 'x'));
}

}  // namespace
}  // namespace pw
