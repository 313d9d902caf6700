#include "dialogs/SaveDishDialog.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "fooddb/FoodEditing.h"
#include "fooddb/FoodGroups.h"
#include "foodlist/FoodListGrid.h"
#include "foodlist/FoodListPage.h"
#include "shell/ErrorGuard.h"
#include "shell/MainWindow.h"
#include "shell/Seams.h"
#include "shell/Session.h"

namespace pw {

namespace {

constexpr int kHelpContextSaveDish = 6;

QLabel* MakeLabel(QWidget* parent, const char* name, const char* caption)
{
    auto* label = new QLabel(QString::fromLatin1(caption), parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* MakeButton(QWidget* parent, const char* name, const char* caption, const char* tip)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    if (tip)
        button->setToolTip(QString::fromLatin1(tip));
    button->setAutoDefault(false);
    return button;
}

std::string Latin1(const QString& text) { return text.toLatin1().toStdString(); }

}  // namespace

SaveDishDialog::SaveDishDialog(Session& session, Seams& seams, MainWindow& main, QWidget* parent)
    : QDialog(parent), session_(session), seams_(seams), main_(main)
{
    BuildControls();
    const auto guarded = [this](auto work) { return [this, work] { RunGuarded(guard, work); }; };
    connect(comSubgroup, &QComboBox::editTextChanged, this, guarded([this] { EnableSave(); }));
    connect(txtDescription, &QLineEdit::textChanged, this, guarded([this] { EnableSave(); }));
    connect(txtMeasure, &QLineEdit::textChanged, this, guarded([this] { EnableSave(); }));
    connect(btnSaveList, &QPushButton::clicked, this, guarded([this] { btnSaveList_Click(); }));
    connect(btnCancel, &QPushButton::clicked, this, guarded([this] { btnCancel_Click(); }));
    connect(btnHelp, &QPushButton::clicked, this, guarded([this] { btnHelp_Click(); }));
    EnableSave();
}

void SaveDishDialog::BuildControls()
{
    setObjectName(QStringLiteral("frmSaveList"));
    setWindowTitle(QStringLiteral("Save List"));

    labFoodGroupLabel = MakeLabel(this, "labFoodGroupLabel", "Food Group:");
    labFoodGroup = MakeLabel(this, "labFoodGroup", "Favorites");
    QFont bold = labFoodGroup->font();
    bold.setBold(true);
    labFoodGroup->setFont(bold);
    labChooseSubGroupLabel = MakeLabel(this, "labChooseSubGroupLabel", "Choose subgroup:");
    comSubgroup = new QComboBox(this);
    comSubgroup->setObjectName(QStringLiteral("comSubgroup"));
    comSubgroup->setToolTip(QStringLiteral("Select (or enter) secondary food group"));
    comSubgroup->setEditable(true);
    comSubgroup->setInsertPolicy(QComboBox::NoInsert);
    comSubgroup->setCompleter(nullptr);
    comSubgroup->lineEdit()->setMaxLength(kMaxTextField);
    labDescriptionLabel = MakeLabel(this, "labDescriptionLabel", "Enter description:");
    txtDescription = new QLineEdit(this);
    txtDescription->setObjectName(QStringLiteral("txtDescription"));
    txtDescription->setToolTip(QStringLiteral("Enter the description of the food item"));
    txtDescription->setMaxLength(kMaxTextField);
    labUnitOfMeasureLabel = MakeLabel(this, "labUnitOfMeasureLabel", "Enter Unit of measure:");
    txtMeasure = new QLineEdit(this);
    txtMeasure->setObjectName(QStringLiteral("txtMeasure"));
    txtMeasure->setToolTip(QStringLiteral("Enter the unit of measure for this food item"));
    txtMeasure->setMaxLength(kMaxTextField);
    btnSaveList = MakeButton(this, "btnSaveList", "Save List", "Save list as custom dish");
    btnCancel = MakeButton(this, "btnCancel", "Cancel", nullptr);
    btnHelp = MakeButton(this, "btnHelp", "Help", nullptr);

    auto* fields = new QGridLayout;
    QWidget* const rows[4][2] = {{labFoodGroupLabel, labFoodGroup},
                                 {labChooseSubGroupLabel, comSubgroup},
                                 {labDescriptionLabel, txtDescription},
                                 {labUnitOfMeasureLabel, txtMeasure}};
    for (int r = 0; r < 4; ++r) {
        fields->addWidget(rows[r][0], r, 0);
        fields->addWidget(rows[r][1], r, 1);
    }
    fields->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {btnSaveList, btnCancel, btnHelp})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 60);
}

void SaveDishDialog::Form_Activate()
{
    txtDescription->clear();
    txtMeasure->clear();
    comSubgroup->clear();
    for (const std::string& subgroup :
         GroupSubgroups(session_.foodTable, session_.tierMap, std::string(kFavoritesGroup)))
        comSubgroup->addItem(QString::fromLatin1(subgroup));
    comSubgroup->setCurrentIndex(-1);
    comSubgroup->clearEditText();
    EnableSave();
    comSubgroup->setFocus();
}

void SaveDishDialog::EnableSave()
{
    btnSaveList->setEnabled(!comSubgroup->currentText().isEmpty() && !txtDescription->text().isEmpty() &&
                            !txtMeasure->text().isEmpty());
}

void SaveDishDialog::btnSaveList_Click()
{
    txtDescription->setText(QString::fromLatin1(CapitalizeFirst(Latin1(txtDescription->text()))));
    // The messages name the dish as the boxes hold it; the insert trims its
    // own copies.
    const std::string shownSubgroup = Latin1(comSubgroup->currentText());
    const std::string shownDescription = Latin1(txtDescription->text());
    const std::string shownMeasure = Latin1(txtMeasure->text());
    std::string subgroup = shownSubgroup, description = shownDescription, measure = shownMeasure;
    const std::int16_t result =
        session_.foodInserter.InsertFood(session_.foodTable, std::string(kFavoritesGroup), subgroup, description,
                                         measure, session_.foodList.Totals());
    if (result == kInsertNoRoom) {
        // Nothing more fits: the dish cannot be saved whatever is typed.
        main_.DatabaseMaxedOut();
        QDialog::reject();
        return;
    }
    if (result < 0) {
        seams_.prompts.Message(DishExists(shownSubgroup, shownDescription, shownMeasure),
                               std::string(texts::kTitleUnableToAdd), MsgIcon::Exclamation);
        return;
    }
    if (seams_.prompts.Message(DishAddedQuestion(shownSubgroup, shownDescription, shownMeasure),
                               std::string(texts::kTitleAdded), MsgIcon::Question,
                               MsgButtons::YesNo) == MsgResult::Yes)
        main_.listGrid->ClearGrid();
    main_.foodListPage->RebuildTierMap();
    main_.mnuSaveAsDish->setEnabled(false);
    main_.foodListPage->DisableTiers();
    QDialog::accept();
}

void SaveDishDialog::btnCancel_Click() { QDialog::reject(); }

void SaveDishDialog::reject()
{
    RunGuarded(guard, [this] { btnCancel_Click(); });
}

void SaveDishDialog::btnHelp_Click()
{
    seams_.help.ShowHelp(InFolder(session_.programFolder, QStringLiteral("Pw.hlp")), kHelpContext,
                         kHelpContextSaveDish);
}

void SaveDishDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // Each opening, not a window manager's restore, starts empty.
    if (!event->spontaneous())
        RunGuarded(guard, [this] { Form_Activate(); });
}

}  // namespace pw
