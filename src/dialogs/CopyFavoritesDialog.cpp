#include "dialogs/CopyFavoritesDialog.h"

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
#include "foodlist/FoodListPage.h"
#include "shell/ErrorGuard.h"
#include "shell/MainWindow.h"
#include "shell/Seams.h"
#include "shell/Session.h"

namespace pw {

namespace {

constexpr int kHelpContextCopy = 9;

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

CopyFavoritesDialog::CopyFavoritesDialog(Session& session, Seams& seams, MainWindow& main, QWidget* parent)
    : QDialog(parent), session_(session), seams_(seams), main_(main)
{
    BuildControls();
    const auto guarded = [this](auto work) { return [this, work] { RunGuarded(guard, work); }; };
    connect(comSubgroup, &QComboBox::editTextChanged, this, guarded([this] { EnableCopy(); }));
    connect(txtDescription, &QLineEdit::textChanged, this, guarded([this] { EnableCopy(); }));
    connect(btnCopy, &QPushButton::clicked, this, guarded([this] { btnCopy_Click(); }));
    connect(btnCancel, &QPushButton::clicked, this, guarded([this] { btnCancel_Click(); }));
    connect(btnHelp, &QPushButton::clicked, this, guarded([this] { btnHelp_Click(); }));
    EnableCopy();
}

void CopyFavoritesDialog::BuildControls()
{
    setObjectName(QStringLiteral("frmCopy"));
    setWindowTitle(QStringLiteral("Copy Item to Favorites"));

    labFoodGroupLabel = MakeLabel(this, "labFoodGroupLabel", "Food Group:");
    labFoodGroup = MakeLabel(this, "labFoodGroup", "Favorites");
    QFont bold = labFoodGroup->font();
    bold.setBold(true);
    labFoodGroup->setFont(bold);
    labChooseSubGroupLabel = MakeLabel(this, "labChooseSubGroupLabel", "Choose subgroup:");
    comSubgroup = new QComboBox(this);
    comSubgroup->setObjectName(QStringLiteral("comSubgroup"));
    comSubgroup->setToolTip(QStringLiteral("Select (or enter) secondary group"));
    comSubgroup->setEditable(true);
    comSubgroup->setInsertPolicy(QComboBox::NoInsert);
    comSubgroup->setCompleter(nullptr);
    comSubgroup->lineEdit()->setMaxLength(kMaxTextField);
    labDescriptionLabel = MakeLabel(this, "labDescriptionLabel", "Enter description:");
    txtDescription = new QLineEdit(this);
    txtDescription->setObjectName(QStringLiteral("txtDescription"));
    txtDescription->setToolTip(QStringLiteral("Enter description"));
    txtDescription->setMaxLength(kMaxTextField);
    labUnitOfMeasureLabel = MakeLabel(this, "labUnitOfMeasureLabel", "Unit of measure:");
    labMeasure = MakeLabel(this, "labMeasure", "");
    btnCopy = MakeButton(this, "btnCopy", "Copy", "Copy item to favorites");
    btnCancel = MakeButton(this, "btnCancel", "Cancel", nullptr);
    btnHelp = MakeButton(this, "btnHelp", "Help", nullptr);

    auto* fields = new QGridLayout;
    QWidget* const rows[4][2] = {{labFoodGroupLabel, labFoodGroup},
                                 {labChooseSubGroupLabel, comSubgroup},
                                 {labDescriptionLabel, txtDescription},
                                 {labUnitOfMeasureLabel, labMeasure}};
    for (int r = 0; r < 4; ++r) {
        fields->addWidget(rows[r][0], r, 0);
        fields->addWidget(rows[r][1], r, 1);
    }
    fields->setColumnStretch(1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {btnCopy, btnCancel, btnHelp})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 60);
}

void CopyFavoritesDialog::Form_Activate()
{
    const FoodListPage& chooser = *main_.foodListPage;
    comSubgroup->clear();
    for (const std::string& subgroup :
         GroupSubgroups(session_.foodTable, session_.tierMap, std::string(kFavoritesGroup)))
        comSubgroup->addItem(QString::fromLatin1(subgroup));
    // The chosen food's own subgroup when Favorites has one of that name.
    comSubgroup->setCurrentIndex(comSubgroup->findText(chooser.comTier1->currentText(), Qt::MatchExactly |
                                                                                          Qt::MatchCaseSensitive));
    if (comSubgroup->currentIndex() < 0)
        comSubgroup->clearEditText();
    txtDescription->setText(chooser.comTier2->currentText());
    labMeasure->setText(chooser.comTier3->currentText());
    EnableCopy();
    comSubgroup->setFocus();
}

void CopyFavoritesDialog::EnableCopy()
{
    btnCopy->setEnabled(!comSubgroup->currentText().isEmpty() && !txtDescription->text().isEmpty());
}

void CopyFavoritesDialog::btnCopy_Click()
{
    // The messages name the food as the boxes hold it; the insert trims its
    // own copies.
    const std::string shownSubgroup = Latin1(comSubgroup->currentText());
    const std::string shownDescription = Latin1(txtDescription->text());
    const std::string shownMeasure = Latin1(labMeasure->text());
    std::string subgroup = shownSubgroup, description = shownDescription, measure = shownMeasure;
    const std::int16_t result =
        session_.foodInserter.InsertFood(session_.foodTable, std::string(kFavoritesGroup), subgroup, description,
                                         measure, session_.foodTable.Values(session_.chooser.currentFood));
    if (result == kInsertNoRoom) {
        main_.DatabaseMaxedOut();
        QDialog::reject();
        return;
    }
    if (result < 0) {
        seams_.prompts.Message(CopyExists(shownSubgroup, shownDescription, shownMeasure),
                               std::string(texts::kTitleUnableToCopy), MsgIcon::Exclamation);
        return;
    }
    seams_.prompts.Message(CopiedToFavorites(shownSubgroup, shownDescription, shownMeasure),
                           std::string(texts::kTitleCopied), MsgIcon::Information);
    QDialog::accept();
    main_.foodListPage->RebuildTierMap();
    main_.foodListPage->DisableTiers();
}

void CopyFavoritesDialog::btnCancel_Click() { QDialog::reject(); }

void CopyFavoritesDialog::reject()
{
    RunGuarded(guard, [this] { btnCancel_Click(); });
}

void CopyFavoritesDialog::btnHelp_Click()
{
    seams_.help.ShowHelp(InFolder(session_.programFolder, QStringLiteral("Pw.hlp")), kHelpContext, kHelpContextCopy);
}

void CopyFavoritesDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    // Each opening, not a window manager's restore, takes the chosen food
    // afresh.
    if (!event->spontaneous())
        RunGuarded(guard, [this] { Form_Activate(); });
}

}  // namespace pw
