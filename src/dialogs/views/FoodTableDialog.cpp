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

OnceDialog::OnceDialog(const std::string& programFolder, Seams& seams, ErrorGuard* errorGuard, int helpContext,
                       QWidget* parent)
    : QDialog(parent), guard(errorGuard), seams_(seams), programFolder_(programFolder), helpContext_(helpContext)
{
    // F1 opens the dialog's topic, as its Help button does.
    new QShortcut(QKeySequence(Qt::Key_F1), this, this, [this] { RunGuarded(guard, [this] { btnHelp_Click(); }); });
}

void OnceDialog::reject()
{
    RunGuarded(guard, [this] { btnCancel_Click(); });
}

void OnceDialog::btnCancel_Click() { QDialog::reject(); }

void OnceDialog::btnHelp_Click() { OpenHelp(seams_.help, programFolder_, kHelpContext, helpContext_); }

FoodTableDialog::FoodTableDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, int helpContext,
                                 QWidget* parent)
    : OnceDialog(session.programFolder, seams, guard, helpContext, parent), session_(session)
{
}

void OnceDialog::showEvent(QShowEvent* event)
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
