#pragma once
// Shows the help file one page at a time: the page of a context number, the
// keyword index, the page on using help, and the pages that hold the words
// of a search. Back and Forward walk the pages read; the window keeps its
// size from one run to the next.
#include <QByteArray>
#include <QImage>
#include <QDialog>
#include <QString>

#include "core/views/Seams.h"
#include "shell/HelpTopics.h"

class QLineEdit;
class QPushButton;
class QTextBrowser;

namespace pw {

class HelpWindow : public QDialog {
    Q_OBJECT
public:
    // prompts asks before a web address is opened and tells a refused link.
    explicit HelpWindow(Prompts& prompts, QWidget* parent = nullptr);
    ~HelpWindow() override;

    // Loads the help file (read as Latin-1) and the pictures in the "help"
    // folder beside it; false when it cannot be read.
    bool LoadFile(const QString& path);
    // The page of this context number, or the first page when the file has
    // no such topic.
    void ShowTopic(int context);
    void ShowIndex();
    void ShowHelpOnHelp();
    // The page holding an anchor of the file; false when no page has it.
    bool ShowAnchor(const QString& anchor);
    // A page listing the pages that hold every word of the query.
    void Search(const QString& query);

    const HelpBook& Book() const { return book_; }

signals:
    // The user agreed to open this web address of a page in the browser.
    void webPageRequested(const QUrl& url);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    // The controls; each one's objectName is its member name (the page's
    // browser is "browserHelp").
    QTextBrowser* browser = nullptr;
    QPushButton* btnContents = nullptr;
    QPushButton* btnIndex = nullptr;
    QPushButton* btnBack = nullptr;
    QPushButton* btnForward = nullptr;
    QLineEdit* txtHelpSearch = nullptr;
    QPushButton* btnHelpSearch = nullptr;
    QPushButton* btnClose = nullptr;
    friend class HelpBrowser;
    // The HTML of a page of the browser: a page of the book, the search
    // results, or the built-in page on using help.
    QString PageHtml(const QUrl& url) const;
    // A picture of the help folder, or a null image for any other source.
    QImage Picture(const QUrl& source) const;
    QString SearchResultsHtml(const QString& query) const;
    void FollowLink(const QUrl& url);

    Prompts& prompts_;
    QString folder_;
    QByteArray bytes_;
    HelpBook book_;
};

}  // namespace pw
