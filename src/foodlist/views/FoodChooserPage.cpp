#include "foodlist/views/FoodChooserPage.h"

#include "core/views/Widgets.h"
#include "core/views/ErrorGuard.h"

#include <algorithm>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Numeric.h"
#include "fooddb/FoodGroups.h"
#include "foodlist/ChooserTexts.h"
#include "foodlist/FoodListTexts.h"
#include "foodlist/Quantity.h"
#include "foodlist/TierMap.h"
#include "core/views/Seams.h"
#include "foodlist/FoodSession.h"

namespace pw {

namespace {

QComboBox* MakeCombo(QWidget* parent, const char* name, const char* tip, bool editable = false)
{
    auto* combo = new QComboBox(parent);
    combo->setObjectName(QString::fromLatin1(name));
    combo->setToolTip(QString::fromLatin1(tip));
    combo->setEditable(editable);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(6);
    return combo;
}

constexpr const char* kNutrientCaptions[8] = {"Calories", "Protein", "Carbos.", "Fats",
                                              "Cholest.", "Fiber", "Calcium", "Sodium"};
// The units a valid quantity shows beside the amounts; a change of view sets
// the slightly different list of SetUnitCaptions.
constexpr const char* kQuantityUnits[8] = {" ", "g", "g", "g", "mg", "mg", "mg", "mg"};
constexpr const char* kViewChangeUnits[8] = {"", "g", "mg", "g", "mg", "mg", "mg", "mg"};

constexpr const char* kQuantityFractions[] = {"1/8", "1/4", "1/3", "3/8", "1/2", "5/8", "2/3", "3/4", "7/8"};
constexpr int kQuantityWholeNumbers = 8;
// " 1", the quantity chosen when nothing has been entered.
constexpr int kDefaultQuantityEntry = 9;

}  // namespace

FoodChooserPage::FoodChooserPage(FoodSession& session, Seams& seams, ErrorGuard* errorGuard, QWidget* parent)
    : QWidget(parent), guard(errorGuard), session_(session), seams_(seams)
{
    BuildControls();

    // A user's pick arrives as activated; selections made by code do not run
    // the tier operations a second time.
    ConnectGuarded(comTier0, &QComboBox::activated, this, &FoodChooserPage::ProcessTier0, guard);
    ConnectGuarded(comTier1, &QComboBox::activated, this, &FoodChooserPage::ProcessTier1, guard);
    ConnectGuarded(comTier2, &QComboBox::activated, this, &FoodChooserPage::ProcessTier2, guard);
    ConnectGuarded(comTier3, &QComboBox::activated, this, &FoodChooserPage::ProcessTier3, guard);
    ConnectGuarded(comQuantity, &QComboBox::activated, this, &FoodChooserPage::comQuantity_Click, guard);
    ConnectGuarded(btnNewItem, &QPushButton::clicked, this, &FoodChooserPage::btnNewItem_Click, guard);
    ConnectGuarded(btnSearch, &QPushButton::clicked, this, &FoodChooserPage::btnSearch_Click, guard);
    connect(btnAcceptItem, &QPushButton::clicked, this, &FoodChooserPage::acceptRequested);
    connect(btnDeleteItem, &QPushButton::clicked, this, &FoodChooserPage::deleteRequested);
    // Keys reach the combo first and its line edit without another filter
    // pass, unless they are sent to the line edit itself: watch both.
    comQuantity->installEventFilter(this);
    comQuantity->lineEdit()->installEventFilter(this);
    comTier3->installEventFilter(this);

    DisableTiers();
}

void FoodChooserPage::BuildControls()
{
    setObjectName(QStringLiteral("pageFoodList"));
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(4, 4, 4, 4);
    outer->setSpacing(6);

    auto* tiers = new QGridLayout;
    tiers->setHorizontalSpacing(4);
    tiers->setVerticalSpacing(1);
    labTier[0] = MakeLabel(this, QStringLiteral("labTier0"), "Choose food group:");
    labTier[1] = MakeLabel(this, QStringLiteral("labTier1"), "Choose subgroup:");
    labTier[2] = MakeLabel(this, QStringLiteral("labTier2"), "Choose Item:");
    comTier0 = MakeCombo(this, "comTier0", "Select main food group");
    comTier1 = MakeCombo(this, "comTier1", "Select secondary food group");
    comTier2 = MakeCombo(this, "comTier2", "Select description");
    tiers->addWidget(labTier[0], 0, 0);
    tiers->addWidget(comTier0, 1, 0);
    tiers->addWidget(labTier[1], 0, 1);
    tiers->addWidget(comTier1, 1, 1);
    tiers->addWidget(labTier[2], 0, 2);
    tiers->addWidget(comTier2, 1, 2);
    tiers->setColumnStretch(0, 2);
    tiers->setColumnStretch(1, 2);
    tiers->setColumnStretch(2, 3);
    outer->addLayout(tiers);

    auto* quantityRow = new QHBoxLayout;
    labTier[3] = MakeLabel(this, QStringLiteral("labTier3"), "Qty");
    comQuantity = MakeCombo(this, "comQuantity", "Enter or select the quantity", true);
    comQuantity->setMinimumContentsLength(4);
    // Typed text is the quantity as typed: no completion from the list, and
    // Enter does not add it to the list.
    comQuantity->setCompleter(nullptr);
    comQuantity->setInsertPolicy(QComboBox::NoInsert);
    labOf = MakeLabel(this, QStringLiteral("labOf"), "of");
    comTier3 = MakeCombo(this, "comTier3", "Select unit of measure");
    labTier[3]->setBuddy(comQuantity);
    quantityRow->addWidget(labTier[3]);
    quantityRow->addWidget(comQuantity);
    quantityRow->addWidget(labOf);
    quantityRow->addWidget(comTier3, 1);
    outer->addLayout(quantityRow);

    // The nutrient panel: four rows of two name, value, unit triples in a
    // sunken frame, the first four nutrients on the left; the room left over
    // goes after each triple, so a long value never crowds its neighbours.
    auto* frame = new QFrame(this);
    frame->setObjectName(QStringLiteral("frameNutrients"));
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setFrameShadow(QFrame::Sunken);
    auto* panel = new QGridLayout(frame);
    panel->setContentsMargins(8, 3, 8, 3);
    panel->setHorizontalSpacing(6);
    panel->setVerticalSpacing(1);
    QFont valueFont = font();
    valueFont.setBold(true);
    for (int i = 0; i < 8; ++i) {
        labNutr[i] = MakeLabel(frame, QStringLiteral("labNutr%1").arg(i), kNutrientCaptions[i]);
        labNutrVal[i] = MakeLabel(frame, QStringLiteral("labNutrVal%1").arg(i), "");
        labNutrUnit[i] = MakeLabel(frame, QStringLiteral("labNutrUnit%1").arg(i), "");
        labNutrVal[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        labNutrVal[i]->setFont(valueFont);
        labNutrVal[i]->setMinimumWidth(QFontMetrics(valueFont).horizontalAdvance(QStringLiteral("000000")));
        labNutrUnit[i]->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("%DV")));
        const int row = i % 4;
        const int column = (i / 4) * 4;
        panel->addWidget(labNutr[i], row, column);
        panel->addWidget(labNutrVal[i], row, column + 1);
        panel->addWidget(labNutrUnit[i], row, column + 2);
    }
    panel->setColumnStretch(3, 1);
    panel->setColumnStretch(7, 1);
    outer->addWidget(frame);
    outer->addStretch(1);

    auto* buttons = new QHBoxLayout;
    btnNewItem = MakeButton(this, "btnNewItem", "New Item", "Select new item to add to list");
    btnSearch = MakeButton(this, "btnSearch", "Search", "Search database");
    btnSearch->setShortcut(QKeySequence::Find);  // Ctrl+F
    btnAcceptItem = MakeButton(this, "btnAcceptItem", texts::kCaptionAddToList, "Accept and add item to list");
    btnDeleteItem = MakeButton(this, "btnDeleteItem", "Delete from List", "Delete item from list");
    btnTab2Help = MakeButton(this, "btnTab2Help", "Help", nullptr);
    connect(btnTab2Help, &QPushButton::clicked, this, &FoodChooserPage::helpRequested);
    for (auto* b : {btnNewItem, btnSearch, btnAcceptItem, btnDeleteItem, btnTab2Help})
        buttons->addWidget(b);
    outer->addLayout(buttons);

    // Tab follows the chooser left to right, top to bottom, then the buttons.
    QWidget* order[] = {comTier0, comTier1, comTier2, comQuantity, comTier3,
                        btnNewItem, btnSearch, btnAcceptItem, btnDeleteItem, btnTab2Help};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

QComboBox* FoodChooserPage::TierCombo(int tier) const
{
    const std::array<QComboBox*, 4> combos = {comTier0, comTier1, comTier2, comTier3};
    return combos.at(static_cast<std::size_t>(tier));
}

bool FoodChooserPage::FoodChosen() const { return session_.chooser.stage.valuesShown; }

void FoodChooserPage::RebuildTierMap() { SetGroupList(RebuildGroupColumn(session_.foodTable, session_.tierMap)); }

void FoodChooserPage::SetGroupList(const std::vector<std::string>& groups)
{
    comTier0->clear();
    for (const auto& group : groups)
        comTier0->addItem(QString::fromLatin1(group));
    comTier0->setCurrentIndex(-1);
}

void FoodChooserPage::FillTier(int tier, int position)
{
    QComboBox* combo = TierCombo(tier);
    combo->clear();
    for (const auto& entry : RebuildTierColumn(session_.foodTable, session_.tierMap, tier, position))
        combo->addItem(QString::fromLatin1(entry));
    combo->setCurrentIndex(-1);  // filling a list selects its first entry
    if (tier == 3)
        session_.chooser.measureCount = combo->count();
}

void FoodChooserPage::FollowChoice(int tier)
{
    QComboBox* above = TierCombo(tier - 1);
    const bool chosen = !above->currentText().isEmpty();
    Stage().UpperTierChosen(tier - 1, chosen);
    if (chosen)
        FillTier(tier, above->currentIndex());
    else
        TierCombo(tier)->clear();
    for (int t = tier + 1; t < 4; ++t)
        TierCombo(t)->clear();
    session_.chooser.measureCount = 0;
    ClearValues();
    ShowStage();
}

ChooserStage& FoodChooserPage::Stage() { return session_.chooser.stage; }

void FoodChooserPage::ShowStage()
{
    const ChooserStage& stage = session_.chooser.stage;
    for (int t = 0; t < 3; ++t)
        labTier[t]->setEnabled(stage.tierOpen[t]);
    for (int t = 0; t < 4; ++t)
        TierCombo(t)->setEnabled(stage.tierOpen[t]);
    for (QWidget* quantity : {static_cast<QWidget*>(labTier[3]), static_cast<QWidget*>(labOf),
                              static_cast<QWidget*>(comQuantity)})
        quantity->setEnabled(stage.quantityOpen);
    for (int i = 0; i < 8; ++i)
        for (QLabel* label : {labNutr[i], labNutrVal[i], labNutrUnit[i]})
            label->setEnabled(stage.valuesShown);
    btnAcceptItem->setEnabled(stage.acceptOffered);
    btnSearch->setEnabled(stage.searchOffered);
    btnDeleteItem->setEnabled(stage.rowLoaded);
    emit copyToFavoritesAvailable(stage.measureChosen);
    emit deleteFromDatabaseAvailable(stage.foodShown);
}

void FoodChooserPage::ClearValues()
{
    for (QLabel* value : labNutrVal)
        value->clear();
}

void FoodChooserPage::FillQuantityList()
{
    comQuantity->clear();
    for (const char* fraction : kQuantityFractions)
        comQuantity->addItem(QString::fromLatin1(fraction));
    for (int n = 1; n <= kQuantityWholeNumbers; ++n)
        comQuantity->addItem(QStringLiteral(" %1").arg(n));
    comQuantity->setCurrentIndex(kDefaultQuantityEntry);
}

void FoodChooserPage::SetUnitCaptions(bool byDV)
{
    byUnits_ = !byDV;
    for (int i = 0; i < 8; ++i)
        labNutrUnit[i]->setText(QString::fromLatin1(byDV ? texts::kUnitDV : kViewChangeUnits[i]));
}

void FoodChooserPage::ResetMeasureTier()
{
    comTier3->clear();
    session_.chooser.measureCount = 0;
    Stage().MeasureTierClosed();
    ClearValues();
    ShowStage();
}

void FoodChooserPage::ProcessTier0() { FollowChoice(1); }

void FoodChooserPage::ProcessTier1()
{
    FollowChoice(2);
    if (comTier2->count() == 0 && comTier0->currentText() == QLatin1String(kFavoritesGroup.data(), kFavoritesGroup.size()))
        AskAboutEmptyFavorites();
}

void FoodChooserPage::AskAboutEmptyFavorites()
{
    const MsgResult answer = seams_.prompts.Message(QString::fromLatin1(texts::kCategoryEmpty),
                                                    QString::fromLatin1(texts::kTitleCategoryEmpty),
                                                    MsgIcon::Question, MsgButtons::YesNo);
    if (answer == MsgResult::Yes)
        OpenHelp(seams_.help, session_.programFolder, kHelpContext,
                             kTopicFavoritesAndDishes);
}

void FoodChooserPage::ProcessTier2()
{
    if (comTier2->currentText().isEmpty()) {
        ResetMeasureTier();
        return;
    }
    FillTier(3, comTier2->currentIndex());
    Stage().DescriptionChosen();
    ClearValues();
    ShowStage();
    if (comTier3->count() == 1) {
        comTier3->setCurrentIndex(0);
        ProcessTier3();
    }
}

void FoodChooserPage::ProcessTier3()
{
    const bool chosen = !comTier3->currentText().isEmpty();
    Stage().MeasureChosen(chosen);
    if (!chosen) {
        ClearValues();
        ShowStage();
        return;
    }
    // The food is found by its position in the run, not by its text.
    session_.chooser.currentFood =
        AddInt16(session_.tierMap.Get(0, 3), static_cast<std::int16_t>(comTier3->currentIndex()));
    ShowStage();
    ProcessData();
}

void FoodChooserPage::ProcessTier(int tier)
{
    switch (tier) {
    case 0: ProcessTier0(); break;
    case 1: ProcessTier1(); break;
    case 2: ProcessTier2(); break;
    default: ProcessTier3(); break;
    }
}

void FoodChooserPage::btnNewItem_Click()
{
    NewItem();
    // The keyboard goes on where the choice starts.
    comTier0->setFocus(Qt::OtherFocusReason);
}

void FoodChooserPage::btnSearch_Click()
{
    // The main window opens its search dialog; a food found comes back
    // through ShowFoundFood.
    emit searchRequested();
}

void FoodChooserPage::NewItem()
{
    session_.chooser.addingNewItem = true;
    btnAcceptItem->setText(QString::fromLatin1(texts::kCaptionAddToList));
    DisableTiers();
    Stage().StartNewItem();
    ShowStage();
}

void FoodChooserPage::DisableTiers()
{
    comTier0->setCurrentIndex(-1);
    for (QComboBox* combo : {comTier1, comTier2, comTier3})
        combo->clear();
    session_.chooser.measureCount = 0;
    // Back to the quantity offered at start-up.
    comQuantity->setCurrentIndex(comQuantity->count() > kDefaultQuantityEntry ? kDefaultQuantityEntry : -1);
    ClearValues();
    Stage().CloseAll();
    ShowStage();
}

FoodChooserPage::ChoiceTexts FoodChooserPage::CurrentChoice() const
{
    return {ToLatin1(comQuantity->currentText()), ToLatin1(comTier0->currentText()), ToLatin1(comTier1->currentText()),
            ToLatin1(comTier2->currentText()), ToLatin1(comTier3->currentText())};
}

bool FoodChooserPage::RowLoaded() const { return session_.chooser.stage.rowLoaded; }

void FoodChooserPage::ForgetRow()
{
    Stage().ForgetRow();
    DisableTiers();
}

void FoodChooserPage::LoadListEntry(const FoodListEntry& entry, bool byUnits)
{
    btnAcceptItem->setText(QString::fromLatin1(texts::kCaptionChange));
    for (QComboBox* combo : {comTier1, comTier2, comTier3})
        combo->clear();
    session_.chooser.measureCount = 0;
    ClearValues();
    Stage().LoadRow();
    ShowStage();
    // The quantity goes in before the tiers are shown, so that the measure's
    // values are scaled by the row's own quantity: "Change" without an edit
    // stores the quantity the row shows.
    comQuantity->setEditText(QString::fromLatin1(entry.quantityText));
    RecreateTiers(entry.foodIndex);
    Stage().ShowRowValues();
    ShowStage();
    comQuantity->setEditText(QString::fromLatin1(entry.quantityText));
    for (int i = 0; i < kShownNutrients; ++i)
        labNutrVal[i]->setText(QString::number(byUnits ? entry.amounts[i] : entry.percents[i]));
}

void FoodChooserPage::ShowFoundFood(int index)
{
    RecreateTiers(index);
    // Clearing the measure is a choice at that tier, as a pick would be.
    comTier3->setCurrentIndex(-1);
    ProcessTier3();
    btnAcceptItem->setText(QString::fromLatin1(texts::kSearchAcceptItemCaption));
    Stage().ShowFound();
    ShowStage();
}

void FoodChooserPage::TakeRankedFood(int index, const QString& quantity)
{
    NewItem();
    ShowFoundFood(index);
    const int position = comTier3->findText(QString::fromLatin1(session_.foodTable.Measure(index)), Qt::MatchExactly);
    if (position < 0)
        return;
    if (!quantity.isEmpty())
        comQuantity->setEditText(quantity);
    comTier3->setCurrentIndex(position);
    ProcessTier3();
    comQuantity->setFocus(Qt::OtherFocusReason);
}

void FoodChooserPage::RecreateTiers(int index)
{
    const FoodTable& table = session_.foodTable;
    const std::array<QString, 4> wanted = {
        QString::fromLatin1(table.Group(index)), QString::fromLatin1(table.Subgroup(index)),
        QString::fromLatin1(table.Description(index)), QString::fromLatin1(table.Measure(index))};
    for (int tier = 0; tier < 4; ++tier) {
        QComboBox* combo = TierCombo(tier);
        int position = -1;
        for (int j = 0; j < combo->count(); ++j) {
            if (combo->itemText(j) == wanted[tier]) {
                position = j;
                break;
            }
        }
        // The selection is a choice at this tier, as a pick would be: it
        // fills the tier below.
        combo->setCurrentIndex(position);
        ProcessTier(tier);
        Stage().tierOpen[static_cast<std::size_t>(tier)] = true;
        ShowStage();
        // A record not listed at this tier (the empty-description record that
        // keeps an empty group) has nothing below it to show.
        if (position < 0)
            return;
    }
}

void FoodChooserPage::DisplayFoodNutrients(int index)
{
    ChooserState& state = session_.chooser;
    const ScaledNutrients scaled =
        ScaleNutrients(session_.foodTable.Values(index), state.currentQuantity, session_.dailyValues);
    state.currentNutrients = scaled.amounts;
    state.currentPercents = scaled.percents;
    const bool byUnits = byUnits_;
    for (int i = 0; i < 8; ++i)
        labNutrVal[i]->setText(QString::number(byUnits ? scaled.amounts[i] : scaled.percents[i]));
}

void FoodChooserPage::ProcessData()
{
    ChooserState& state = session_.chooser;
    if (state.stage.quantityOpen) {
        // A copy: the box keeps the text as typed, which the list stores.
        std::string text = comQuantity->currentText().toLatin1().toStdString();
        state.currentQuantity = ParseQuantity(text);
    }
    const QuantityVerdict verdict = JudgeQuantity(state.currentQuantity);
    if (verdict == QuantityVerdict::Refused || verdict == QuantityVerdict::TooLarge) {
        const bool refused = verdict == QuantityVerdict::Refused;
        seams_.prompts.Message(QString::fromLatin1(refused ? texts::kQuantityInputError : texts::kQuantityLimit),
                               QString::fromLatin1(texts::kTitleInputError), MsgIcon::Exclamation);
        comQuantity->setEditText(QString());
    }
    state.stage.QuantityJudged(verdict);
    if (verdict == QuantityVerdict::Valid) {
        for (int i = 0; i < 8; ++i)
            labNutrUnit[i]->setText(QString::fromLatin1(byUnits_ ? kQuantityUnits[i] : texts::kUnitDV));
        DisplayFoodNutrients(state.currentFood);
    }
    ShowStage();
}

void FoodChooserPage::comQuantity_Click() { ProcessData(); }

void FoodChooserPage::comQuantity_KeyUp() { ProcessData(); }

bool FoodChooserPage::eventFilter(QObject* watched, QEvent* event)
{
    const bool quantityBox = watched == comQuantity || watched == comQuantity->lineEdit();
    const bool enterKey = (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) &&
                          (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
                           static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter);
    if ((quantityBox || watched == comTier3) && enterKey) {
        // Enter in the quantity or the measure box presses "Add to List" or
        // "Change" when it may be pressed; it changes no text, so it parses
        // nothing.
        if (event->type() == QEvent::KeyPress && session_.chooser.stage.acceptOffered) {
            btnAcceptItem->click();
            btnNewItem->setFocus(Qt::OtherFocusReason);
        }
        return true;
    }
    if (event->type() == QEvent::KeyRelease && quantityBox)
        RunGuarded(guard, [this] { comQuantity_KeyUp(); });
    return QWidget::eventFilter(watched, event);
}

}  // namespace pw
