// The profile tab, and the analysis tab that shows what the profile gives.
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "analysis/AnalysisTexts.h"
#include "analysis/views/AnalysisPage.h"
#include "analysis/ProfileFile.h"
#include "analysis/views/ProfilePage.h"
#include "core/LineFile.h"

using namespace pw;
using namespace pw::test;

namespace {

const std::optional<bool> kValid{true}, kInvalid{false};
const QString kNumbersOnly = QStringLiteral("Enter only numbers in this field.");
const QString kInvalidAge = QString::fromLatin1(texts::kInvalidAge);
const QString kIllegalCharacter = QString::fromLatin1(texts::kIllegalNameCharacter);
const QString kProfileFilter = QString::fromLatin1(texts::kProfileFilter);

QString Q(const std::string& path) { return QString::fromStdString(path); }

QString NotAProfileFile(const QString& path)
{
    return path + QStringLiteral("\r\nis not a valid Platewell\r\n.pwp file.");
}

QStringList Labels(const QWidget& root, const QStringList& names)
{
    QStringList texts;
    for (const QString& name : names)
        texts << Find<QLabel>(root, name)->text();
    return texts;
}

// The names of the options checked, in the page's order.
QStringList Checked(const QWidget& root)
{
    QStringList names;
    for (const QRadioButton* option : root.findChildren<QRadioButton*>())
        if (option->isChecked())
            names << option->objectName();
    return names;
}

// The analysis frame and every control in it.
QWidgetList AnalysisControls(const QWidget& root)
{
    QWidget* frame = Find(root, QStringLiteral("frameAnalysis"));
    return frame->findChildren<QWidget*>() << frame;
}

QString Described(const FileDialogRequest& r)
{
    return QStringList{r.initialFolder, r.defaultExtension, r.proposedName, r.filter}.join('|') +
           QStringLiteral("|%1%2%3%4")
               .arg(int(r.overwritePrompt))
               .arg(int(r.pathMustExist))
               .arg(int(r.fileMustExist))
               .arg(int(r.hideReadOnly));
}

// A profile page on the fakes, its program folder a fresh temporary one.
struct Page {
    Page()
    {
        session.programFolder = folder.Path();
        page = std::make_unique<ProfilePage>(session, fakes.seams);
        validated = std::make_unique<QSignalSpy>(page.get(), &ProfilePage::profileValidated);
    }

    template <class T = QWidget>
    T* Get(const char* name) const
    {
        return Find<T>(*page, QString::fromLatin1(name));
    }
    QLineEdit* Box(const char* name) const { return Get<QLineEdit>(name); }
    QString Text(const char* name) const { return Box(name)->text(); }
    // Name, year of birth, height and weight as shown.
    QStringList Entries() const { return {Text("txtName"), Text("txtYOB"), Text("txtHeight"), Text("txtWeight")}; }
    QStringList Options() const { return Checked(*page); }
    void Type(const char* name, const QString& text) const { QTest::keyClicks(Box(name), text); }
    void Click(const char* name) const { Get<QAbstractButton>(name)->click(); }
    bool CanSave() const { return Get("btnSaveProfile")->isEnabled(); }
    // The outcome of the latest validation; nothing when none ran.
    std::optional<bool> LastValidity() const
    {
        if (validated->isEmpty())
            return std::nullopt;
        return validated->last().at(0).toBool();
    }
    const std::vector<RecordedMessage>& Messages() const { return fakes.prompts.messages; }
    bool Read(const char* file) const { return page->ReadPWP(Q(folder.File(file))); }

    void TypeValidProfile() const
    {
        Type("txtName", QStringLiteral("Ann"));
        Type("txtYOB", QStringLiteral("62"));
        Type("txtHeight", QStringLiteral("64"));
        Type("txtWeight", QStringLiteral("150"));
    }

    TempFolder folder;
    FakeSeams fakes;
    Session session;
    std::unique_ptr<ProfilePage> page;
    std::unique_ptr<QSignalSpy> validated;
};

}  // namespace

class ProfilePageTest : public QObject {
    Q_OBJECT

private slots:
    void TheTabsOpenForAValidProfile()
    {
        ProgramHarness program;
        program.StartOn(DataFileBytes(SampleTable()), {});
        MainWindow& w = *program.main;
        // A new profile is unfinished, in English units; nothing on the
        // analysis tab is enabled before the profile is valid.
        QCOMPARE(Checked(w), QStringList({"optMeasurement0", "optSex0", "optLifestyle0"}));
        QVERIFY(!Find(w, "btnSaveProfile")->isEnabled());
        for (const QWidget* control : AnalysisControls(w))
            QVERIFY2(!control->isEnabled(), qPrintable(control->objectName()));
        // The pages fit the tab page of the main window.
        for (QWidget* page : std::initializer_list<QWidget*>{&FindOnly<ProfilePage>(w), &FindOnly<AnalysisPage>(w),
                                                             &FindOnly<FoodChooserPage>(w)}) {
            const QSize size = page->minimumSizeHint();
            QVERIFY2(size.width() <= 500 && size.height() <= 205,
                     qPrintable(QStringLiteral("%1 x %2").arg(size.width()).arg(size.height())));
        }

        // A valid profile typed opens the other tabs with its values.
        auto* tabs = Find<QTabWidget>(w, "tabMain");
        auto* weight = Find<QLineEdit>(w, "txtWeight");
        QTest::keyClicks(Find<QLineEdit>(w, "txtYOB"), "62");
        QTest::keyClicks(Find<QLineEdit>(w, "txtHeight"), "64");
        QTest::keyClicks(weight, "150");
        QVERIFY(tabs->isTabEnabled(1) && tabs->isTabEnabled(2));
        QCOMPARE(Labels(w, {"labMDR0", "labMDR1", "labMDR7", "labAgeResults", "labBMI", "labBMIInterpretation"}),
                 QStringList({"2100", "63 g", "2494 mg", "64", "26", "Overweight"}));
        for (const QWidget* control : AnalysisControls(w))
            QVERIFY2(control->isEnabled(), qPrintable(control->objectName()));

        // Emptying the weight closes the tabs and keeps the daily values.
        weight->clear();
        QTest::keyClick(weight, Qt::Key_Backspace);
        QVERIFY(!tabs->isTabEnabled(1) && !tabs->isTabEnabled(2));
        QCOMPARE(program.session.dailyValues[kCalories], 2100);
        QCOMPARE(Labels(w, {"labMDR0"}), QStringList{"2100"});

        // A lighter profile typed back opens them with new values.
        QTest::keyClicks(weight, "100");
        QVERIFY(tabs->isTabEnabled(1) && tabs->isTabEnabled(2));
        QCOMPARE(Labels(w, {"labMDR0"}), QStringList{"1400"});
        QVERIFY(program.fakes.prompts.messages.empty());

    }

    void TypingAProfileKeyByKeyMakesItValidAndNewProfileEmptiesIt()
    {
        Page p;
        p.Type("txtName", "Ann Lee");
        QCOMPARE(p.LastValidity(), kInvalid);
        p.Type("txtYOB", "6");
        p.Type("txtHeight", "64");
        p.Type("txtWeight", "15");
        QCOMPARE(p.LastValidity(), kInvalid);  // one-digit year, 15 pounds
        // Each key reads the profile once, by its change or by its release.
        QCOMPARE(p.validated->size(), 7 + 1 + 2 + 2);
        p.Type("txtWeight", "0");
        QCOMPARE(p.LastValidity(), kInvalid);  // still the one-digit year
        p.Type("txtYOB", "2");
        QCOMPARE(p.LastValidity(), kValid);
        QVERIFY(p.CanSave() && p.Messages().empty());
        QCOMPARE(p.session.profile.age, std::int16_t(64));
        QCOMPARE(p.session.profile.weightPounds, 150.0f);
        QCOMPARE(p.session.profile.inputs.name, std::string("Ann Lee"));

        // Sex and lifestyle clicks validate too.
        const qsizetype before = p.validated->size();
        p.Click("optSex1");
        p.Click("optLifestyle2");
        QCOMPARE(p.validated->size(), before + 2);
        QCOMPARE(p.session.profile.inputs.sex, kSexMale);
        QCOMPARE(p.session.profile.inputs.lifestyle, kLifestyleModerate);

        // Backspace over the weight: 15 pounds is too light again.
        QTest::keyClick(p.Box("txtWeight"), Qt::Key_Backspace);
        QCOMPARE(p.LastValidity(), kInvalid);
        QVERIFY(!p.CanSave());

        // New Profile empties the entries of a valid profile and keeps its
        // options; Help opens the profile's topic.
        p.Type("txtWeight", "0");
        QCOMPARE(p.LastValidity(), kValid);
        p.Click("btnNewProfile");
        QCOMPARE(p.Entries(), QStringList({"", "", "", ""}));
        QCOMPARE(p.LastValidity(), kInvalid);
        QVERIFY(!p.CanSave() && p.Messages().empty());
        QCOMPARE(p.Options(), QStringList({"optMeasurement0", "optSex1", "optLifestyle2"}));
        p.Click("btnTab1Help");
        QCOMPARE(p.fakes.help.calls.size(), size_t(1));
        const HelpCall& help = p.fakes.help.calls[0];
        QVERIFY(help.file == Q(p.folder.File("pw.hlp")) && help.command == kHelpContext && help.context == 2);

        // A key that leaves no number empties its box with the message; a
        // key on an empty box says nothing.
        for (const char* box : {"txtYOB", "txtHeight", "txtWeight"})
            p.Type(box, "1x");
        QTest::keyClick(p.Box("txtWeight"), Qt::Key_Backspace);
        QCOMPARE(p.Entries(), QStringList({"", "", "", ""}));
        QCOMPARE(Shown(p.Messages()), QStringList(3, "Error|3|0|" + kNumbersOnly));

        // A year that makes the person younger than 13 (two digits typed):
        // the message, the year emptied and the cursor back in it.
        p.fakes.clock.year = 2001;
        p.page->show();
        p.page->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(p.page.get()));
        p.Box("txtName")->setFocus();
        p.Type("txtYOB", "89");
        QCOMPARE(Shown(p.Messages()).mid(3), QStringList{"Invalid age|3|0|" + kInvalidAge});
        QVERIFY(p.Text("txtYOB").isEmpty() && p.session.profile.age == 12 && p.LastValidity() == kInvalid);
        QCOMPARE(QApplication::focusWidget(), p.Get("txtYOB"));
        p.Type("txtYOB", "5.");  // 1905
        QVERIFY(p.session.profile.age == 96 && p.Messages().size() == 4);
    }

    void IllegalNameCharactersAreRemovedWithTheMessage()
    {
        for (const QString character : {"\\", "/", ":", "*", "?", "\"", "<", ">", "|"}) {
            Page p;
            p.page->show();
            QLineEdit* name = p.Box("txtName");
            QTest::keyClicks(name, "Ann" + character);
            QCOMPARE(name->text(), QStringLiteral("Ann"));
            QCOMPARE(p.fakes.prompts.events, (std::vector<QString>{"beep", "message:Error"}));
            QCOMPARE(Shown(p.Messages().at(0)), Shown({kIllegalCharacter, "Error", MsgIcon::Critical, MsgButtons::Ok}));
            QCOMPARE(name->cursorPosition(), 3);

            // Pasted into the middle: each key-up takes the last character, and
            // says so again while the offender stays.
            name->setText("A" + character + "nn");
            QTest::keyClick(name, Qt::Key_End);
            QCOMPARE(name->text(), "A" + character + "n");
            QTest::keyClick(name, Qt::Key_End);
            QTest::keyClick(name, Qt::Key_End);
            QCOMPARE(name->text(), QStringLiteral("A"));
            QCOMPARE(p.fakes.prompts.beeps, 4);
            QCOMPARE(int(p.Messages().size()), 4);
            QTest::keyClick(name, Qt::Key_End);
            QCOMPARE(int(p.Messages().size()), 4);
        }
    }

    void SaveProfileWritesTheFileAndSaysSo()
    {
        Page p;
        p.TypeValidProfile();
        p.Click("optLifestyle2");
        const std::string path = p.folder.File("ann.pwp");
        p.fakes.files.answers.push_back(Q(path));
        p.Click("btnSaveProfile");
        QCOMPARE(p.fakes.files.saveRequests.size(), size_t(1));
        QCOMPARE(Described(p.fakes.files.saveRequests[0]),
                 Q(p.folder.Path()) + "|.pwp|Ann.pwp|" + kProfileFilter + "|1100");
        // The bytes of a profile are the file's own rule; the page writes its entries.
        QCOMPARE(ReadWholeFile(path, kProfileFileLimit), ProfileFileBytes(p.page->CurrentInputs()));
        QCOMPARE(p.page->CurrentInputs().lifestyle, kLifestyleModerate);
        QCOMPARE(Shown(p.Messages()), QStringList{"Save Profile|1|0|Profile saved."});

        // A name no file may carry proposes no name.
        p.Box("txtName")->setText("A/B");
        p.fakes.files.answers.push_back(std::nullopt);
        p.Click("btnSaveProfile");
        QCOMPARE(p.fakes.files.saveRequests.at(1).proposedName, QString());
        // Cancelled: silence. A folder that is not there: the file and the
        // system's reason, and no "saved".
        QCOMPARE(p.Messages().size(), size_t(1));
        const QString missing = Q(p.folder.File("missing/x.pwp"));
        p.fakes.files.answers.push_back(missing);
        p.Click("btnSaveProfile");
        QCOMPARE(Shown(p.Messages()).mid(1), QStringList{"Save Profile|3|0|Platewell could not save the file\r\n" + missing +
                                                        "\r\n\r\nThe system says: No such file or directory.\r\n\r\n"
                                                        "The file was not saved."});
        QVERIFY(!p.folder.Exists("missing"));
    }

    void LoadProfileSetsTheControls()
    {
        Page p;
        p.folder.Write("bob.pwp", "name:Bob: the builder\r\nYOB: 70 \r\nMEASUREMENT: 1 \r\nHEIGHT:180\r\n"
                                  "WEIGHT:80\r\nSEX: 1 \r\nLIFESTYLE: 3 \r\n");
        p.fakes.files.answers.push_back(Q(p.folder.File("bob.pwp")));
        p.Click("btnLoadProfile");
        QCOMPARE(p.fakes.files.openRequests.size(), size_t(1));
        QCOMPARE(Described(p.fakes.files.openRequests[0]), Q(p.folder.Path()) + "|.pwp||" + kProfileFilter + "|0011");
        QCOMPARE(p.Entries(), QStringList({"Bob: the builder", "70", "180", "80"}));
        QCOMPARE(p.Options(), QStringList({"optMeasurement1", "optSex1", "optLifestyle3"}));
        QCOMPARE(p.Get<QLabel>("labWeightUnits")->text(), QStringLiteral("kg"));
        QVERIFY(p.Messages().empty());
        QCOMPARE(p.LastValidity(), kValid);

        // Cancel does nothing.
        const qsizetype validations = p.validated->size();
        p.Click("btnLoadProfile");
        QCOMPARE(p.validated->size(), validations);
        QVERIFY(p.Messages().empty());

        // Other units show the stored measures rounded and validate nothing;
        // the next edit reads the values shown.
        const auto shown = [&p] { return p.Entries().mid(2) + Labels(*p.page, {"labHeightUnits", "labWeightUnits"}); };
        p.Click("optMeasurement0");
        QCOMPARE(shown(), QStringList({"71", "176", "inches", "pounds"}));  // 70.87 inches, 176.24 pounds
        p.Click("optMeasurement1");
        QCOMPARE(shown(), QStringList({"180", "80", "cm", "kg"}));
        QCOMPARE(p.validated->size(), validations);
        p.Click("optMeasurement0");
        QTest::keyClick(p.Box("txtWeight"), Qt::Key_End);
        QVERIFY(p.session.profile.weightPounds == 176.0f && p.LastValidity() == kValid);
    }

    void LoadingKeepsTheFormatsQuirksAndRefusesWhatIsNoProfile()
    {
        Page p;
        p.TypeValidProfile();
        p.folder.Write("default.pwp", "kept until a profile without height is read");
        // A one-character year empties the box; sex 2 selects neither option;
        // no HEIGHT line keeps the height.
        p.folder.Write("odd.pwp", "YOB:5\r\nSEX:2\r\nNAME:Odd\r\nWEIGHT:130\r\n");
        QVERIFY(p.Read("odd.pwp"));
        QCOMPARE(p.Entries(), QStringList({"Odd", "", "64", "130"}));
        QCOMPARE(p.Options(), QStringList({"optMeasurement0", "optLifestyle0"}));
        QVERIFY(p.folder.Exists("default.pwp"));
        QCOMPARE(p.LastValidity(), kInvalid);

        // Saved again, the empty sex is written as none.
        p.page->WritePWP(Q(p.folder.File("odd2.pwp")));
        QVERIFY(p.folder.Read("odd2.pwp").find("SEX:-1 \r\n") != std::string::npos);

        // An empty height after reading deletes the default profile, whatever
        // file was read.
        p.folder.Write("short.pwp", "NAME:Short\r\nHEIGHT:\r\nWEIGHT:130\r\n");
        QVERIFY(p.Read("short.pwp"));
        QVERIFY(!p.folder.Exists("default.pwp"));
        QVERIFY(p.Messages().empty());

        // A file that is not a profile, after a valid profile again.
        p.Click("btnNewProfile");
        p.TypeValidProfile();
        QCOMPARE(p.LastValidity(), kValid);
        p.folder.Write("default.pwp", "x");
        const qsizetype validations = p.validated->size();

        // Lines before the bad one are applied; nothing is validated after.
        static const char binary[] = "HEIGHT:70\r\nWEIGHT:40\r\n\x89PNG\x1a\n\0\0";
        p.folder.Write("binary.pwp", std::string(binary, sizeof binary - 1));
        QVERIFY(!p.Read("binary.pwp"));
        QCOMPARE(Shown(p.Messages()), QStringList{"Error|4|0|" + NotAProfileFile(Q(p.folder.File("binary.pwp")))});
        QCOMPARE(p.Entries(), QStringList({"Ann", "62", "70", "40"}));
        QCOMPARE(p.validated->size(), validations);
        QVERIFY(p.CanSave() && p.folder.Exists("default.pwp"));

        // A number too large for the profile met while the lines are applied.
        p.folder.Write("huge.pwp", "WEIGHT:1e39\r\nNAME:Big\r\nHEIGHT:64\r\n");
        QVERIFY(!p.Read("huge.pwp"));
        QCOMPARE(p.Messages().back().text, NotAProfileFile(Q(p.folder.File("huge.pwp"))));
        QCOMPARE(p.Text("txtHeight"), QStringLiteral("70"));  // the line after the fault is not applied
        QCOMPARE(p.Messages().size(), size_t(2));
    }

    void DefaultProfileIsFoundWhateverItsCaseAndWrittenAtExit()
    {
        {
            Page p;
            p.folder.Write("DEFAULT.PWP", "NAME:Upper\r\nYOB:62\r\nHEIGHT:64\r\nWEIGHT:150\r\n");
            p.page->ReadDefaultPWP();
            QCOMPARE(p.Text("txtName"), QStringLiteral("Upper"));
            QCOMPARE(p.LastValidity(), kValid);

            p.Box("txtName")->setText("Changed");
            p.page->WriteDefaultPWP();
            QCOMPARE(p.folder.Read("DEFAULT.PWP"), ProfileFileBytes(p.page->CurrentInputs()));
        }
        {
            // Written whether valid or not, and read back into a new page.
            Page p;
            p.Type("txtName", "Half");
            p.Type("txtHeight", "64");
            p.page->WriteDefaultPWP();
            QCOMPARE(p.folder.Read("default.pwp"), ProfileFileBytes(p.page->CurrentInputs()));
            ProfilePage next(p.session, p.fakes.seams);
            next.ReadDefaultPWP();
            QCOMPARE(Find<QLineEdit>(next, "txtName")->text(), QStringLiteral("Half"));
            // No weight: the half-filled default does not survive its reading.
            QVERIFY(!p.folder.Exists("default.pwp"));
        }
    }
};

QTEST_MAIN(ProfilePageTest)
#include "ProfilePageTest.moc"
