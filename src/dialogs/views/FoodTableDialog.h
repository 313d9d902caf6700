#pragma once
// The dialogs created once and hidden rather than destroyed: each fills
// itself afresh every time it is shown, leaves alike by Cancel, Escape or
// the close box, opens help at its own topic (its Help button and F1), and
// runs its handlers inside the main window's error guard. The dialogs that
// add foods to the table share more on top of that.
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

class OnceDialog : public QDialog {
    Q_OBJECT
public slots:
    // Closing the window or Escape leave as Cancel does.
    void reject() override;

protected:
    // guard: where run-time errors of the handlers go, the main window's own.
    OnceDialog(const std::string& programFolder, Seams& seams, ErrorGuard* guard, int helpContext, QWidget* parent);

    void showEvent(QShowEvent* event) override;
    // Runs at each opening (not when a window manager restores the window).
    virtual void Form_Activate() = 0;
    // Cancel: the dialog hides.
    virtual void btnCancel_Click();
    void btnHelp_Click();

    ErrorGuard* const guard;  // where the handlers' run-time errors go
    Seams& seams_;

private:
    const std::string& programFolder_;
    int helpContext_;
};

class FoodTableDialog : public OnceDialog {
    Q_OBJECT
signals:
    // The dialog changed the food table: the chooser is rebuilt from it.
    void foodTableChanged();

protected:
    FoodTableDialog(FoodSession& session, Seams& seams, ErrorGuard* guard, int helpContext, QWidget* parent);

    // The editable subgroup box of the Favorites dialogs, and its list: each
    // Favorites subgroup once, in table order.
    QComboBox* MakeFavoritesSubgroupBox(const char* tip);
    void FillFavoritesSubgroups(QComboBox* box) const;

    // An insert into a full table: the capacity message, and the dialog
    // closes. True when result says the table was full.
    bool ClosedForNoRoom(std::int16_t result);

    FoodSession& session_;
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
