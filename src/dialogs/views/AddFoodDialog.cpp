#include "dialogs/views/AddFoodDialog.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "core/views/StoredTextValidator.h"
#include "core/Numeric.h"
#include "fooddb/FoodGroups.h"
#include "foodlist/TierMap.h"
#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "foodlist/FoodSession.h"

namespace pw {

namespace {


// The dialog's own spelling of the twelfth group, which a food added under
// it carries as its group name.
constexpr int kLegumesGroup = 11;
constexpr const char* kLegumesAsOffered = "Nuts, Seeds, Lugumes, Beans";

constexpr const char* kNutrientCaptions[kCustomNutrients] = {"Protein", "Carbohydrates", "Fats",  "Cholesterol",
                                                             "Fiber",   "Calcium",       "Sodium"};
constexpr const char* kPercentCaption = "%DV*";

// The longest text the data file stores in a field.
constexpr int kMaxTextLength = kMaxTextField;
// Nutrient boxes take numbers short enough that any of them, as %DV of
// sodium or summed into calories, stays within 32 bits.
constexpr int kMaxNutrientLength = 6;

}  // namespace

AddFoodDialog::AddFoodDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent)
    : FoodTableDialog(session, seams, guard, kTopicAddCustomFood, parent)
{
    BuildControls();
    ConnectGuarded(comPrimary, &QComboBox::activated, this, [this] { comPrimary_Click(); }, guard);
    // A pick from the list and typing both change the subgroup.
    ConnectGuarded(comSecondary, &QComboBox::activated, this, [this] { comSecondary_Change(); }, guard);
    ConnectGuarded(comSecondary->lineEdit(), &QLineEdit::textEdited, this, [this] { comSecondary_Change(); }, guard);
    // The boxes' bits follow their text however it changes.
    ConnectGuarded(txtDescription, &QLineEdit::textChanged, this, [this] { txtDescription_KeyUp(); }, guard);
    ConnectGuarded(txtMeasure, &QLineEdit::textChanged, this, [this] { txtMeasure_KeyUp(); }, guard);
    for (int i = 0; i < kCustomNutrients; ++i) {
        ConnectGuarded(txtNutrVal[i], &QLineEdit::textChanged, this, [this, i] { txtNutrVal_KeyUp(i); }, guard);
        ConnectGuarded(optUnits[i], &QRadioButton::clicked, this, [this, i] { optUnits_Click(i); }, guard);
        ConnectGuarded(optDV[i], &QRadioButton::clicked, this, [this, i] { optDV_Click(i); }, guard);
    }
    ConnectGuarded(btnAdd, &QPushButton::clicked, this, [this] { btnAdd_Click(); }, guard);
    ConnectGuarded(btnCancel, &QPushButton::clicked, this, [this] { btnCancel_Click(); }, guard);
    ConnectGuarded(btnHelp, &QPushButton::clicked, this, [this] { btnHelp_Click(); }, guard);
    Form_Activate();
}

void AddFoodDialog::BuildControls()
{
    setObjectName(QStringLiteral("frmAdd"));
    setWindowTitle(QStringLiteral("Add to Database"));

    labPrimary = MakeDialogLabel(this, QStringLiteral("labPrimary"), "Select Group");
    comPrimary = new QComboBox(this);
    comPrimary->setObjectName(QStringLiteral("comPrimary"));
    comPrimary->setToolTip(QStringLiteral("Select food group"));
    labSecondary = MakeDialogLabel(this, QStringLiteral("labSecondary"), "Select subgroup");
    comSecondary = new QComboBox(this);
    comSecondary->setObjectName(QStringLiteral("comSecondary"));
    comSecondary->setToolTip(QStringLiteral("Select or enter secondary group"));
    comSecondary->setEditable(true);
    comSecondary->setInsertPolicy(QComboBox::NoInsert);
    comSecondary->setCompleter(nullptr);
    comSecondary->lineEdit()->setMaxLength(kMaxTextLength);
    labDescription = MakeDialogLabel(this, QStringLiteral("labDescription"), "Enter description");
    txtDescription = MakeBox(this, QStringLiteral("txtDescription"), "Enter a description of the food item",
                             kMaxTextLength);
    labUnitOfMeasure = MakeDialogLabel(this, QStringLiteral("labUnitOfMeasure"), "Enter unit of measure");
    txtMeasure = MakeBox(this, QStringLiteral("txtMeasure"), "Enter the unit of measure for this food item",
                         kMaxTextLength);
    KeepStorable(comSecondary, seams_.prompts);
    KeepStorable(txtDescription, seams_.prompts);
    KeepStorable(txtMeasure, seams_.prompts);
    for (QComboBox* combo : {comPrimary, comSecondary}) {
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(24);
    }

    auto* food = new QGridLayout;
    food->addWidget(labPrimary, 0, 0);
    food->addWidget(comPrimary, 1, 0);
    food->addWidget(labSecondary, 0, 1);
    food->addWidget(comSecondary, 1, 1);
    food->addWidget(labDescription, 2, 0);
    food->addWidget(txtDescription, 3, 0);
    food->addWidget(labUnitOfMeasure, 2, 1);
    food->addWidget(txtMeasure, 3, 1);
    food->setVerticalSpacing(2);

    auto* rows = new QGridLayout;
    rows->setVerticalSpacing(2);
    for (int i = 0; i < kCustomNutrients; ++i) {
        labNutrient[i] = MakeDialogLabel(this, QStringLiteral("labNutrient%1").arg(i), kNutrientCaptions[i]);
        txtNutrVal[i] = MakeBox(this, QStringLiteral("txtNutrVal%1").arg(i), nullptr, kMaxNutrientLength);
        txtNutrVal[i]->setAlignment(Qt::AlignRight);
        txtNutrVal[i]->setMaximumWidth(txtNutrVal[i]->fontMetrics().horizontalAdvance(QStringLiteral("0000000000")));
        labMeasureCaption[i] = MakeDialogLabel(this, QStringLiteral("labMeasureCaption%1").arg(i), kCustomUnitTexts[i]);
        labMeasureCaption[i]->setMinimumWidth(labMeasureCaption[i]->fontMetrics().horizontalAdvance(
            QString::fromLatin1(kPercentCaption) + QStringLiteral("  ")));
        frameUnits[i] = new QFrame(this);
        frameUnits[i]->setObjectName(QStringLiteral("frameUnits%1").arg(i));
        // The two options of a row share its frame, so each row has its own
        // choice.
        optUnits[i] = new QRadioButton(QStringLiteral("Units"), frameUnits[i]);
        optUnits[i]->setObjectName(QStringLiteral("optUnits%1").arg(i));
        optDV[i] = new QRadioButton(QStringLiteral("%DV"), frameUnits[i]);
        optDV[i]->setObjectName(QStringLiteral("optDV%1").arg(i));
        auto* options = new QHBoxLayout(frameUnits[i]);
        options->setContentsMargins(0, 0, 0, 0);
        options->addWidget(optUnits[i]);
        options->addWidget(optDV[i]);
        rows->addWidget(labNutrient[i], i, 0);
        rows->addWidget(txtNutrVal[i], i, 1);
        rows->addWidget(labMeasureCaption[i], i, 2);
        rows->addWidget(frameUnits[i], i, 3);
    }
    labCalories = MakeDialogLabel(this, QStringLiteral("labCalories"), "Calories");
    txtCalories = MakeBox(this, QStringLiteral("txtCalories"), nullptr, 32767);
    txtCalories->setReadOnly(true);
    txtCalories->setFocusPolicy(Qt::NoFocus);
    txtCalories->setAlignment(Qt::AlignRight);
    txtCalories->setMaximumWidth(txtNutrVal[0]->maximumWidth());
    rows->addWidget(labCalories, kCustomNutrients, 0);
    rows->addWidget(txtCalories, kCustomNutrients, 1);
    rows->setColumnStretch(4, 1);

    labNote = MakeDialogLabel(this, QStringLiteral("labNote"), "*percent Daily Values are based on a 2,000 calorie diet");
    btnAdd = MakeDialogButton(this, "btnAdd", "Add", "Add item to database");
    btnCancel = MakeDialogButton(this, "btnCancel", "Cancel", nullptr);
    btnHelp = MakeDialogButton(this, "btnHelp", "Help", nullptr);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {btnAdd, btnCancel, btnHelp})
        buttons->addWidget(button);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(food);
    layout->addSpacing(6);
    layout->addLayout(rows);
    layout->addWidget(labNote);
    layout->addLayout(buttons);
}

void AddFoodDialog::Form_Activate()
{
    comPrimary->clear();
    for (int i = 0; i < kGroupCount; ++i) {
        const std::string_view name = i == kLegumesGroup ? std::string_view(kLegumesAsOffered) : kGroupNames[i];
        comPrimary->addItem(QString::fromLatin1(name.data(), static_cast<int>(name.size())));
    }
    comPrimary->setCurrentIndex(-1);
    comSecondary->clear();
    DisableGUI();
    for (int i = 0; i < kCustomNutrients; ++i) {
        optUnits[i]->setChecked(true);
        optDV[i]->setChecked(false);
    }
    SetToUnits();
    txtCalories->clear();
    fieldsFilled_ = {};
    EnableAdd();
    comPrimary->setFocus();
}

void AddFoodDialog::DisableGUI()
{
    labSecondary->setEnabled(false);
    // The typed subgroup goes; the group's list stays to be picked from.
    comSecondary->setCurrentIndex(-1);
    comSecondary->clearEditText();
    comSecondary->setEnabled(false);
    labDescription->setEnabled(false);
    txtDescription->clear();
    txtDescription->setEnabled(false);
    labUnitOfMeasure->setEnabled(false);
    txtMeasure->clear();
    txtMeasure->setEnabled(false);
    for (int i = 0; i < kCustomNutrients; ++i) {
        labNutrient[i]->setEnabled(false);
        txtNutrVal[i]->clear();
        txtNutrVal[i]->setEnabled(false);
        labMeasureCaption[i]->setEnabled(false);
        frameUnits[i]->setEnabled(false);
    }
}

void AddFoodDialog::EnableGUI()
{
    using Controls = std::initializer_list<QWidget*>;
    for (QWidget* control : Controls{labDescription, txtDescription, labUnitOfMeasure, txtMeasure})
        control->setEnabled(true);
    for (int i = 0; i < kCustomNutrients; ++i) {
        for (QWidget* control :
             Controls{labNutrient[i], txtNutrVal[i], labMeasureCaption[i], frameUnits[i], optUnits[i], optDV[i]})
            control->setEnabled(true);
    }
}

void AddFoodDialog::SetToUnits()
{
    for (int i = 0; i < kCustomNutrients; ++i)
        labMeasureCaption[i]->setText(QString::fromLatin1(kCustomUnitTexts[i]));
}

void AddFoodDialog::SetToDV()
{
    for (int i = 0; i < kCustomNutrients; ++i)
        labMeasureCaption[i]->setText(QString::fromLatin1(kPercentCaption));
}

void AddFoodDialog::EnableAdd() { btnAdd->setEnabled(fieldsFilled_.AddOffered()); }

void AddFoodDialog::comPrimary_Click()
{
    if (comPrimary->currentText().isEmpty()) {
        labSecondary->setEnabled(false);
        comSecondary->setEnabled(false);
        comSecondary->clear();
        return;
    }
    labSecondary->setEnabled(true);
    comSecondary->setEnabled(true);
    comSecondary->clear();
    // The subgroups of the group at this place of the list, found by the
    // name the table gives it (the list spells one group its own way).
    const int index = comPrimary->currentIndex();
    const std::string_view group = kGroupNames[static_cast<std::size_t>(index)];
    for (const std::string& subgroup : GroupSubgroups(session_.foodTable, session_.tierMap, group))
        comSecondary->addItem(QString::fromLatin1(subgroup));
    comSecondary->setCurrentIndex(-1);
    // Clearing the subgroup is a change of it.
    comSecondary_Change();
}

void AddFoodDialog::comSecondary_Change()
{
    if (!comSecondary->currentText().isEmpty()) {
        EnableGUI();
        return;
    }
    const bool typing = comSecondary->hasFocus();
    DisableGUI();
    comSecondary->setEnabled(true);
    labSecondary->setEnabled(true);
    if (typing)
        comSecondary->setFocus();
}

void AddFoodDialog::txtDescription_KeyUp()
{
    fieldsFilled_.Set(kDescriptionField, !txtDescription->text().isEmpty());
    EnableAdd();
}

void AddFoodDialog::txtMeasure_KeyUp()
{
    fieldsFilled_.Set(kMeasureField, !txtMeasure->text().isEmpty());
    EnableAdd();
}

void AddFoodDialog::txtNutrVal_KeyUp(int row)
{
    QLineEdit* box = txtNutrVal[static_cast<std::size_t>(row)];
    if (!KeepNumbersOnly(*box, seams_.prompts))
        return;  // the emptied box comes back here
    const QString text = box->text();
    fieldsFilled_.Set(kFirstNutrientField + row, !text.isEmpty());
    EnableAdd();
}

void AddFoodDialog::optUnits_Click(int row)
{
    labMeasureCaption[static_cast<std::size_t>(row)]->setText(QString::fromLatin1(kCustomUnitTexts[row]));
}

void AddFoodDialog::optDV_Click(int row)
{
    labMeasureCaption[static_cast<std::size_t>(row)]->setText(QString::fromLatin1(kPercentCaption));
}

void AddFoodDialog::btnAdd_Click()
{
    const auto say = [this](const std::string& text, const char* title, MsgIcon icon,
                            MsgButtons buttons = MsgButtons::Ok) {
        return seams_.prompts.Message(text, std::string(title), icon, buttons);
    };
    const std::string question = AddFoodQuestion(ToLatin1(comSecondary->currentText()),
                                                 ToLatin1(txtDescription->text()), ToLatin1(txtMeasure->text()));
    if (say(question, texts::kTitleAddToDatabase, MsgIcon::Question, MsgButtons::YesNo) != MsgResult::Yes) {
        say(texts::kOperationCancelled, texts::kTitleAddToDatabase, MsgIcon::Information);
        return;
    }
    txtDescription->setText(QString::fromLatin1(CapitalizeFirst(ToLatin1(txtDescription->text()))));

    std::array<std::int32_t, kCustomNutrients> rows{};
    for (int i = 0; i < kCustomNutrients; ++i) {
        rows[static_cast<std::size_t>(i)] =
            CustomNutrientValue(i, ToLatin1(txtNutrVal[i]->text()), optDV[i]->isChecked());
    }
    const NutrientValues values = CustomFoodValues(rows);
    txtCalories->setText(QString::number(values[kCalories]));

    // The messages name the food as the boxes hold it; the insert trims its
    // own copies.
    const std::string shownSubgroup = ToLatin1(comSecondary->currentText());
    const std::string shownDescription = ToLatin1(txtDescription->text());
    const std::string shownMeasure = ToLatin1(txtMeasure->text());
    std::string subgroup = shownSubgroup, description = shownDescription, measure = shownMeasure;
    const std::int16_t result = session_.foodInserter.InsertFood(
        session_.foodTable, ToLatin1(comPrimary->currentText()), subgroup, description, measure, values);
    if (ClosedForNoRoom(result))
        return;
    if (result < 0) {
        say(AddFoodExists(shownSubgroup, shownDescription, shownMeasure), texts::kTitleNotAdded,
            MsgIcon::Exclamation);
        return;
    }
    say(AddFoodAdded(shownSubgroup, shownDescription, shownMeasure), texts::kTitleAdded, MsgIcon::Information);
    session_.foodTable.DatabaseDirty = true;
    emit foodTableChanged();
    QDialog::accept();
}

}  // namespace pw
