#include <gtest/gtest.h>

#include <random>
#include <string>

#include "TempFolder.h"
#include "analysis/ProfileFile.h"
#include "core/LineFile.h"

namespace pw {
namespace {

ProfileInputs Ann()
{
    ProfileInputs in;
    in.name = "Ann";
    in.yob = "62";
    in.measurement = kMeasurementEnglish;
    in.height = "64";
    in.weight = "130";
    in.sex = kSexFemale;
    in.lifestyle = kLifestyleModerate;
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

TEST(ProfileFile, WritesTheSevenLinesByteForByteAndReadsThemBack)
{
    test::TempFolder folder;
    const std::string path = folder.File("ann.pwp");
    WriteProfileFile(path, Ann());
    EXPECT_EQ(ReadWholeFile(path),
              "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n");

    const ProfileFileContent content = ReadProfileFile(path);
    ASSERT_TRUE(content.valid);
    ProfileInputs read;
    read.measurement = read.sex = read.lifestyle = kNoOption;
    ApplyProfileSettings(content.settings, read);
    EXPECT_EQ(read, Ann());

    // Writing again replaces the file.
    ProfileInputs bob = Ann();
    bob.name = "Bob";
    WriteProfileFile(path, bob);
    EXPECT_EQ(ReadWholeFile(path).substr(0, 10), "NAME:Bob\r\n");
}

TEST(ProfileFile, WritesTextsAsTypedAndTheYearAsANumber)
{
    struct Case {
        const char* what;
        ProfileInputs in;
        const char* bytes;
    };
    auto with = [](auto change) {
        ProfileInputs in = Ann();
        change(in);
        return in;
    };
    const Case cases[] = {
        {"leading zero of the year dropped", with([](ProfileInputs& p) { p.yob = "05"; }),
         "NAME:Ann\r\nYOB:5\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"},
        {"empty year written as 0", with([](ProfileInputs& p) { p.yob = ""; }),
         "NAME:Ann\r\nYOB:0\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"},
        {"year with a point", with([](ProfileInputs& p) { p.yob = "5."; }),
         "NAME:Ann\r\nYOB:5\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n"},
        {"metric male active, texts untouched",
         with([](ProfileInputs& p) {
             p.name = " Zo\xEB: x ";
             p.measurement = kMeasurementMetric;
             p.height = "162.5";
             p.weight = " 58 ";
             p.sex = kSexMale;
             p.lifestyle = kLifestyleActive;
         }),
         "NAME: Zo\xEB: x \r\nYOB:62\r\nMEASUREMENT: 1 \r\nHEIGHT:162.5\r\nWEIGHT: 58 \r\nSEX: 1 \r\nLIFESTYLE: 3 \r\n"},
        {"arrays with no selection", with([](ProfileInputs& p) { p.measurement = p.sex = p.lifestyle = kNoOption; }),
         "NAME:Ann\r\nYOB:62\r\nMEASUREMENT:-1 \r\nHEIGHT:64\r\nWEIGHT:130\r\nSEX:-1 \r\nLIFESTYLE:-1 \r\n"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ProfileFileBytes(c.in), c.bytes) << c.what;
}

TEST(ProfileFile, RoundTripsWhatTheFormatKeeps)
{
    auto with = [](auto change) {
        ProfileInputs in = Ann();
        change(in);
        return in;
    };
    const ProfileInputs kept[] = {
        Ann(),
        with([](ProfileInputs& p) { p.name = "Ann: the elder"; }),
        with([](ProfileInputs& p) { p.name = "Ren\xE9\tTab"; }),
        with([](ProfileInputs& p) { p.name = ""; p.height = ""; p.weight = ""; }),
        with([](ProfileInputs& p) { p.measurement = p.sex = p.lifestyle = kNoOption; }),
        with([](ProfileInputs& p) { p.measurement = kMeasurementMetric; p.sex = kSexMale; p.lifestyle = 1; }),
    };
    for (const ProfileInputs& in : kept) {
        // Read over a profile that differs in every field.
        ProfileInputs before;
        before.name = "someone else";
        before.yob = "11";
        before.height = "1";
        before.weight = "2";
        before.measurement = 1 - (in.measurement == 1);
        before.sex = kSexMale;
        before.lifestyle = kLifestyleActive;
        EXPECT_EQ(Loaded(ProfileFileBytes(in), before), in) << in.name;
    }

    // A year of 1900 to 1909 does not survive: it comes back empty.
    ProfileInputs early = Ann();
    early.yob = "07";
    EXPECT_EQ(Loaded(ProfileFileBytes(early)).yob, "");
}

TEST(ProfileFile, ParsesLinesByKeyWhateverTheirCase)
{
    using F = ProfileField;
    using K = ProfileLineKind;
    struct Case {
        const char* line;
        K kind;
        ProfileSetting setting;
    };
    const Case cases[] = {
        {"NAME:Ann", K::Setting, {F::Name, "Ann", kNoOption}},
        {"name:  Ann Lee  ", K::Setting, {F::Name, "Ann Lee", kNoOption}},
        {"Name:a:b:c", K::Setting, {F::Name, "a:b:c", kNoOption}},
        {"NAME:", K::Setting, {F::Name, "", kNoOption}},
        {"yob:62", K::Setting, {F::Yob, "62", kNoOption}},
        {"YOB: 62 ", K::Setting, {F::Yob, "62", kNoOption}},
        {"YOB:5", K::Setting, {F::Yob, "", kNoOption}},
        {"YOB:1962", K::Setting, {F::Yob, "", kNoOption}},
        {"YOB:", K::Setting, {F::Yob, "", kNoOption}},
        {"height:64", K::Setting, {F::Height, "64", kNoOption}},
        {"WEIGHT: 130.5 ", K::Setting, {F::Weight, "130.5", kNoOption}},
        {"WEIGHT:\t130", K::Setting, {F::Weight, "\t130", kNoOption}},
        {"SEX:1", K::Setting, {F::Sex, "", kSexMale}},
        {"sex: 1 ", K::Setting, {F::Sex, "", kSexMale}},
        {"SEX: 0 ", K::Setting, {F::Sex, "", kSexFemale}},
        {"SEX:2", K::Setting, {F::Sex, "", kNoOption}},
        {"SEX:-1 ", K::Setting, {F::Sex, "", kNoOption}},
        {"SEX:0.5", K::Setting, {F::Sex, "", kNoOption}},
        {"SEX:1.0", K::Setting, {F::Sex, "", kSexMale}},
        {"SEX:male", K::Setting, {F::Sex, "", kSexFemale}},  // no number reads as 0
        {"Measurement: 1 ", K::Setting, {F::Measurement, "", kMeasurementMetric}},
        {"MEASUREMENT:2", K::Setting, {F::Measurement, "", kNoOption}},
        {"LIFESTYLE: 3 ", K::Setting, {F::Lifestyle, "", kLifestyleActive}},
        {"LIFESTYLE:4", K::Setting, {F::Lifestyle, "", kNoOption}},
        {"LIFESTYLE:3e0", K::Setting, {F::Lifestyle, "", kLifestyleActive}},
        {"no colon here", K::Skipped, {}},
        {"", K::Skipped, {}},
        {"COLOR:red", K::Skipped, {}},
        {" NAME:Ann", K::Skipped, {}},
        {"NAME :Ann", K::Skipped, {}},
        {"NAME:A\x01nn", K::Bad, {}},
        {"no colon but \x1A", K::Bad, {}},
        {"SEX:1e999", K::Bad, {}},
        {"COLOR:1e999", K::Skipped, {}},
    };
    for (const Case& c : cases) {
        const ProfileLine parsed = ParseProfileLine(c.line);
        EXPECT_EQ(parsed.kind, c.kind) << c.line;
        if (c.kind == K::Setting) {
            EXPECT_EQ(parsed.setting, c.setting) << c.line;
        }
    }
    EXPECT_EQ(ParseProfileLine(std::string("NAME:A\0nn", 9)).kind, K::Bad);
}

TEST(ProfileFile, LaterLinesOverrideAndOrderDoesNotMatter)
{
    const ProfileInputs read = Loaded(
        "LIFESTYLE: 1 \r\nweight:140\r\nSEX: 1 \r\nNAME:First\r\nCOMMENT:ignored\r\nNAME:Second\r\n"
        "MEASUREMENT: 1 \r\nHEIGHT:170\r\nYOB:70\r\nSEX:2\n");
    EXPECT_EQ(read.name, "Second");
    EXPECT_EQ(read.yob, "70");
    EXPECT_EQ(read.height, "170");
    EXPECT_EQ(read.weight, "140");
    EXPECT_EQ(read.measurement, kMeasurementMetric);
    EXPECT_EQ(read.sex, kNoOption);
    EXPECT_EQ(read.lifestyle, kLifestyleLight);

    // Fields without a line keep what they held.
    ProfileInputs before = Ann();
    const ProfileInputs partial = Loaded("NAME:Zed\r\n", before);
    before.name = "Zed";
    EXPECT_EQ(partial, before);
}

TEST(ProfileFile, KeepsTheLinesBeforeABadOne)
{
    const ProfileFileContent content =
        ParseProfileBytes(std::string("NAME:Ann\r\nHEIGHT:64\r\n\x7F\x45LF\x02\r\nWEIGHT:130\r\n"));
    EXPECT_FALSE(content.valid);
    const std::vector<ProfileSetting> expected = {{ProfileField::Name, "Ann", kNoOption},
                                                  {ProfileField::Height, "64", kNoOption}};
    EXPECT_EQ(content.settings, expected);
}

TEST(ProfileFile, MissingOrEmptyFiles)
{
    test::TempFolder folder;
    EXPECT_FALSE(ReadProfileFile(folder.File("none.pwp")).valid);
    EXPECT_FALSE(ReadProfileFile(folder.Path()).valid);  // a folder is no file

    folder.Write("empty.pwp", "");
    const ProfileFileContent empty = ReadProfileFile(folder.File("empty.pwp"));
    EXPECT_TRUE(empty.valid);
    EXPECT_TRUE(empty.settings.empty());
}

TEST(ProfileFile, RandomBytesNeverCrashTheReader)
{
    std::mt19937 random(20240604);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> length(0, 400);
    // Mostly printable text with colons and keys, so that the parser gets past
    // its first checks, and some raw binary.
    const std::string pieces[] = {"NAME:", "yob:", "SEX:", "LIFESTYLE:", "MEASUREMENT:", "HEIGHT:", "WEIGHT:",
                                  "\r\n", "\r", "\n", " ", ":", "1e9999", "-1", "2", "05", "."};
    std::uniform_int_distribution<int> piece(0, int(std::size(pieces)) - 1);
    int invalid = 0;
    for (int round = 0; round < 400; ++round) {
        std::string bytes;
        const int n = length(random);
        const bool binary = round % 2 == 0;
        while (int(bytes.size()) < n) {
            if (binary || random() % 3 == 0)
                bytes += char(byte(random));
            else
                bytes += pieces[piece(random)];
        }
        if (binary && round % 4 == 0)
            bytes.insert(bytes.size() / 2, 1, '\0');

        const ProfileFileContent content = ParseProfileBytes(bytes);
        if (bytes.find('\0') != std::string::npos) {
            EXPECT_FALSE(content.valid) << "round " << round;
        }
        invalid += !content.valid;
        for (const ProfileSetting& s : content.settings) {
            switch (s.field) {
            case ProfileField::Yob:
                EXPECT_TRUE(s.text.empty() || s.text.size() == 2);
                break;
            case ProfileField::Measurement:
                EXPECT_TRUE(s.option >= kNoOption && s.option < kMeasurementOptions);
                break;
            case ProfileField::Sex:
                EXPECT_TRUE(s.option >= kNoOption && s.option < kSexOptions);
                break;
            case ProfileField::Lifestyle:
                EXPECT_TRUE(s.option >= kNoOption && s.option < kLifestyleOptions);
                break;
            default:
                for (char c : s.text)
                    EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\t');
                break;
            }
        }
    }
    // Every binary buffer of some length holds a control byte.
    EXPECT_GE(invalid, 150);
}

}  // namespace
}  // namespace pw
