#pragma once
// The about box: program, data and help file versions.
#include <QDialog>

class QLabel;
class QPushButton;

namespace pw {

struct Session;

class AboutBox : public QDialog {
    Q_OBJECT
public:
    explicit AboutBox(const Session& session, QWidget* parent = nullptr);

private:
    // The controls; each one's objectName is its member name.
    QLabel* labTitle = nullptr;
    QLabel* labVersion = nullptr;
    QLabel* labDataVersion = nullptr;
    QLabel* labHelpVersion = nullptr;
    QLabel* Label1 = nullptr;
    QPushButton* cmdOK = nullptr;
};

}  // namespace pw
