#pragma once
#include <QWidget>

#include "shell/Seams.h"
#include "shell/Session.h"

namespace pw {

// The profile tab of the main window.
class ProfilePage : public QWidget {
    Q_OBJECT
public:
    ProfilePage(Session& session, Seams& seams, QWidget* parent = nullptr);

    void ValidateTab1Data();
    void ReadDefaultPWP();
    void WriteDefaultPWP();

signals:
    // Emitted by every validation with its outcome; the main window enables
    // the food-list and analysis tabs, the grid and the view menu from it and,
    // when valid, updates the summary.
    void profileValidated(bool valid);

private:
    Session& session_;
    Seams& seams_;
};

}  // namespace pw
