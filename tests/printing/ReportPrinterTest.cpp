#include <QPrinterInfo>
#include <QTest>

#include "FakeSeams.h"
#include "TempFolder.h"
#include "core/LineFile.h"
#include "printing/ReportPrinter.h"

using namespace pw;
using namespace pw::test;

class ReportPrinterTest : public QObject {
    Q_OBJECT

private slots:
    void WithoutAPrinterTheReportIsSavedAsPdf()
    {
        if (!QPrinterInfo::defaultPrinter().isNull())
            QSKIP("this machine has a default printer; the report would be printed on it");
        TempFolder folder;
        FakeSeams fakes;
        SystemPrinter printer(fakes.files, fakes.prompts, QString::fromStdString(folder.Path()));
        const QString html = QStringLiteral("<h1>Platewell - Food List</h1><p>Milk</p>");

        QVERIFY(!printer.Print(QStringLiteral("Platewell - Food List"), html));  // cancelled
        QCOMPARE(fakes.files.saveRequests.size(), size_t(1));
        QCOMPARE(fakes.files.saveRequests[0].proposedName, QStringLiteral("Platewell - Food List.pdf"));
        QVERIFY(fakes.prompts.messages.empty());

        const QString path = QString::fromStdString(folder.File("list.pdf"));
        fakes.files.answers.push_back(path);
        QVERIFY(printer.Print(QStringLiteral("Platewell - Food List"), html));
        QVERIFY(ReadWholeFile(path.toStdString()).rfind("%PDF", 0) == 0);
        QCOMPARE(fakes.prompts.messages.size(), size_t(1));
        QVERIFY(fakes.prompts.messages[0].text.endsWith(path));

        fakes.files.answers.push_back(QString::fromStdString(folder.File("missing/list.pdf")));
        QVERIFY(!printer.Print(QStringLiteral("Platewell - Food List"), html));
        QVERIFY(fakes.prompts.messages.back().text.startsWith("The report could not be written"));
    }
};

QTEST_MAIN(ReportPrinterTest)
#include "ReportPrinterTest.moc"
