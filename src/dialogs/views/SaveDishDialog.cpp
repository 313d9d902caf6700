#include "dialogs/views/SaveDishDialog.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/views/StoredTextValidator.h"
#include "fooddb/FoodEditing.h"
#include "fooddb/FoodGroups.h"
#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "foodlist/FoodSession.h"

namespace pw {

namespace {


}  // namespace

SaveDishDialog::SaveDishDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent)
    : FavoritesDialog(session, seams, guard, kTopicFavoritesAndDishes, parent)
{
    BuildControls();
    ConnectGuarded(SubgroupBox(), &QComboBox::editTextChanged, this, [this] { EnableSave(); }, guard);
    ConnectGuarded(DescriptionBox(), &QLineEdit::textChanged, this, [this] { EnableSave(); }, guard);
    ConnectGuarded(txtMeasure, &QLineEdit::textChanged, this, [this] { EnableSave(); }, guard);
    ConnectGuarded(btnSaveList, &QPushButton::clicked, this, [this] { btnSaveList_Click(); }, guard);
    EnableSave();
}

void SaveDishDialog::BuildControls()
{
    setObjectName(QStringLiteral("frmSaveList"));
    setWindowTitle(QStringLiteral("Save List"));
    txtMeasure = new QLineEdit(this);
    txtMeasure->setObjectName(QStringLiteral("txtMeasure"));
    txtMeasure->setToolTip(QStringLiteral("Enter the unit of measure for this food item"));
    txtMeasure->setMaxLength(kMaxTextField);
    KeepStorable(txtMeasure, seams_.prompts);
    btnSaveList = MakeDialogButton(this, "btnSaveList", "Save List", "Save list as custom dish");
    BuildFavoritesForm("Select (or enter) secondary food group", "Enter the description of the food item",
                       "Enter Unit of measure:", txtMeasure, btnSaveList);
}

void SaveDishDialog::Form_Activate()
{
    QComboBox* subgroup = SubgroupBox();
    DescriptionBox()->clear();
    txtMeasure->clear();
    FillFavoritesSubgroups(subgroup);
    subgroup->setCurrentIndex(-1);
    subgroup->clearEditText();
    EnableSave();
    subgroup->setFocus();
}

void SaveDishDialog::EnableSave()
{
    btnSaveList->setEnabled(!SubgroupBox()->currentText().isEmpty() && !DescriptionBox()->text().isEmpty() &&
                            !txtMeasure->text().isEmpty());
}

void SaveDishDialog::btnSaveList_Click()
{
    DescriptionBox()->setText(QString::fromLatin1(CapitalizeFirst(ToLatin1(DescriptionBox()->text()))));
    // The messages name the dish as the boxes hold it; the insert trims its
    // own copies.
    const std::string shownSubgroup = ToLatin1(SubgroupBox()->currentText());
    const std::string shownDescription = ToLatin1(DescriptionBox()->text());
    const std::string shownMeasure = ToLatin1(txtMeasure->text());
    std::string subgroup = shownSubgroup, description = shownDescription, measure = shownMeasure;
    const std::int16_t result =
        session_.foodInserter.InsertFood(session_.foodTable, std::string(kFavoritesGroup), subgroup, description,
                                         measure, session_.foodList.Totals());
    if (ClosedForNoRoom(result))
        return;
    if (result < 0) {
        seams_.prompts.Message(DishExists(shownSubgroup, shownDescription, shownMeasure),
                               std::string(texts::kTitleUnableToAdd), MsgIcon::Exclamation);
        return;
    }
    const bool clearList = seams_.prompts.Message(DishAddedQuestion(shownSubgroup, shownDescription, shownMeasure),
                                                  std::string(texts::kTitleAdded), MsgIcon::Question,
                                                  MsgButtons::YesNo) == MsgResult::Yes;
    emit dishSaved(clearList);
    QDialog::accept();
}

}  // namespace pw
