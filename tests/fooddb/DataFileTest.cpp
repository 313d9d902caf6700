#include <gtest/gtest.h>

#include <random>

#include "Fixtures.h"
#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "fooddb/DataFile.h"
#include "fooddb/FoodGroups.h"

namespace pw {
namespace {

using test::DataFileBytes;
using test::Food;
using test::SampleTable;

FoodTable Load(const std::string& bytes)
{
    FoodTable table;
    EXPECT_EQ(LoadDatabaseHeader(bytes, table), HeaderResult::Ok);
    LoadDatabaseRecords(table);
    return table;
}

// A data file with the given version line and raw record lines, with a
// matching header.
std::string HandMadeFile(const std::string& version, const std::vector<std::string>& records)
{
    ShiftTables shifts = BuildShiftTables(SeedFromVersionLine(version));
    const std::string last = std::to_string(int(records.size()) - 1);
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
    FoodTable loaded = Load(bytes);

    ASSERT_EQ(loaded.Count(), original.Count());
    for (int i = 0; i < original.Count(); ++i)
        EXPECT_EQ(loaded.Record(i), original.Record(i)) << i;
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
    // Control characters never reach the table; every other Latin-1 code, at
    // every one of the 75 positions, scrambles to a byte that is neither a
    // field nor a line end and reads back unchanged, whatever the seed.
    for (std::int16_t seed : {6, 37, 47, 111, 150, 30000}) {
        const ShiftTables t = BuildShiftTables(seed);
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
    table.DatabaseDirty = true;
    const FoodTable loaded = Load(SaveDatabaseToBytes(table));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(loaded.Record(i), table.Record(i)) << names[i];
}

TEST(DataFile, AFileWrittenWithTheEarlierDigitStringOpensAndIsWrittenAnew)
{
    FoodTable old = SampleTable();
    old.Shifts = BuildShiftTables(old.ScrambleSeed, LegacyShiftDigits());
    old.DatabaseDirty = true;
    const std::string legacyBytes = SaveDatabaseToBytes(old);
    ASSERT_NE(legacyBytes, DataFileBytes(SampleTable()));

    FoodTable loaded = Load(legacyBytes);
    ASSERT_EQ(loaded.Count(), old.Count());
    for (int i = 0; i < old.Count(); ++i)
        EXPECT_EQ(loaded.Record(i), old.Record(i)) << i;
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
    EXPECT_EQ(Load(bytes).Record(3), table.Record(3));
}

TEST(DataFile, TextFieldsHoldAtMost75Characters)
{
    FoodTable table = SampleTable();
    FoodRecord food = table.Record(0);
    food.description = std::string(75, 'x');
    table.SetRecord(0, food);
    EXPECT_EQ(Load(DataFileBytes(table)).Description(0), std::string(75, 'x'));

    food.description = std::string(76, 'x');
    table.SetRecord(0, food);
    try {
        DataFileBytes(table);
        FAIL() << "a 76-character field was written";
    } catch (const RunTimeError& e) {
        EXPECT_EQ(e.Kind(), ErrorKind::SubscriptRange);
    }
}

TEST(DataFile, GroupLettersBothWays)
{
    FoodTable table = SampleTable();
    const ShiftTables& s = table.Shifts;
    const std::string records[] = {
        BuildRecordLine(Food("", "Carrots", "Raw", "1 medium", 1, 6, 0), "Q", s),
        BuildRecordLine(Food("", "Mystery", "Thing", "1", 1, 1, 1), "R", s),
        BuildRecordLine(Food("", "Lower", "Case", "1", 1, 1, 1), "q", s),
    };
    FoodTable loaded = Load(HandMadeFile(table.DataVersionLine, {records[0], records[1], records[2]}));
    EXPECT_EQ(loaded.Group(0), "Vegetables");
    EXPECT_EQ(loaded.Group(1), "R");
    EXPECT_EQ(loaded.Group(2), "q");

    // Written back, an unknown name takes the letter of the record before it;
    // the first record has none to take.
    loaded.DatabaseDirty = true;
    FoodTable again = Load(SaveDatabaseToBytes(loaded));
    EXPECT_EQ(again.Group(1), "Vegetables");
    EXPECT_EQ(again.Group(2), "Vegetables");

    FoodTable first;
    SetDataVersion(first, table.DataVersionLine);
    first.Append(Food("Nuts, Seeds, Lugumes, Beans", "Almonds", "Raw", "1 oz", 6, 6, 14));
    first.DatabaseDirty = true;
    const auto line = SplitLines(SaveDatabaseToBytes(first))[3];
    EXPECT_EQ(line[0], '\t');  // an empty letter field

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
    const FoodTable loaded = Load(DataFileBytes(table));
    EXPECT_EQ(loaded.Value(0, kSodium), 5);
    EXPECT_EQ(loaded.Value(0, kCalories), 165);
    EXPECT_EQ(loaded.Value(2, kCalories), 4 * (13 + 2) + 7 * 14);  // beer: alcohol counts

    EXPECT_THROW(ComputeCalories(0, 0, 300000000, 0), RunTimeError);
}

TEST(DataFile, ShiftTablesAndChecksums)
{
    const ShiftTables none = BuildShiftTables(0);
    for (int i = 0; i <= 75; ++i)
        EXPECT_EQ(none.scramble[i], 0);

    for (std::int16_t seed : {6, 37, 100, 150, 30000}) {
        const ShiftTables t = BuildShiftTables(seed);
        for (int i = 0; i <= 75; ++i) {
            EXPECT_NE(t.scramble[i], 0);
            EXPECT_LE(std::abs(t.scramble[i]), 5);
            EXPECT_EQ(t.unscramble[i], -t.scramble[i]);
        }
        const std::string text = "Peas / Green, frozen (1 cup) 0123456789";
        EXPECT_EQ(UnscrambleField(ScrambleField(text, t), t), text);
    }
    EXPECT_THROW(BuildShiftTables(1), RunTimeError);  // reads position 1 + 4 - 5 - 4 < 1

    EXPECT_EQ(CharSum(""), 0);
    EXPECT_EQ(CharSum("AB"), 65 + 66);
    EXPECT_EQ(CharSum(std::string(128, '\xff')), 32640);
    EXPECT_THROW(CharSum(std::string(129, '\xff')), RunTimeError);

    const ShiftTables t = BuildShiftTables(37);
    const std::string edge(1, t.scramble[1] > 0 ? '\xff' : '\0');
    EXPECT_THROW(ScrambleField(edge, t), RunTimeError);
    EXPECT_EQ(SeedFromVersionLine("v21.47 USDA"), 47);
    EXPECT_EQ(SeedFromVersionLine("no point 9"), 0);
    EXPECT_EQ(SeedFromVersionLine("12"), 12);
}

TEST(DataFile, BrokenFilesAreRunTimeErrors)
{
    const std::string version = test::kTestVersionLine;
    FoodTable table = SampleTable();
    const std::string good = BuildRecordLine(table.Record(0), "A", table.Shifts);
    const std::string two = HandMadeFile(version, {good, good});

    const struct {
        const char* what;
        std::string bytes;
        ErrorKind kind;
    } cases[] = {
        {"no header", "", ErrorKind::InputPastEnd},
        {"two lines", version + "\r\n1\r\n", ErrorKind::InputPastEnd},
        {"records missing", two.substr(0, two.size() - good.size() - 2), ErrorKind::InputPastEnd},
        {"no tabs", HandMadeFile(version, {"abc"}), ErrorKind::InvalidCall},
        {"field too long", HandMadeFile(version, {std::string(80, 'x') + "\t"}), ErrorKind::SubscriptRange},
    };
    for (const auto& c : cases) {
        try {
            FoodTable t;
            if (LoadDatabaseHeader(c.bytes, t) == HeaderResult::Ok)
                LoadDatabaseRecords(t);
            ADD_FAILURE() << c.what << ": no error";
        } catch (const RunTimeError& e) {
            EXPECT_EQ(e.Kind(), c.kind) << c.what;
        }
    }

    // 4,001 records in the header.
    ShiftTables s = BuildShiftTables(37);
    std::string big = version + "\r\n" + ScrambleField("4000", s) + "\r\n" +
                      ScrambleField(std::to_string(CharSum(version) + CharSum("4000")), s) + "\r\n";
    FoodTable t;
    EXPECT_THROW(LoadDatabaseHeader(big, t), RunTimeError);
}

TEST(DataFile, AnyBytesLoadOrRaiseARunTimeError)
{
    const std::string good = DataFileBytes(SampleTable());
    std::mt19937 random(7);
    int loaded = 0;
    for (int round = 0; round < 1000; ++round) {
        std::string bytes = good;
        const int flips = 1 + int(random() % 8);
        for (int f = 0; f < flips; ++f)
            bytes[random() % bytes.size()] = static_cast<char>(random() % 256);
        if (round % 10 == 0)
            bytes.resize(random() % bytes.size());
        FoodTable table;
        try {
            if (LoadDatabaseHeader(bytes, table) == HeaderResult::Ok) {
                LoadDatabaseRecords(table);
                ++loaded;
            }
        } catch (const RunTimeError&) {
        }
    }
    // Damage inside record lines mostly still loads; the header catches the rest.
    EXPECT_GT(loaded, 0);
}

}  // namespace
}  // namespace pw
