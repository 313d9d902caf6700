#include "foodlist/FoodListPage.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

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

QLabel* MakeLabel(QWidget* parent, const QString& name, const char* caption)
{
    auto* label = new QLabel(QString::fromLatin1(caption), parent);
    label->setObjectName(name);
    return label;
}

QPushButton* MakeButton(QWidget* parent, const char* name, const char* caption, const char* tip)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    if (tip)
        button->setToolTip(QString::fromLatin1(tip));
    return button;
}

constexpr const char* kNutrientCaptions[8] = {"Calories", "Protein", "Carbos.", "Fats",
                                              "Cholest.", "Fiber", "Calcium", "Sodium"};

}  // namespace

FoodListPage::FoodListPage(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pageFoodList"));
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(4, 4, 4, 4);
    outer->setSpacing(3);

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
    labOf = MakeLabel(this, QStringLiteral("labOf"), "of");
    comTier3 = MakeCombo(this, "comTier3", "Select unit of measure");
    labTier[3]->setBuddy(comQuantity);
    quantityRow->addWidget(labTier[3]);
    quantityRow->addWidget(comQuantity);
    quantityRow->addWidget(labOf);
    quantityRow->addWidget(comTier3, 1);
    outer->addLayout(quantityRow);

    auto* panel = new QGridLayout;
    panel->setHorizontalSpacing(6);
    panel->setVerticalSpacing(0);
    for (int i = 0; i < 8; ++i) {
        labNutr[i] = MakeLabel(this, QStringLiteral("labNutr%1").arg(i), kNutrientCaptions[i]);
        labNutrVal[i] = MakeLabel(this, QStringLiteral("labNutrVal%1").arg(i), "");
        labNutrUnit[i] = MakeLabel(this, QStringLiteral("labNutrUnit%1").arg(i), "");
        labNutrVal[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        labNutrVal[i]->setMinimumWidth(32);
        const int row = i / 4;
        const int column = (i % 4) * 3;
        panel->addWidget(labNutr[i], row, column);
        panel->addWidget(labNutrVal[i], row, column + 1);
        panel->addWidget(labNutrUnit[i], row, column + 2);
    }
    outer->addLayout(panel);

    auto* buttons = new QHBoxLayout;
    btnNewItem = MakeButton(this, "btnNewItem", "New Item", "Select new item to add to list");
    btnSearch = MakeButton(this, "btnSearch", "Search", "Search database");
    btnAcceptItem = MakeButton(this, "btnAcceptItem", "Add to List", "Accept and add item to list");
    btnDeleteItem = MakeButton(this, "btnDeleteItem", "Delete from List", "Delete item from list");
    btnTab2Help = MakeButton(this, "btnTab2Help", "Help", nullptr);
    for (auto* b : {btnNewItem, btnSearch, btnAcceptItem, btnDeleteItem, btnTab2Help})
        buttons->addWidget(b);
    outer->addLayout(buttons);
    outer->addStretch(1);

    DisableTiers();
    // Choosing a food arrives with the chooser; until then a new item
    // cannot be started.
    btnNewItem->setEnabled(false);
    btnDeleteItem->setEnabled(false);
}

void FoodListPage::SetGroupList(const std::vector<std::string>& groups)
{
    comTier0->clear();
    for (const auto& group : groups)
        comTier0->addItem(QString::fromLatin1(group));
    comTier0->setCurrentIndex(-1);
}

void FoodListPage::FillQuantityList()
{
    comQuantity->clear();
    for (const char* fraction : {"1/8", "1/4", "1/3", "3/8", "1/2", "5/8", "2/3", "3/4", "7/8"})
        comQuantity->addItem(QString::fromLatin1(fraction));
    for (int n = 1; n <= 8; ++n)
        comQuantity->addItem(QStringLiteral(" %1").arg(n));
    comQuantity->setCurrentIndex(9);
}

void FoodListPage::SetUnitCaptions(bool byDV)
{
    static constexpr const char* kUnits[8] = {"", "g", "mg", "g", "mg", "mg", "mg", "mg"};
    for (int i = 0; i < 8; ++i)
        labNutrUnit[i]->setText(byDV ? QStringLiteral("%DV") : QString::fromLatin1(kUnits[i]));
}

void FoodListPage::DisableTiers()
{
    comTier0->setCurrentIndex(-1);
    comTier0->setEnabled(false);
    labTier[0]->setEnabled(false);
    for (QComboBox* combo : {comTier1, comTier2, comTier3}) {
        combo->clear();
        combo->setEnabled(false);
    }
    for (int t = 1; t < 4; ++t)
        labTier[t]->setEnabled(false);
    labOf->setEnabled(false);
    comQuantity->setEnabled(false);
    for (int i = 0; i < 8; ++i) {
        labNutr[i]->setEnabled(false);
        labNutrVal[i]->setEnabled(false);
        labNutrUnit[i]->setEnabled(false);
        labNutrVal[i]->clear();
    }
    btnAcceptItem->setEnabled(false);
    btnSearch->setEnabled(false);
}

}  // namespace pw
