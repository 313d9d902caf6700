#include "dialogs/views/FoodTableDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>

#include "fooddb/FoodEditing.h"
#include "fooddb/FoodGroups.h"
#include "foodlist/TierMap.h"
#include "core/views/Seams.h"
#include "foodlist/FoodSession.h"

namespace pw {

FoodTableDialog::FoodTableDialog(FoodSession& session, Seams& seams, ErrorGuard* errorGuard, int helpContext,
                                 QWidget* parent)
    : QDialog(parent), guard(errorGuard), session_(session), seams_(seams), helpContext_(helpContext)
{
    // F1 opens the dialog's topic, as its Help button does.
    new QShortcut(QKeySequence(Qt::Key_F1), this, this, [this] { RunGuarded(guard, [this] { btnHelp_Click(); }); });
}

void FoodTableDialog::reject()
{
    RunGuarded(guard, [this] { btnCancel_Click(); });
}

void FoodTableDialog::btnCancel_Click() { QDialog::reject(); }

void FoodTableDialog::btnHelp_Click()
{
    OpenHelp(seams_.help, session_.programFolder, kHelpContext, helpContext_);
}

void FoodTableDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        RunGuarded(guard, [this] { Form_Activate(); });
}

QComboBox* FoodTableDialog::MakeFavoritesSubgroupBox(const char* tip)
{
    auto* box = new QComboBox(this);
    box->setObjectName(QStringLiteral("comSubgroup"));
    box->setToolTip(QString::fromLatin1(tip));
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setCompleter(nullptr);
    box->lineEdit()->setMaxLength(kMaxTextField);
    return box;
}

void FoodTableDialog::FillFavoritesSubgroups(QComboBox* box) const
{
    box->clear();
    for (const std::string& subgroup :
         GroupSubgroups(session_.foodTable, session_.tierMap, std::string(kFavoritesGroup)))
        box->addItem(QString::fromLatin1(subgroup));
}

bool FoodTableDialog::ClosedForNoRoom(std::int16_t result)
{
    if (result != kInsertNoRoom)
        return false;
    TellDatabaseFull(seams_.prompts);
    QDialog::reject();
    return true;
}


void TellDatabaseFull(Prompts& prompts)
{
    prompts.Message(std::string(texts::kDatabaseMaxedOut), std::string(texts::kTitleNoRoom), MsgIcon::Critical);
}

}  // namespace pw
