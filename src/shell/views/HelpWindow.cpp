#include "shell/views/HelpWindow.h"

#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "core/views/Widgets.h"

#include <algorithm>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QImage>
#include <QImageReader>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrlQuery>
#include <QVBoxLayout>

namespace pw {

namespace {

// Pages of the browser are addressed as help:<page name>#<anchor>; the
// search results are help:search?q=<words>.
const QString kScheme = QStringLiteral("help");
const QString kSearchPage = QStringLiteral("search");
const QString kBuiltInHelpOnHelp = QStringLiteral("builtin-using-help");
const char* const kIndexPage = "index";
const char* const kHelpOnHelpPage = "using-help";
const char* const kSizeKey = "window/size";

// Shown when the help file has no page on using help (or cannot be read).
const char* const kHelpOnHelp =
    "<h1>How to use Help</h1>"
    "<p>Help opens at the topic of the window or command you asked it from. "
    "Links in a topic lead to related topics.</p>"
    "<ul><li><b>Contents</b> goes to the list of topics.</li>"
    "<li><b>Index</b> lists keywords; click one to read about it.</li>"
    "<li><b>Back</b> and <b>Forward</b> walk the pages you have read.</li>"
    "<li><b>Search</b> lists the topics that hold every word you type.</li>"
    "<li><b>Close</b> (or Esc) closes help; Platewell stays as it was.</li></ul>";


// The help window's size lives in the user's settings folder
// (~/.config/Platewell/help.ini), not in the program folder's pw.ini.
QSettings HelpSettings()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Platewell"), QStringLiteral("help"));
}

QUrl PageUrl(const QString& page, const QString& anchor = {})
{
    QUrl url;
    url.setScheme(kScheme);
    url.setPath(page);
    if (!anchor.isEmpty() && anchor != page)
        url.setFragment(anchor);
    return url;
}

}  // namespace

// The browser asks the window for its pages and pictures.
class HelpBrowser : public QTextBrowser {
public:
    HelpBrowser(HelpWindow& window) : QTextBrowser(&window), window_(window) {}

    // Every resource a page asks for is answered here, with a value even when
    // it is refused: an empty answer would let the document read a local
    // file (or a device) by itself.
    QVariant loadResource(int type, const QUrl& name) override
    {
        if (type == QTextDocument::ImageResource)
            return QVariant(window_.Picture(name));
        if (type == QTextDocument::HtmlResource && name.scheme() == kScheme)
            return window_.PageHtml(name);
        return QVariant(QByteArray());
    }

private:
    HelpWindow& window_;
};

HelpWindow::HelpWindow(Prompts& prompts, QWidget* parent) : QDialog(parent), prompts_(prompts)
{
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("Platewell Help"));
    setSizeGripEnabled(true);
    browser = new HelpBrowser(*this);
    browser->setObjectName(QStringLiteral("browserHelp"));
    browser->setOpenLinks(false);
    btnContents = new QPushButton(QStringLiteral("&Contents"), this);
    btnIndex = new QPushButton(QStringLiteral("&Index"), this);
    btnBack = new QPushButton(QStringLiteral("&Back"), this);
    btnForward = new QPushButton(QStringLiteral("&Forward"), this);
    txtHelpSearch = new QLineEdit(this);
    txtHelpSearch->setPlaceholderText(QStringLiteral("Words to find"));
    txtHelpSearch->setToolTip(QStringLiteral("Finds the topics that hold every word you type"));
    btnHelpSearch = new QPushButton(QStringLiteral("&Search"), this);
    btnClose = new QPushButton(QStringLiteral("Close"), this);
    btnContents->setObjectName(QStringLiteral("btnContents"));
    btnIndex->setObjectName(QStringLiteral("btnIndex"));
    btnBack->setObjectName(QStringLiteral("btnBack"));
    btnForward->setObjectName(QStringLiteral("btnForward"));
    txtHelpSearch->setObjectName(QStringLiteral("txtHelpSearch"));
    btnHelpSearch->setObjectName(QStringLiteral("btnHelpSearch"));
    btnClose->setObjectName(QStringLiteral("btnClose"));
    for (QPushButton* b : {btnContents, btnIndex, btnBack, btnForward, btnHelpSearch, btnClose})
        b->setAutoDefault(false);

    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {btnContents, btnIndex, btnBack, btnForward})
        buttons->addWidget(b);
    buttons->addSpacing(12);
    buttons->addWidget(txtHelpSearch, 1);
    buttons->addWidget(btnHelpSearch);
    buttons->addSpacing(12);
    buttons->addWidget(btnClose);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(browser, 1);

    const QSize remembered = HelpSettings().value(QString::fromLatin1(kSizeKey)).toSize();
    resize(remembered.isValid() && remembered.width() >= 300 && remembered.height() >= 200 ? remembered
                                                                                          : QSize(820, 640));

    connect(btnContents, &QPushButton::clicked, this, [this] { ShowTopic(0); });
    connect(btnIndex, &QPushButton::clicked, this, [this] { ShowIndex(); });
    connect(btnBack, &QPushButton::clicked, browser, &QTextBrowser::backward);
    connect(btnForward, &QPushButton::clicked, browser, &QTextBrowser::forward);
    connect(browser, &QTextBrowser::backwardAvailable, btnBack, &QPushButton::setEnabled);
    connect(browser, &QTextBrowser::forwardAvailable, btnForward, &QPushButton::setEnabled);
    connect(btnHelpSearch, &QPushButton::clicked, this, [this] { Search(txtHelpSearch->text()); });
    connect(txtHelpSearch, &QLineEdit::returnPressed, this, [this] { Search(txtHelpSearch->text()); });
    connect(btnClose, &QPushButton::clicked, this, &QDialog::close);
    connect(browser, &QTextBrowser::anchorClicked, this, &HelpWindow::FollowLink);
    // The browser's own keys for the pages read.
    new QShortcut(QKeySequence::Back, this, browser, &QTextBrowser::backward);
    new QShortcut(QKeySequence::Forward, this, browser, &QTextBrowser::forward);
    new QShortcut(QKeySequence::Find, this, [this] { txtHelpSearch->setFocus(); txtHelpSearch->selectAll(); });
    btnBack->setEnabled(false);
    btnForward->setEnabled(false);
}

HelpWindow::~HelpWindow() = default;

bool HelpWindow::LoadFile(const QString& path)
{
    QByteArray bytes;
    try {
        bytes = QByteArray::fromStdString(ReadWholeFile(ToNativePath(path), kHelpFileLimit));
    } catch (const RunTimeError&) {
        return false;
    }
    const QString folder = QFileInfo(path).absolutePath();
    // The same file again keeps the pages read, for Back; another one
    // starts a new walk, since pages of the old one may be gone.
    if (folder == folder_ && bytes == bytes_)
        return true;
    folder_ = folder;
    bytes_ = bytes;
    book_ = ReadHelpBook(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    browser->clearHistory();
    return true;
}

void HelpWindow::hideEvent(QHideEvent* event)
{
    HelpSettings().setValue(QString::fromLatin1(kSizeKey), size());
    QDialog::hideEvent(event);
}

bool HelpWindow::ShowAnchor(const QString& anchor)
{
    const int page = book_.PageOf(anchor.toLatin1().toStdString());
    if (page < 0)
        return false;
    browser->setSource(PageUrl(FromLatin1(book_.pages[std::size_t(page)].name), anchor),
                       QTextDocument::HtmlResource);
    return true;
}

void HelpWindow::ShowTopic(int context)
{
    if (ShowAnchor(FromLatin1(HelpAnchor(context))))
        return;
    if (!book_.pages.empty())
        browser->setSource(PageUrl(FromLatin1(book_.pages.front().name)), QTextDocument::HtmlResource);
}

void HelpWindow::ShowIndex()
{
    if (!ShowAnchor(QString::fromLatin1(kIndexPage)))
        ShowTopic(0);
}

void HelpWindow::ShowHelpOnHelp()
{
    if (!ShowAnchor(QString::fromLatin1(kHelpOnHelpPage)))
        browser->setSource(PageUrl(kBuiltInHelpOnHelp), QTextDocument::HtmlResource);
}

void HelpWindow::Search(const QString& query)
{
    if (query.trimmed().isEmpty())
        return;
    QUrl url = PageUrl(kSearchPage);
    QUrlQuery items;
    items.addQueryItem(QStringLiteral("q"), query.trimmed());
    url.setQuery(items);
    browser->setSource(url, QTextDocument::HtmlResource);
}

QImage HelpWindow::Picture(const QUrl& source) const
{
    // A page's relative source comes resolved against the page's own address
    // (help:<page>), so "help/x.png" arrives as help:help/x.png.
    const bool own = source.scheme().isEmpty() || source.scheme() == kScheme;
    const std::string file =
        own && !source.hasQuery() && source.host().isEmpty() ? HelpPictureFile(source.path().toStdString()) : "";
    if (file.empty() || folder_.isEmpty())
        return {};
    const QString path = QDir(folder_).filePath(QStringLiteral("help/") + QString::fromStdString(file));
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > qint64(kPictureFileLimit))
        return {};
    QImageReader reader(path);
    reader.setAllocationLimit(64);  // MB: a picture of a page, never more
    return reader.read();
}

void HelpWindow::FollowLink(const QUrl& url)
{
    switch (ClassifyHelpLink(url.scheme().toStdString())) {
    case HelpLinkKind::Web:
        if (prompts_.Message(QStringLiteral("Open this address in your web browser?\r\n\r\n") +
                                 url.toString(QUrl::FullyEncoded),
                             QStringLiteral("Help"), MsgIcon::Question,
                             MsgButtons::YesNo) == MsgResult::Yes)
            emit webPageRequested(url);
        return;
    case HelpLinkKind::Refused:
        prompts_.Message(QStringLiteral("Help does not open links of this kind:\r\n\r\n") +
                             url.toString(QUrl::FullyEncoded),
                         QStringLiteral("Help"), MsgIcon::Exclamation);
        return;
    case HelpLinkKind::InBook: break;
    }
    // "#anchor" within the file, or help:<page>?find=<words> from the search
    // results, which opens the page at the first of the words found.
    const QString anchor = url.hasFragment() ? url.fragment() : url.path();
    if (!ShowAnchor(anchor))
        return;
    const QString words = QUrlQuery(url).queryItemValue(QStringLiteral("find"), QUrl::FullyDecoded);
    const QString first = words.section(QLatin1Char(' '), 0, 0, QString::SectionSkipEmpty);
    if (!first.isEmpty()) {
        browser->moveCursor(QTextCursor::Start);
        browser->find(first);
    }
}

QString HelpWindow::PageHtml(const QUrl& url) const
{
    const QString path = url.path();
    if (path == kSearchPage)
        return SearchResultsHtml(QUrlQuery(url).queryItemValue(QStringLiteral("q"), QUrl::FullyDecoded));
    if (path == kBuiltInHelpOnHelp)
        return QString::fromLatin1(kHelpOnHelp);
    for (const HelpPage& page : book_.pages) {
        if (FromLatin1(page.name) != path)
            continue;
        // A page too large or nested too deep to lay out at once is shown
        // as its text.
        if (!HelpPageShownAsHtml(page.html))
            return QStringLiteral("<html><body><pre>") + FromLatin1(page.html).toHtmlEscaped() +
                   QStringLiteral("</pre></body></html>");
        return QStringLiteral("<html><body>") + FromLatin1(page.html) + QStringLiteral("</body></html>");
    }
    return QStringLiteral("<html><body><p>This topic is not in the help file.</p></body></html>");
}

QString HelpWindow::SearchResultsHtml(const QString& query) const
{
    QString html = QStringLiteral("<html><body><h1>Search: %1</h1>").arg(query.toHtmlEscaped());
    // A character outside Latin-1 occurs nowhere in the file.
    const bool latin1 = std::all_of(query.begin(), query.end(), [](QChar c) { return c.unicode() <= 0xFF; });
    const std::vector<int> found =
        latin1 ? SearchHelp(book_, query.toLatin1().toStdString()) : std::vector<int>();
    if (found.empty()) {
        html += QStringLiteral("<p>No topic holds all of these words. Try fewer words, or a shorter form of a word "
                               "(<i>measure</i> also finds <i>measures</i>).</p>");
    } else {
        html += found.size() == 1 ? QStringLiteral("<p>1 topic holds all of these words:</p><ul>")
                                  : QStringLiteral("<p>%1 topics hold all of these words:</p><ul>").arg(found.size());
        for (int p : found) {
            const HelpPage& page = book_.pages[std::size_t(p)];
            QUrl link;
            link.setScheme(kScheme);
            link.setPath(FromLatin1(page.name));
            QUrlQuery find;
            find.addQueryItem(QStringLiteral("find"), query);
            link.setQuery(find);
            html += QStringLiteral("<li><a href=\"%1\">%2</a></li>")
                        .arg(link.toString(), FromLatin1(page.title).toHtmlEscaped());
        }
        html += QStringLiteral("</ul>");
    }
    return html + QStringLiteral("</body></html>");
}

}  // namespace pw
