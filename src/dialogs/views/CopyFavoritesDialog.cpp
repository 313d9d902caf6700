#include "dialogs/views/CopyFavoritesDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "fooddb/FoodEditing.h"
#include "fooddb/FoodGroups.h"
#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "foodlist/FoodSession.h"

namespace pw {

namespace {


}  // namespace

CopyFavoritesDialog::CopyFavoritesDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, QWidget* parent)
    : FavoritesDialog(session, seams, guard, kTopicCopyToFavorites, parent)
{
    BuildControls();
    ConnectGuarded(SubgroupBox(), &QComboBox::editTextChanged, this, [this] { EnableCopy(); }, guard);
    ConnectGuarded(DescriptionBox(), &QLineEdit::textChanged, this, [this] { EnableCopy(); }, guard);
    ConnectGuarded(btnCopy, &QPushButton::clicked, this, [this] { btnCopy_Click(); }, guard);
    EnableCopy();
}

void CopyFavoritesDialog::BuildControls()
{
    setObjectName(QStringLiteral("frmCopy"));
    setWindowTitle(QStringLiteral("Copy Item to Favorites"));
    labMeasure = MakeDialogLabel(this, QStringLiteral("labMeasure"), "");
    btnCopy = MakeDialogButton(this, "btnCopy", "Copy", "Copy item to favorites");
    BuildFavoritesForm("Select (or enter) secondary group", "Enter description", "Unit of measure:", labMeasure,
                       btnCopy);
}

void CopyFavoritesDialog::Form_Activate()
{
    QComboBox* subgroup = SubgroupBox();
    FillFavoritesSubgroups(subgroup);
    // The chosen food's own subgroup when Favorites has one of that name.
    subgroup->setCurrentIndex(subgroup->findText(chosen_.subgroup, Qt::MatchExactly | Qt::MatchCaseSensitive));
    if (subgroup->currentIndex() < 0)
        subgroup->clearEditText();
    DescriptionBox()->setText(chosen_.description);
    labMeasure->setText(chosen_.measure);
    EnableCopy();
    subgroup->setFocus();
}

void CopyFavoritesDialog::EnableCopy()
{
    btnCopy->setEnabled(!SubgroupBox()->currentText().isEmpty() && !DescriptionBox()->text().isEmpty());
}

void CopyFavoritesDialog::btnCopy_Click()
{
    // The messages name the food as the boxes hold it; the insert trims its
    // own copies.
    const std::string shownSubgroup = ToLatin1(SubgroupBox()->currentText());
    const std::string shownDescription = ToLatin1(DescriptionBox()->text());
    const std::string shownMeasure = ToLatin1(labMeasure->text());
    std::string subgroup = shownSubgroup, description = shownDescription, measure = shownMeasure;
    const std::int16_t result =
        session_.foodInserter.InsertFood(session_.foodTable, std::string(kFavoritesGroup), subgroup, description,
                                         measure, session_.foodTable.Values(session_.chooser.currentFood));
    if (ClosedForNoRoom(result))
        return;
    if (result < 0) {
        seams_.prompts.Message(CopyExists(shownSubgroup, shownDescription, shownMeasure),
                               std::string(texts::kTitleUnableToCopy), MsgIcon::Exclamation);
        return;
    }
    seams_.prompts.Message(CopiedToFavorites(shownSubgroup, shownDescription, shownMeasure),
                           std::string(texts::kTitleCopied), MsgIcon::Information);
    QDialog::accept();
    emit foodTableChanged();
}

}  // namespace pw
