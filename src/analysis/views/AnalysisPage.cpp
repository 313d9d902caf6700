#include "analysis/views/AnalysisPage.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/views/Widgets.h"
#include "analysis/DailyValues.h"
#include "core/RunTimeError.h"

namespace pw {

namespace {

constexpr const char* kHeaderCaptions[3] = {"Nutrient", "Daily Value (DV)", "Daily Intake"};
constexpr const char* kNutrientCaptions[kShownNutrients] = {
    "Calories", "Protein", "Carbohydrates", "Fat", "Cholesterol", "Fiber", "Calcium", "Sodium"};
// The nutrients stand in two groups of four side by side.
constexpr int kNutrientsPerGroup = 4;

QLabel* MakeHeader(QWidget* parent, const QString& objectName, const char* caption)
{
    QLabel* label = MakeLabel(parent, objectName, caption);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    // Wide enough for all words but the last on the first line: a header
    // takes at most two lines.
    const QString text = QString::fromLatin1(caption);
    const qsizetype lastBlank = text.lastIndexOf(QLatin1Char(' '));
    const QString firstLine = lastBlank < 0 ? text : text.left(lastBlank);
    label->setMinimumWidth(QFontMetrics(font).horizontalAdvance(firstLine));
    return label;
}

}  // namespace

AnalysisPage::AnalysisPage(AnalysisSession& session, QWidget* parent) : QWidget(parent), session_(session)
{
    BuildControls();
}

void AnalysisPage::BuildControls()
{
    frameAnalysis = new QGroupBox(QStringLiteral("Analysis"), this);
    frameAnalysis->setObjectName(QStringLiteral("frameAnalysis"));

    labAge = MakeLabel(frameAnalysis, QStringLiteral("labAge"), "Age:");
    labAgeResults = MakeLabel(frameAnalysis, QStringLiteral("labAgeResults"), "");
    labAgeResults->setToolTip(QStringLiteral("Your age in years"));
    labAgeUnits = MakeLabel(frameAnalysis, QStringLiteral("labAgeUnits"), "Years");
    labBMILabel = MakeLabel(frameAnalysis, QStringLiteral("labBMILabel"), "BMI:");
    labBMI = MakeLabel(frameAnalysis, QStringLiteral("labBMI"), "");
    labBMI->setToolTip(QStringLiteral("Your Body Mass Index"));
    labBMIInterpretation = MakeLabel(frameAnalysis, QStringLiteral("labBMIInterpretation"), "");
    labBMIInterpretation->setToolTip(QStringLiteral("Interpretation of BMI"));

    const int numberWidth = labAgeResults->fontMetrics().horizontalAdvance(QStringLiteral("0000"));
    labAgeResults->setMinimumWidth(numberWidth);
    labBMI->setMinimumWidth(numberWidth);

    auto* personRow = new QHBoxLayout;
    personRow->setSpacing(4);
    personRow->addWidget(labAge);
    personRow->addWidget(labAgeResults);
    personRow->addWidget(labAgeUnits);
    personRow->addSpacing(24);
    personRow->addWidget(labBMILabel);
    personRow->addWidget(labBMI);
    personRow->addWidget(labBMIInterpretation);
    personRow->addStretch(1);
    // Help stands at the end of this row rather than in a row of its own,
    // which would take the chart's room. Inside the frame it is disabled
    // with it, but only while the tab cannot be opened.
    btnTab3Help = new QPushButton(QStringLiteral("Help"), frameAnalysis);
    btnTab3Help->setObjectName(QStringLiteral("btnTab3Help"));
    connect(btnTab3Help, &QPushButton::clicked, this, &AnalysisPage::helpRequested);
    // The keyboard's way to what a click on a nutrient opens.
    btnRichIn = MakeButton(frameAnalysis, "btnRichIn", "Foods &Rich In...", "The foods rich in a nutrient");
    connect(btnRichIn, &QPushButton::clicked, this, [this] { emit richInRequested(-1); });
    personRow->addWidget(btnRichIn);
    personRow->addWidget(btnTab3Help);

    auto* table = new QGridLayout;
    table->setHorizontalSpacing(6);
    table->setVerticalSpacing(0);
    for (int h = 0; h < 3; ++h) {
        labHeader[h] = MakeHeader(frameAnalysis, QStringLiteral("labHeader%1").arg(h), kHeaderCaptions[h]);
        secondHeader_[h] = MakeHeader(frameAnalysis, QString(), kHeaderCaptions[h]);
        table->addWidget(labHeader[h], 0, h);
        table->addWidget(secondHeader_[h], 0, 4 + h);
    }
    for (int i = 0; i < kShownNutrients; ++i) {
        labNutrient[i] = MakeLabel(frameAnalysis, QStringLiteral("labNutrient%1").arg(i), kNutrientCaptions[i]);
        labMDR[i] = MakeLabel(frameAnalysis, QStringLiteral("labMDR%1").arg(i), "");
        labDailyIntake[i] = MakeLabel(frameAnalysis, QStringLiteral("labDailyIntake%1").arg(i), "");
        // A nutrient's name opens the foods rich in it.
        labNutrient[i]->setCursor(Qt::PointingHandCursor);
        labNutrient[i]->setToolTip(QStringLiteral("Foods rich in ") + QString::fromLatin1(kNutrientCaptions[i]));
        labNutrient[i]->installEventFilter(this);
        const int row = 1 + i % kNutrientsPerGroup;
        const int column = i < kNutrientsPerGroup ? 0 : 4;
        table->addWidget(labNutrient[i], row, column);
        table->addWidget(labMDR[i], row, column + 1);
        table->addWidget(labDailyIntake[i], row, column + 2);
    }
    // A gap between the two groups.
    table->setColumnMinimumWidth(3, 12);
    for (int column : {1, 2, 5, 6})
        table->setColumnStretch(column, 1);

    auto* frameLayout = new QVBoxLayout(frameAnalysis);
    // Tight spacing leaves the chart below the nutrients room for its rows.
    frameLayout->setContentsMargins(8, 2, 8, 2);
    frameLayout->setSpacing(2);
    frameLayout->addLayout(personRow);
    frameLayout->addLayout(table);
    frameLayout->addStretch(1);
    frameLayout_ = frameLayout;

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(6, 3, 6, 3);
    page->addWidget(frameAnalysis);

    // Nothing to show before the first valid profile.
    for (QWidget* w : {static_cast<QWidget*>(frameAnalysis), static_cast<QWidget*>(labAge),
                       static_cast<QWidget*>(labAgeResults), static_cast<QWidget*>(labAgeUnits),
                       static_cast<QWidget*>(labBMILabel), static_cast<QWidget*>(labBMI),
                       static_cast<QWidget*>(labBMIInterpretation)})
        w->setEnabled(false);
    for (int h = 0; h < 3; ++h) {
        labHeader[h]->setEnabled(false);
        secondHeader_[h]->setEnabled(false);
    }
    for (int i = 0; i < kShownNutrients; ++i) {
        labNutrient[i]->setEnabled(false);
        labMDR[i]->setEnabled(false);
        labDailyIntake[i]->setEnabled(false);
    }
}

void AnalysisPage::UpdateSummary()
{
    for (QWidget* w : {static_cast<QWidget*>(labAge), static_cast<QWidget*>(labAgeResults),
                       static_cast<QWidget*>(labAgeUnits), static_cast<QWidget*>(labBMILabel),
                       static_cast<QWidget*>(labBMI), static_cast<QWidget*>(labBMIInterpretation),
                       static_cast<QWidget*>(frameAnalysis)})
        w->setEnabled(true);
    for (int h = 0; h < 3; ++h) {
        labHeader[h]->setEnabled(true);
        secondHeader_[h]->setEnabled(true);
    }
    for (int i = 0; i < kShownNutrients; ++i) {
        labNutrient[i]->setEnabled(true);
        labDailyIntake[i]->setEnabled(true);
        labMDR[i]->setEnabled(true);
    }

    const Profile& profile = session_.profile;
    labAgeResults->setText(QString::number(profile.age));

    const BodyMassIndex bmi = ComputeBodyMassIndex(profile.weightKilograms, profile.heightCentimeters);
    labBMI->setText(QString::number(bmi.rounded));
    labBMIInterpretation->setText(QString::fromLatin1(InterpretBodyMassIndex(bmi.rounded)));

    session_.dailyValues = ComputeDailyValues(profile.weightPounds, profile.inputs.sex, profile.inputs.lifestyle);
    for (int i = 0; i < kShownNutrients; ++i)
        labMDR[i]->setText(
            QString::fromStdString(DailyValueText(static_cast<Nutrient>(i), session_.dailyValues[i])));
}

bool AnalysisPage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        for (int i = 0; i < kShownNutrients; ++i)
            if (watched == labNutrient[i] && labNutrient[i]->rect().contains(
                                                 static_cast<QMouseEvent*>(event)->position().toPoint()))
                emit richInRequested(i);
    }
    return QWidget::eventFilter(watched, event);
}

void AnalysisPage::AddChart(QWidget* chart)
{
    // The chart takes the place of the stretch below the nutrients.
    delete frameLayout_->takeAt(frameLayout_->count() - 1);
    frameLayout_->addWidget(chart, 1);
}

void AnalysisPage::SetDailyIntake(int i, const QString& text)
{
    if (i < 0 || i >= kShownNutrients)
        throw RunTimeError(ErrorKind::SubscriptRange, "daily intake label");
    labDailyIntake[i]->setText(text);
}

void AnalysisPage::ClearPerson()
{
    for (QLabel* caption : {labAgeResults, labBMI, labBMIInterpretation})
        caption->clear();
}

}  // namespace pw
