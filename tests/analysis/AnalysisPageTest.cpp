#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "analysis/AnalysisPage.h"
#include "analysis/ProfileFile.h"
#include "core/RunTimeError.h"

using namespace pw;
using namespace pw::test;

namespace {

QString LabelText(const QWidget& root, const QString& name)
{
    auto* label = root.findChild<QLabel*>(name);
    if (!label)
        qFatal("no label %s", qPrintable(name));
    return label->text();
}

QStringList SummaryLabels()
{
    QStringList names = {"frameAnalysis", "labAge", "labAgeResults", "labAgeUnits",
                         "labBMILabel",   "labBMI", "labBMIInterpretation"};
    for (int h = 0; h < 3; ++h)
        names << QStringLiteral("labHeader%1").arg(h);
    for (int i = 0; i < 8; ++i)
        names << QStringLiteral("labNutrient%1").arg(i) << QStringLiteral("labMDR%1").arg(i)
              << QStringLiteral("labDailyIntake%1").arg(i);
    return names;
}

}  // namespace

class AnalysisPageTest : public QObject {
    Q_OBJECT

private slots:
    void CaptionsTooltipsAndSize()
    {
        Session session;
        AnalysisPage page(session);
        // Name, caption and tooltip.
        const char* const labels[][3] = {
            {"labAge", "Age:", ""}, {"labAgeUnits", "Years", ""}, {"labBMILabel", "BMI:", ""},
            {"labAgeResults", "", "Your age in years"}, {"labBMI", "", "Your Body Mass Index"},
            {"labBMIInterpretation", "", "Interpretation of BMI"}, {"labHeader0", "Nutrient", ""},
            {"labHeader1", "Daily Value (DV)", ""}, {"labHeader2", "Daily Intake", ""},
            {"labNutrient0", "Calories", ""}, {"labNutrient1", "Protein", ""}, {"labNutrient2", "Carbohydrates", ""},
            {"labNutrient3", "Fat", ""}, {"labNutrient4", "Cholesterol", ""}, {"labNutrient5", "Fiber", ""},
            {"labNutrient6", "Calcium", ""}, {"labNutrient7", "Sodium", ""},
        };
        for (const auto& [name, caption, tooltip] : labels) {
            QCOMPARE(LabelText(page, QString::fromLatin1(name)), QString::fromLatin1(caption));
            QCOMPARE(page.findChild<QWidget*>(name)->toolTip(), QString::fromLatin1(tooltip));
        }
        // Nothing is enabled before the first valid profile.
        for (const QString& name : SummaryLabels())
            QVERIFY2(page.findChild<QWidget*>(name) && !page.findChild<QWidget*>(name)->isEnabled(), qPrintable(name));
        const QSize size = page.minimumSizeHint();
        QVERIFY2(size.width() <= 500 && size.height() <= 205,
                 qPrintable(QStringLiteral("%1 x %2").arg(size.width()).arg(size.height())));
    }

    void UpdateSummaryShowsAgeBmiAndDailyValues_data()
    {
        QTest::addColumn<QString>("pwp");
        QTest::addColumn<QString>("age");
        QTest::addColumn<QString>("bmi");
        QTest::addColumn<QString>("reading");
        QTest::addColumn<QStringList>("dailyValues");
        QTest::newRow("150 lb female sedentary")
            << "YOB:62\nMEASUREMENT:0\nHEIGHT:64\nWEIGHT:150\nSEX:0\nLIFESTYLE:0"
            << "64" << "26" << "Overweight"
            << QStringList{"2100", "63 g", "304 g", "70 g", "315 mg", "26 g", "840 mg", "2494 mg"};
        QTest::newRow("70 kg 175 cm male light")
            << "YOB:80\nMEASUREMENT:1\nHEIGHT:175\nWEIGHT:70\nSEX:1\nLIFESTYLE:1"
            << "46" << "23" << "Normal"
            << QStringList{"2604", "65 g", "390 g", "87 g", "391 mg", "33 g", "1042 mg", "3092 mg"};
    }
    void UpdateSummaryShowsAgeBmiAndDailyValues()
    {
        QFETCH(QString, pwp);
        QFETCH(QString, age);
        QFETCH(QString, bmi);
        QFETCH(QString, reading);
        QFETCH(QStringList, dailyValues);
        Session session;
        ProfileInputs inputs;
        ApplyProfileSettings(ParseProfileBytes(pwp.toStdString()).settings, inputs);
        QVERIFY(ValidateProfile(inputs, 2026, session.profile).valid);
        AnalysisPage page(session);
        page.UpdateSummary();

        QCOMPARE(LabelText(page, "labAgeResults"), age);
        QCOMPARE(LabelText(page, "labBMI"), bmi);
        QCOMPARE(LabelText(page, "labBMIInterpretation"), reading);
        for (int i = 0; i < 8; ++i) {
            QCOMPARE(LabelText(page, QStringLiteral("labMDR%1").arg(i)), dailyValues[i]);
            QCOMPARE(QString::number(session.dailyValues[i]), dailyValues[i].section(' ', 0, 0));
        }
        for (const QString& name : SummaryLabels())
            QVERIFY2(page.findChild<QWidget*>(name)->isEnabled(), qPrintable(name));
    }

    void DailyIntakeSlotsAreEightOnly()
    {
        // The slots' texts are checked with the food list's totals.
        Session session;
        AnalysisPage page(session);
        QVERIFY_THROWS_EXCEPTION(RunTimeError, page.SetDailyIntake(8, QStringLiteral("x")));
        QVERIFY_THROWS_EXCEPTION(RunTimeError, page.SetDailyIntake(-1, QStringLiteral("x")));
    }

    void TheProgramOpensItsTabsForTheDefaultProfile()
    {
        ProgramHarness program;
        WriteProgramFolder(program.folder.Path(), DataFileBytes(SampleTable()), QuietSettings());
        program.folder.Write("default.pwp", "NAME:Ann\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:150\r\n"
                                            "SEX: 0 \r\nLIFESTYLE: 0 \r\n");
        QVERIFY(program.Start());
        QVERIFY(program.fakes.prompts.messages.empty());
        auto* tabs = program.main->findChild<QTabWidget*>("tabMain");
        QVERIFY(tabs);
        QVERIFY(tabs->isTabEnabled(1) && tabs->isTabEnabled(2));
        QCOMPARE(LabelText(*program.main, "labMDR0"), QStringLiteral("2100"));
        QCOMPARE(LabelText(*program.main, "labAgeResults"), QStringLiteral("64"));

        // Emptying the weight closes the tabs and keeps the daily values.
        auto* weight = program.main->findChild<QLineEdit*>("txtWeight");
        weight->clear();
        QTest::keyClick(weight, Qt::Key_Backspace);
        QVERIFY(!tabs->isTabEnabled(1) && !tabs->isTabEnabled(2));
        QCOMPARE(program.session.dailyValues[kCalories], 2100);
        QCOMPARE(LabelText(*program.main, "labMDR0"), QStringLiteral("2100"));

        // A lighter profile typed back opens them with new values.
        QTest::keyClicks(weight, QStringLiteral("100"));
        QVERIFY(tabs->isTabEnabled(1) && tabs->isTabEnabled(2));
        QCOMPARE(LabelText(*program.main, "labMDR0"), QStringLiteral("1400"));
    }
};

QTEST_MAIN(AnalysisPageTest)
#include "AnalysisPageTest.moc"
