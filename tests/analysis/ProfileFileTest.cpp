// The profile file (.pwp) and the list file (.pwl) that begins with the
// same lines.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "TempFolder.h"
#include "analysis/AnalysisFile.h"
#include "analysis/ProfileFile.h"
#include "core/LineFile.h"

namespace pw {
namespace {

ProfileInputs Ann(const std::function<void(ProfileInputs&)>& change = {})
{
    ProfileInputs in{"Ann", "62", "64", "130", kMeasurementEnglish, kSexFemale, kLifestyleModerate};
    if (change)
        change(in);
    return in;
}

// What loading the file's bytes into a profile holding before gives.
ProfileInputs Loaded(const std::string& bytes, ProfileInputs before = {})
{
    const ProfileFileContent content = ParseProfileBytes(bytes);
    EXPECT_TRUE(content.valid);
    ApplyProfileSettings(content.settings, before);
    return before;
}

TEST(ProfileFile, WritesTheSevenLinesWithTextsAsTypedAndTheYearAsANumber)
{
    const struct {
        const char* what;
        ProfileInputs in;
        const char* bytes;
    } cases[] = {
        {"as typed", Ann(),
         "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"},
        {"leading zero of the year dropped", Ann([](ProfileInputs& p) { p.yob = "05"; }),
         "NAME:Ann\r\nYOB:5\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"},
        {"empty year written as 0", Ann([](ProfileInputs& p) { p.yob = ""; }),
         "NAME:Ann\r\nYOB:0\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"},
        {"year with a point", Ann([](ProfileInputs& p) { p.yob = "5."; }),
         "NAME:Ann\r\nYOB:5\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"},
        {"metric male active, texts untouched",
         {" Zo\xEB: x ", "62", "162.5", " 58 ", kMeasurementMetric, kSexMale, kLifestyleActive},
         "NAME: Zo\xEB: x \r\nYOB:62\r\nMEASUREMENT: 1 \r\nHEIGHT:162.5\r\nWEIGHT: 58 \r\nSEX: 1 \r\nLIFESTYLE: 3 \r\n"},
        {"arrays with no selection", Ann([](ProfileInputs& p) { p.measurement = p.sex = p.lifestyle = kNoOption; }),
         "NAME:Ann\r\nYOB:62\r\nMEASUREMENT:-1 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX:-1 \r\nLIFESTYLE:-1 \r\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ProfileFileBytes(c.in), c.bytes) << c.what;
}

TEST(ProfileFile, RoundTripsWhatTheFormatKeeps)
{
    const ProfileInputs kept[] = {
        Ann(),
        Ann([](ProfileInputs& p) { p.name = "Ann: the elder"; }),
        Ann([](ProfileInputs& p) { p.name = "Ren\xE9\tTab"; }),
        Ann([](ProfileInputs& p) { p.name = p.height = p.weight = ""; }),
        Ann([](ProfileInputs& p) { p.measurement = p.sex = p.lifestyle = kNoOption; }),
        Ann([](ProfileInputs& p) { p.measurement = kMeasurementMetric; p.sex = kSexMale; p.lifestyle = 1; }),
    };
    for (const ProfileInputs& in : kept) {
        // Read over a profile that differs in every field.
        const ProfileInputs before{"someone else", "11", "1", "2", 1 - (in.measurement == 1), kSexMale,
                                   kLifestyleActive};
        EXPECT_EQ(Loaded(ProfileFileBytes(in), before), in) << in.name;
    }

    // A year of 1900 to 1909 does not survive: it comes back empty.
    EXPECT_EQ(Loaded(ProfileFileBytes(Ann([](ProfileInputs& p) { p.yob = "07"; }))).yob, "");
}

TEST(ProfileFile, ParsesLinesByKeyWhateverTheirCase)
{
    using F = ProfileField;
    const std::pair<const char*, ProfileSetting> settings[] = {
        {"NAME:Ann", {F::Name, "Ann", kNoOption}}, {"name:  Ann Lee  ", {F::Name, "Ann Lee", kNoOption}},
        {"Name:a:b:c", {F::Name, "a:b:c", kNoOption}}, {"NAME:", {F::Name, "", kNoOption}},
        {"yob:62", {F::Yob, "62", kNoOption}}, {"YOB: 62 ", {F::Yob, "62", kNoOption}},
        {"YOB:5", {F::Yob, "", kNoOption}}, {"YOB:1962", {F::Yob, "", kNoOption}}, {"YOB:", {F::Yob, "", kNoOption}},
        {"height:64", {F::Height, "64", kNoOption}}, {"WEIGHT: 130.5 ", {F::Weight, "130.5", kNoOption}},
        {"WEIGHT:\t130", {F::Weight, "\t130", kNoOption}},
        {"SEX:1", {F::Sex, "", kSexMale}}, {"sex: 1 ", {F::Sex, "", kSexMale}}, {"SEX: 0 ", {F::Sex, "", kSexFemale}},
        {"SEX:2", {F::Sex, "", kNoOption}}, {"SEX:-1 ", {F::Sex, "", kNoOption}}, {"SEX:0.5", {F::Sex, "", kNoOption}},
        {"SEX:1.0", {F::Sex, "", kSexMale}}, {"SEX:male", {F::Sex, "", kSexFemale}},  // no number reads as 0
        {"Measurement: 1 ", {F::Measurement, "", kMeasurementMetric}},
        {"MEASUREMENT:2", {F::Measurement, "", kNoOption}},
        {"LIFESTYLE: 3 ", {F::Lifestyle, "", kLifestyleActive}}, {"LIFESTYLE:4", {F::Lifestyle, "", kNoOption}},
        {"LIFESTYLE:3e0", {F::Lifestyle, "", kLifestyleActive}},
    };
    for (const auto& [line, setting] : settings) {
        const ProfileLine parsed = ParseProfileLine(line);
        EXPECT_EQ(parsed.kind, ProfileLineKind::Setting) << line;
        EXPECT_EQ(parsed.setting, setting) << line;
    }
    const char* const skipped[] = {"no colon here", "", "COLOR:red", " NAME:Ann", "NAME :Ann", "COLOR:1e999"};
    for (const char* line : skipped)
        EXPECT_EQ(ParseProfileLine(line).kind, ProfileLineKind::Skipped) << line;
    const std::string bad[] = {"NAME:A\x01nn", "no colon but \x1A", "WEIGHT:1\x7F", "SEX:1e999",
                               std::string("NAME:A\0nn", 9)};
    for (const std::string& line : bad)
        EXPECT_EQ(ParseProfileLine(line).kind, ProfileLineKind::Bad) << line;
}

TEST(ProfileFile, LaterLinesOverrideAndOrderDoesNotMatter)
{
    EXPECT_EQ(Loaded("LIFESTYLE: 1 \r\nweight:140\r\nSEX: 1 \r\nNAME:First\r\nCOMMENT:ignored\r\nNAME:Second\r\n"
                     "MEASUREMENT: 1 \r\nHEIGHT:170\r\nYOB:70\r\nSEX:2\n"),
              (ProfileInputs{"Second", "70", "170", "140", kMeasurementMetric, kNoOption, kLifestyleLight}));

    // Fields without a line keep what they held.
    EXPECT_EQ(Loaded("NAME:Zed\r\n", Ann()), Ann([](ProfileInputs& p) { p.name = "Zed"; }));
}

TEST(ProfileFile, KeepsTheLinesBeforeABadOneAndMissingFilesAreInvalid)
{
    const ProfileFileContent content =
        ParseProfileBytes(std::string("NAME:Ann\r\nHEIGHT:64\r\n\x7F\x45LF\x02\r\nWEIGHT:130\r\n"));
    EXPECT_FALSE(content.valid);
    const std::vector<ProfileSetting> expected = {{ProfileField::Name, "Ann", kNoOption},
                                                  {ProfileField::Height, "64", kNoOption}};
    EXPECT_EQ(content.settings, expected);

    test::TempFolder folder;
    EXPECT_FALSE(ReadProfileFile(folder.File("none.pwp")).valid);
    EXPECT_FALSE(ReadProfileFile(folder.Path()).valid);  // a folder is no file
    folder.Write("empty.pwp", "");
    const ProfileFileContent empty = ReadProfileFile(folder.File("empty.pwp"));
    EXPECT_TRUE(empty.valid && empty.settings.empty());
}

TEST(AnalysisFile, WritesProfileAndItemLinesByteForByte)
{
    FoodList list;
    list.Append({123, "2-1/2", "Dairy and Eggs", "Butter", "Salted", "1 tbsp", {}, {}});
    list.Append({4, " 1", "Dairy and Eggs", "Butter", "Salted", "1 pat", {}, {}});
    test::TempFolder folder;
    WriteAnalysisFile(folder.File("day.pwl"), Ann([](ProfileInputs& p) { p.yob = "5"; }), list);
    EXPECT_EQ(folder.Read("day.pwl"),
              "NAME:Ann\r\nYOB:\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"
              "ITEM: 123 \t2-1/2\tDairy and Eggs\tButter\tSalted\t1 tbsp\r\n"
              "ITEM: 4 \t 1\tDairy and Eggs\tButter\tSalted\t1 pat\r\n");
}

TEST(AnalysisFile, AFaultyLineEndsTheFileKeepingWhatCameBefore)
{
    const std::string head = "NAME:Ann\r\nitem: 7 \t3/4\tA\tB\tC\tD\tignored\r\n";
    const struct {
        const char* line;
        bool valid;
    } cases[] = {
        {"HEIGHT:64", true},
        {"ITEM:2\t1", false},                  // too few fields
        {"ITEM:99999\t1\tA\tB\tC\tD", false},  // index beyond 16 bits
        {"ITEM:2\t1 1/2\tA\tB\tC\tD", false},  // a quantity the chooser refuses
        {"ITEM:2\t100\tA\tB\tC\tD", false},    // above the largest quantity
        {"ITEM:2\t1\tA\x01\tB\tC\tD", false},  // a control byte
    };
    for (const auto& c : cases) {
        const AnalysisFileContent content = ParseAnalysisBytes(head + c.line + "\r\nWEIGHT:130\r\n");
        EXPECT_EQ(content.valid, c.valid) << c.line;
        EXPECT_EQ(content.settings.size(), c.valid ? 3u : 1u) << c.line;
        ASSERT_EQ(content.items.size(), 1u) << c.line;
        EXPECT_EQ(content.items[0], (AnalysisItem{7, "3/4", "A", "B", "C", "D"}));
    }
    EXPECT_FALSE(ReadAnalysisFile(test::TempFolder().File("missing.pwl")).valid);
}

}  // namespace
}  // namespace pw
