#include "dialogs/views/FavoritesDialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <iterator>

#include "core/views/ErrorGuard.h"
#include "core/views/StoredTextValidator.h"
#include "fooddb/FoodTable.h"

namespace pw {

void FavoritesDialog::BuildFavoritesForm(const char* subgroupTip, const char* descriptionTip,
                                         const char* measureCaption, QWidget* measureField, QPushButton* action)
{
    labFoodGroupLabel = MakeDialogLabel(this, QStringLiteral("labFoodGroupLabel"), "Food Group:");
    labFoodGroup = MakeDialogLabel(this, QStringLiteral("labFoodGroup"), "Favorites");
    QFont bold = labFoodGroup->font();
    bold.setBold(true);
    labFoodGroup->setFont(bold);
    labChooseSubGroupLabel = MakeDialogLabel(this, QStringLiteral("labChooseSubGroupLabel"), "Choose subgroup:");
    comSubgroup = MakeFavoritesSubgroupBox(subgroupTip);
    labDescriptionLabel = MakeDialogLabel(this, QStringLiteral("labDescriptionLabel"), "Enter description:");
    txtDescription = new QLineEdit(this);
    txtDescription->setObjectName(QStringLiteral("txtDescription"));
    txtDescription->setToolTip(QString::fromLatin1(descriptionTip));
    txtDescription->setMaxLength(kMaxTextField);
    KeepStorable(comSubgroup, seams_.prompts);
    KeepStorable(txtDescription, seams_.prompts);
    labUnitOfMeasureLabel = MakeDialogLabel(this, QStringLiteral("labUnitOfMeasureLabel"), measureCaption);
    btnCancel = MakeDialogButton(this, "btnCancel", "Cancel", nullptr);
    btnHelp = MakeDialogButton(this, "btnHelp", "Help", nullptr);
    ConnectGuarded(btnCancel, &QPushButton::clicked, this, [this] { btnCancel_Click(); }, guard);
    ConnectGuarded(btnHelp, &QPushButton::clicked, this, [this] { btnHelp_Click(); }, guard);

    auto* fields = new QGridLayout;
    QWidget* const rows[4][2] = {{labFoodGroupLabel, labFoodGroup},
                                 {labChooseSubGroupLabel, comSubgroup},
                                 {labDescriptionLabel, txtDescription},
                                 {labUnitOfMeasureLabel, measureField}};
    for (int r = 0; r < 4; ++r) {
        fields->addWidget(rows[r][0], r, 0);
        fields->addWidget(rows[r][1], r, 1);
    }
    fields->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {action, btnCancel, btnHelp})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 60);
    // Keys move down the form, then along the buttons.
    QWidget* const order[] = {comSubgroup, txtDescription, measureField, action, btnCancel, btnHelp};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

}  // namespace pw
