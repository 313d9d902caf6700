// Texts from files shown by the real windows: never read as markup, never
// followed, never loaded.
#include <QLabel>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QtTest>

#include "Fixtures.h"
#include "WindowTestSupport.h"
#include "shell/views/HelpWindow.h"

using namespace pw;
using namespace pw::test;

namespace {

void WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

}  // namespace

class HostileTextTest : public QObject {
    Q_OBJECT
private slots:
    // The real message box shows a file's text as it stands: the
    // end-to-end hostile_list reads it over the accessibility bus.
    void EveryLabelOfTheWindowsIsPlainText()
    {
        ProgramHarness program;
        program.StartOn(DataFileBytes(SampleTable()));
        Find<QAction>(*program.main, QStringLiteral("mnuAbout"))->trigger();
        QStringList rich;
        for (QWidget* widget : QApplication::allWidgets())
            if (auto* label = qobject_cast<QLabel*>(widget); label && label->textFormat() != Qt::PlainText)
                rich << label->objectName() + QLatin1Char(':') + label->text();
        QVERIFY2(rich.isEmpty(), qPrintable(rich.join('\n')));
    }

    void TheHelpWindowShowsOnlyItsOwnPagesAndPictures()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkdir(QStringLiteral("help"));
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(dir.filePath(QStringLiteral("help/own.png"))));
        QVERIFY(picture.save(dir.filePath(QStringLiteral("outside.png"))));
        const QString outside = QUrl::fromLocalFile(dir.filePath(QStringLiteral("outside.png"))).toString();
        const QByteArray hlp = QStringLiteral("<h1><a name=\"context-0\"></a>Start</h1><p><img src=\"help/own.png\">"
                                              "<img src=\"%1\"><img src=\"file:///dev/zero\">"
                                              "<img src=\"help/../outside.png\"></p>")
                                   .arg(outside)
                                   .toLatin1();
        WriteBytes(dir.filePath(QStringLiteral("pw.hlp")), hlp);

        RecordingPrompts prompts;
        HelpWindow window(prompts);
        QSignalSpy opened(&window, &HelpWindow::webPageRequested);
        QVERIFY(window.LoadFile(dir.filePath(QStringLiteral("pw.hlp"))));
        window.ShowTopic(0);
        auto* browser = Find<QTextBrowser>(window, QStringLiteral("browserHelp"));
        QTextDocument* page = browser->document();
        // Each picture as the page asked for it, resolved against the page.
        const auto image = [&](const QString& source) {
            const QUrl url = page->baseUrl().resolved(QUrl(source));
            return page->resource(QTextDocument::ImageResource, url).value<QImage>();
        };
        QVERIFY(!image(QStringLiteral("help/own.png")).isNull());
        for (const QString& source : {outside, QStringLiteral("file:///dev/zero"), QStringLiteral("help/../outside.png")})
            QVERIFY2(image(source).isNull(), qPrintable(source));

        // Links: a web address only after the question naming it; any other
        // scheme refused; nothing is handed on without the user's yes.
        const QUrl web(QStringLiteral("https://example.org/page?a=1"));
        for (const char* link : {"mailto:a@x?attach=/root/.ssh/id_rsa", "file:///etc/passwd", "data:text/html,x"})
            emit browser->anchorClicked(QUrl(QString::fromLatin1(link)));
        emit browser->anchorClicked(web);  // answered No
        prompts.answers = {MsgResult::Yes};
        emit browser->anchorClicked(web);
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened.at(0).at(0).toUrl(), web);
        QCOMPARE(prompts.messages.size(), size_t(5));
        QVERIFY(prompts.messages[0].text.endsWith(QStringLiteral("mailto:a@x?attach=/root/.ssh/id_rsa")));
        QCOMPARE(prompts.messages[0].icon, MsgIcon::Exclamation);
        QVERIFY(prompts.messages[3].text.endsWith(web.toString()));
        QCOMPARE(prompts.messages[3].buttons, MsgButtons::YesNo);
    }
};

QTEST_MAIN(HostileTextTest)
#include "HostileTextTest.moc"
