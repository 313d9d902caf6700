#pragma once
// What the dialogs that add foods to the table share: they are created once
// and hidden rather than destroyed, fill themselves afresh each time they
// are shown, leave alike by Cancel, Escape or the close box, open help at
// their own topic, and run their handlers inside the main window's error
// guard.
#include <QDialog>
#include <cstdint>
#include <string>

#include "core/views/Widgets.h"
#include "core/views/ErrorGuard.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace pw {

class Prompts;
struct Seams;
struct FoodSession;

class FoodTableDialog : public QDialog {
    Q_OBJECT
public:
    // Where run-time errors of the handlers go: the main window's own.
    ErrorGuard* const guard;

public slots:
    // Closing the window or Escape leave as Cancel does.
    void reject() override;

signals:
    // The dialog changed the food table: the chooser is rebuilt from it.
    void foodTableChanged();

protected:
    FoodTableDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, int helpContext, QWidget* parent);

    void showEvent(QShowEvent* event) override;
    // Runs at each opening (not when a window manager restores the window).
    virtual void Form_Activate() = 0;
    void btnCancel_Click();
    void btnHelp_Click();

    // The editable subgroup box of the Favorites dialogs, and its list: each
    // Favorites subgroup once, in table order.
    QComboBox* MakeFavoritesSubgroupBox(const char* tip);
    void FillFavoritesSubgroups(QComboBox* box) const;

    // An insert into a full table: the capacity message, and the dialog
    // closes. True when result says the table was full.
    bool ClosedForNoRoom(std::int16_t result);

    FoodSession& session_;
    Seams& seams_;

private:
    int helpContext_;
};

// The message of a table that holds 4,000 foods: no food can be added.
void TellDatabaseFull(Prompts& prompts);

// The dialogs' labels show plain text; their buttons never become the
// default on focus.
inline QLabel* MakeDialogLabel(QWidget* parent, const QString& name, const char* caption)
{
    return MakeLabel(parent, name, caption);
}
inline QPushButton* MakeDialogButton(QWidget* parent, const char* name, const char* caption, const char* tip)
{
    return MakeButton(parent, name, caption, tip, ButtonDefault::Never);
}

}  // namespace pw
