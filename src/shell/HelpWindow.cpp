#include "shell/HelpWindow.h"

#include <QFile>
#include <algorithm>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace pw {

namespace {

const char* const kHelpOnHelp =
    "<h2>How to use Help</h2>"
    "<p>Help opens at the topic of the window or command you asked it from. "
    "Links in a topic lead to related topics.</p>"
    "<ul><li><b>Contents</b> goes to the start of the help, with the list of topics.</li>"
    "<li><b>Index</b> lists every topic by name; click one to read it.</li>"
    "<li><b>Back</b> returns to the page you read before.</li>"
    "<li><b>Close</b> (or Esc) closes help; Platewell stays as it was.</li></ul>"
    "<p>Use the arrow and Page keys to scroll, Tab to move between links and Enter to follow one.</p>";

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("Platewell Help"));
    browser = new QTextBrowser(this);
    browser->setObjectName(QStringLiteral("browserHelp"));
    browser->setOpenLinks(true);
    browser->setOpenExternalLinks(false);
    btnContents = new QPushButton(QStringLiteral("&Contents"), this);
    btnIndex = new QPushButton(QStringLiteral("&Index"), this);
    btnBack = new QPushButton(QStringLiteral("&Back"), this);
    btnClose = new QPushButton(QStringLiteral("Close"), this);
    btnContents->setObjectName(QStringLiteral("btnContents"));
    btnIndex->setObjectName(QStringLiteral("btnIndex"));
    btnBack->setObjectName(QStringLiteral("btnBack"));
    btnClose->setObjectName(QStringLiteral("btnClose"));

    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {btnContents, btnIndex, btnBack})
        buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(btnClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(browser, 1);
    resize(560, 480);

    connect(btnContents, &QPushButton::clicked, this, [this] { ShowTopic(0); });
    connect(btnIndex, &QPushButton::clicked, this, [this] { ShowIndex(); });
    connect(btnBack, &QPushButton::clicked, browser, &QTextBrowser::backward);
    connect(browser, &QTextBrowser::backwardAvailable, btnBack, &QPushButton::setEnabled);
    connect(btnClose, &QPushButton::clicked, this, &QDialog::close);
    // The index and help-on-help pages link into the file by anchor.
    connect(browser, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        if (!showingFile_ && url.hasFragment() && url.path().isEmpty()) {
            ShowFile();
            browser->scrollToAnchor(url.fragment());
        }
    });
    btnBack->setEnabled(false);
}

bool HelpWindow::LoadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    path_ = path;
    html_ = QString::fromLatin1(bytes);
    topics_ = HelpTopics(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    showingFile_ = false;
    return true;
}

void HelpWindow::ShowFile()
{
    if (!showingFile_) {
        browser->setHtml(html_);
        showingFile_ = true;
    }
}

void HelpWindow::ShowTopic(int context)
{
    ShowFile();
    const QString anchor = QString::fromStdString(HelpAnchor(context));
    bool known = false;
    for (const HelpTopic& topic : topics_)
        known = known || topic.context == context;
    if (known)
        browser->scrollToAnchor(anchor);
    else {
        browser->moveCursor(QTextCursor::Start);
        browser->verticalScrollBar()->setValue(0);
    }
}

void HelpWindow::ShowIndex()
{
    QString page = QStringLiteral("<h2>Index</h2><ul>");
    std::vector<HelpTopic> sorted = topics_;
    std::sort(sorted.begin(), sorted.end(),
              [](const HelpTopic& a, const HelpTopic& b) { return a.title < b.title; });
    for (const HelpTopic& topic : sorted)
        page += QStringLiteral("<li><a href=\"#%1\">%2</a></li>")
                    .arg(QString::fromStdString(HelpAnchor(topic.context)),
                         QString::fromLatin1(topic.title).toHtmlEscaped());
    page += QStringLiteral("</ul>");
    browser->setHtml(page);
    showingFile_ = false;
}

void HelpWindow::ShowHelpOnHelp()
{
    browser->setHtml(QString::fromLatin1(kHelpOnHelp));
    showingFile_ = false;
}

}  // namespace pw
