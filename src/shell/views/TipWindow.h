#pragma once
// The tip of the day, shown before the main window while tips are on.
#include <QDialog>
#include <string>
#include <vector>

class QCheckBox;
class QLabel;
class QPushButton;

namespace pw {

struct Session;

class TipWindow : public QDialog {
    Q_OBJECT
public:
    explicit TipWindow(Session& session, QWidget* parent = nullptr);

    // Reads tips.txt and shows the next tip; a missing or over-long file is
    // a run-time error.
    void Form_Load();
    void ShowNextTip();

signals:
    // The window has gone: the main window comes next.
    void finishedShowing();

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    // The controls; each one's objectName is its member name.
    QLabel* Label1 = nullptr;
    QLabel* lblTipText = nullptr;
    QLabel* Picture1 = nullptr;
    QCheckBox* chkLoadTipsAtStartup = nullptr;
    QPushButton* cmdNextTip = nullptr;
    QPushButton* cmdOK = nullptr;
    // The window is done with: the main window comes next, once.
    void Finish();
    Session& session_;
    std::vector<std::string> tips_;
    bool finished_ = false;
};

}  // namespace pw
