#pragma once
// Shows the help file: its topics by context number, an index of them, and a
// page on using the help window itself.
#include <QDialog>
#include <vector>

#include "shell/HelpTopics.h"

class QTextBrowser;
class QPushButton;

namespace pw {

class HelpWindow : public QDialog {
    Q_OBJECT
public:
    explicit HelpWindow(QWidget* parent = nullptr);

    // Loads the help file (read as Latin-1); false when it cannot be read.
    bool LoadFile(const QString& path);
    // The topic with this context number, or the start of the file when the
    // file has no such topic.
    void ShowTopic(int context);
    void ShowIndex();
    void ShowHelpOnHelp();

    QTextBrowser* browser = nullptr;
    QPushButton* btnContents = nullptr;
    QPushButton* btnIndex = nullptr;
    QPushButton* btnBack = nullptr;
    QPushButton* btnClose = nullptr;

private:
    void ShowFile();

    QString path_;
    QString html_;
    std::vector<HelpTopic> topics_;
    bool showingFile_ = false;
};

}  // namespace pw
