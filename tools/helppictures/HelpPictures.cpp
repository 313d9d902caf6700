// Draws the pictures of the manual from the program itself: the main window's
// three tabs, the dialogs, the tip window, the about box and the help
// window, built offscreen on the delivered food database and saved as PNG
// files, so the manual always shows the windows as they are.
//
//   platewell_helppictures DATA_FOLDER OUT_FOLDER
//
// DATA_FOLDER holds data.dat, tips.txt and pw.hlp; OUT_FOLDER receives the
// pictures (the "help" folder beside pw.hlp in the program folder).
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <cstdio>
#include <deque>
#include <string>

#include "core/Text.h"
#include "dialogs/views/AddFoodDialog.h"
#include "days/views/DaysWindow.h"
#include "dialogs/views/CopyFavoritesDialog.h"
#include "dialogs/views/DatabaseCommands.h"
#include "FakeSeams.h"
#include "dialogs/views/SaveDishDialog.h"
#include "dialogs/views/SearchDialog.h"
#include "foodlist/views/FoodChooserPage.h"
#include "richin/views/RichInDialog.h"
#include "shell/views/AboutBox.h"
#include "core/views/ErrorGuard.h"
#include "shell/views/HelpWindow.h"
#include "shell/views/MainWindow.h"
#include "shell/views/ProgramWindows.h"
#include "core/views/Seams.h"
#include "shell/Session.h"
#include "shell/views/TipWindow.h"

using namespace pw;

namespace {

// The control named name under root, as the windows name their controls; the
// tool stops when a window no longer has it.
template <class T>
T* Named(const QObject& root, const QString& name)
{
    T* found = root.findChild<T*>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return found;
}

template <class T>
T& FindOnly(const QObject& root)
{
    T* found = root.findChild<T*>();
    if (!found)
        qFatal("no %s", T::staticMetaObject.className());
    return *found;
}

bool Copy(const QString& from, const QString& to)
{
    QFile::remove(to);
    return QFile::copy(from, to);
}

bool Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

class Pictures {
public:
    explicit Pictures(const QString& out) : out_(out) {}

    bool Save(QWidget* window, const char* name)
    {
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
        const QString path = QDir(out_).filePath(QString::fromLatin1(name));
        if (!window->grab().save(path, "PNG")) {
            std::fprintf(stderr, "platewell_helppictures: cannot write %s\n", path.toLocal8Bit().constData());
            ok_ = false;
        }
        return ok_;
    }
    bool Ok() const { return ok_; }

private:
    QString out_;
    bool ok_ = true;
};

// The first food of the group and subgroup whose description and measure
// start with the given texts, or -1.
int FindFood(const FoodTable& table, const std::string& group, const std::string& subgroup,
             const std::string& description, const std::string& measure = {})
{
    for (int i = 0; i < table.Count(); ++i)
        if (table.Group(i) == group && table.Subgroup(i) == subgroup &&
            table.Description(i).rfind(description, 0) == 0 && table.Measure(i).rfind(measure, 0) == 0)
            return i;
    return -1;
}

// Chooses a food in the chooser as the user would, with a quantity.
bool Choose(FoodChooserPage& chooser, int food, const char* quantity)
{
    if (food < 0)
        return false;
    Named<QPushButton>(chooser, "btnNewItem")->click();
    chooser.RecreateTiers(food);
    Named<QComboBox>(chooser, "comQuantity")->setEditText(QString::fromLatin1(quantity));
    chooser.ProcessData();
    return Named<QPushButton>(chooser, "btnAcceptItem")->isEnabled();
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);  // the help window's size stays out of the user's settings
    if (argc != 3) {
        std::fprintf(stderr, "usage: platewell_helppictures DATA_FOLDER OUT_FOLDER\n");
        return 2;
    }
    const QDir data(QString::fromLocal8Bit(argv[1]));
    const QString out = QString::fromLocal8Bit(argv[2]);
    QTemporaryDir folder;
    if (!folder.isValid() || !QDir().mkpath(out)) {
        std::fprintf(stderr, "platewell_helppictures: no folder to work in\n");
        return 1;
    }
    const QDir program(folder.path());
    for (const char* file : {"data.dat", "tips.txt", "pw.hlp"}) {
        if (!Copy(data.filePath(QString::fromLatin1(file)), program.filePath(QString::fromLatin1(file)))) {
            std::fprintf(stderr, "platewell_helppictures: cannot copy %s\n", file);
            return 1;
        }
    }
    Write(program.filePath(QStringLiteral("pw.ini")), "FIRST RUN:False\r\nSHOW TIPS:False\r\n");
    Write(program.filePath(QStringLiteral("default.pwp")),
          "NAME:Ann Miller\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:138\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n");

    // Seams that never wait for a person: questions are answered No, file
    // dialogs cancelled, help and printing recorded and dropped.
    pw::test::FakeSeams fakes;
    Seams& seams = fakes.seams;
    Session session;
    session.programFolder = QFile::encodeName(folder.path()).toStdString();
    ErrorGuard guard(session.ended, fakes.prompts);
    ProgramWindows windows(session, seams, guard);
    if (!windows.LoadSplash())
        return 1;
    windows.splash->StartMain();
    MainWindow* main = windows.main.get();
    if (!main || guard.Failed())
        return 1;
    main->resize(760, 560);  // fits the help window's page
    Pictures pictures(out);

    Named<QTabWidget>(*main, "tabMain")->setCurrentIndex(0);
    pictures.Save(main, "profile.png");

    // A day's list: breakfast, lunch and a snack.
    FoodChooserPage& chooser = FindOnly<FoodChooserPage>(*main);
    const FoodTable& table = session.foodTable;
    const struct {
        const char* group;
        const char* subgroup;
        const char* description;
        const char* measure;
        const char* quantity;
    } day[] = {
        {"Bakery and Grains", "Bread", "Whole-wheat", "1 slice", " 2"},
        {"Dairy and Eggs", "Milk", "Reduced fat, fluid, 2%", "1 cup", " 1"},
        {"Fruits", "Bananas", "Raw", "1 medium", " 1"},
        {"Dairy and Eggs", "Egg", "Whole, cooked, scrambled", "1 large", " 2"},
        {"Poultry", "Chicken", "Broilers or fryers, breast, meat only, cooked, roasted", "1/2 breast", " 1"},
        {"Vegetables", "Broccoli", "Cooked", "1 spear", "2-1/2"},
        {"Fruits", "Apples", "Raw, with skin", "1 medium", " 1"},
    };
    Named<QTabWidget>(*main, "tabMain")->setCurrentIndex(1);
    for (const auto& food : day)
        if (Choose(chooser, FindFood(table, food.group, food.subgroup, food.description, food.measure), food.quantity))
            Named<QPushButton>(chooser, "btnAcceptItem")->click();
    // A food chosen and waiting for "Add to List".
    Choose(chooser, FindFood(table, "Nuts, Seeds, Legumes, Beans", "Peanut butter", "Smooth style, with salt", "2 tbsp"),
           " 1");
    pictures.Save(main, "foodlist.png");

    Named<QTabWidget>(*main, "tabMain")->setCurrentIndex(2);
    pictures.Save(main, "analysis.png");

    // The foods that would fill the day's fiber, as a click on its bar opens them.
    Named<QAction>(*main, "mnuRichIn")->trigger();
    if (RichInDialog* rich = main->findChild<RichInDialog*>(QStringLiteral("frmRichIn"))) {
        auto* nutrient = Named<QComboBox>(*rich, "comRichNutrient");
        nutrient->setCurrentIndex(kFiber);
        emit nutrient->activated(kFiber);
        auto* group = Named<QComboBox>(*rich, "comRichGroup");
        group->setCurrentIndex(group->findText(QStringLiteral("Vegetables")));
        emit group->activated(group->currentIndex());
        Named<QCheckBox>(*rich, "chkRichGap")->click();
        pictures.Save(rich, "richin.png");
        rich->reject();
    }
    Named<QTabWidget>(*main, "tabMain")->setCurrentIndex(1);

    // Two weeks of saved lists, one day missed and a day of two files, in
    // the days window with sodium chosen.
    {
        const QDir diary(program.filePath(QStringLiteral("diary")));
        QDir().mkpath(diary.path());
        const std::string profile =
            "NAME:Ann Miller\r\nYOB:62\r\nMEASUREMENT: 0 \r\nHEIGHT:64\r\nWEIGHT:138\r\nSEX: 0 \r\nLIFESTYLE: 2 \r\n";
        for (int d = 1; d <= 14; ++d) {
            if (d == 6)
                continue;
            std::string lines = profile;
            int row = 0;
            for (const auto& food : day) {
                const int index = FindFood(table, food.group, food.subgroup, food.description, food.measure);
                if (index < 0 || (row++ + d) % 4 == 0)
                    continue;
                const int times = 1 + (d * 7 + row) % 3;
                lines += "ITEM: " + std::to_string(index) + " \t" + std::to_string(times) + "\t" + table.Group(index) +
                         "\t" + table.Subgroup(index) + "\t" + table.Description(index) + "\t" + table.Measure(index) +
                         "\r\n";
            }
            const QString name = QStringLiteral("2026-11-%1.pwl").arg(d, 2, 10, QLatin1Char('0'));
            Write(diary.filePath(name), QByteArray::fromStdString(lines));
        }
        const int chips = FindFood(table, "Snacks", "Potato chips", "");
        if (chips >= 0)
            Write(diary.filePath(QStringLiteral("2026-11-09 evening.pwl")),
                  QByteArray::fromStdString(profile + "ITEM: " + std::to_string(chips) + " \t2\t" + table.Group(chips) +
                                            "\t" + table.Subgroup(chips) + "\t" + table.Description(chips) + "\t" +
                                            table.Measure(chips) + "\r\n"));
        DaysWindow days(table, seams, program.filePath(QStringLiteral("days.ini")));
        days.resize(900, 640);
        days.AddPaths({diary.path()});
        Named<QComboBox>(days, "comDaysNutrient")->setCurrentIndex(kSodium);
        days.show();
        pictures.Save(&days, "days.png");
        days.hide();
    }

    // The search window with results and one of them picked.
    Named<QPushButton>(chooser, "btnNewItem")->click();
    Named<QPushButton>(chooser, "btnSearch")->click();
    if (SearchDialog* search = main->findChild<SearchDialog*>(QStringLiteral("frmSearch"))) {
        Named<QLineEdit>(*search, "txtSearch")->setText(QStringLiteral("oat"));
        auto* find = Named<QPushButton>(*search, "btnSearch");
        find->setEnabled(true);
        find->click();
        auto* results = Named<QTableWidget>(*search, "gridSearch");
        if (results->rowCount() > 1)
            results->setCurrentCell(1, 0);
        pictures.Save(search, "search.png");
        Named<QPushButton>(*search, "btnCancel")->click();
    }

    Named<QAction>(*main, "mnuAddCustomItem")->trigger();
    if (AddFoodDialog* add = main->findChild<AddFoodDialog*>(QStringLiteral("frmAdd"))) {
        // Filled in as a person would fill it from a package's label.
        auto* primary = Named<QComboBox>(*add, "comPrimary");
        const int snacks = primary->findText(QStringLiteral("Snacks"));
        primary->setCurrentIndex(snacks);
        emit primary->activated(snacks);
        auto* secondary = Named<QComboBox>(*add, "comSecondary");
        secondary->setEditText(QStringLiteral("Granola bars"));
        emit secondary->lineEdit()->textEdited(secondary->currentText());
        Named<QLineEdit>(*add, "txtDescription")->setText(QStringLiteral("Oat and honey, store brand"));
        Named<QLineEdit>(*add, "txtMeasure")->setText(QStringLiteral("1 bar (40 g)"));
        const char* const label[] = {"4", "29", "6", "0", "2", "10", "8"};
        for (std::size_t i = 0; i < kCustomNutrients && i < std::size(label); ++i)
            Named<QLineEdit>(*add, QStringLiteral("txtNutrVal%1").arg(i))->setText(QString::fromLatin1(label[i]));
        Named<QRadioButton>(*add, "optDV5")->click();
        Named<QRadioButton>(*add, "optDV6")->click();
        pictures.Save(add, "addcustom.png");
        add->reject();
    }

    Named<QAction>(*main, "mnuSaveAsDish")->trigger();
    if (SaveDishDialog* dish = main->findChild<SaveDishDialog*>(QStringLiteral("frmSaveList"))) {
        Named<QComboBox>(*dish, "comSubgroup")->setEditText(QStringLiteral("Breakfast"));
        Named<QLineEdit>(*dish, "txtDescription")->setText(QStringLiteral("Usual breakfast"));
        Named<QLineEdit>(*dish, "txtMeasure")->setText(QStringLiteral("1 breakfast"));
        pictures.Save(dish, "savedish.png");
        dish->reject();
    }

    Choose(chooser, FindFood(table, "Fruits", "Bananas", "Raw", "1 medium"), " 1");
    Named<QAction>(*main, "mnuCopyToFavorites")->trigger();
    if (CopyFavoritesDialog* copy = main->findChild<CopyFavoritesDialog*>(QStringLiteral("frmCopy"))) {
        Named<QComboBox>(*copy, "comSubgroup")->setEditText(QStringLiteral("Snacks"));
        Named<QLineEdit>(*copy, "txtDescription")->setText(QStringLiteral("Banana"));
        pictures.Save(copy, "copyfavorites.png");
        copy->reject();
    }

    TipWindow tip(session, main);
    tip.Form_Load();
    tip.show();
    pictures.Save(&tip, "tip.png");
    tip.hide();

    Named<QAction>(*main, "mnuAbout")->trigger();
    if (auto* about = main->findChild<AboutBox*>(QStringLiteral("frmAbout"))) {
        pictures.Save(about, "about.png");
        about->hide();
    }

    HelpWindow helpWindow(fakes.prompts);
    helpWindow.resize(760, 520);
    if (helpWindow.LoadFile(program.filePath(QStringLiteral("pw.hlp")))) {
        helpWindow.show();
        helpWindow.ShowTopic(0);
        pictures.Save(&helpWindow, "helpwindow.png");
        helpWindow.hide();
    }

    // A profile not yet complete, with the line that says what is missing.
    Named<QTabWidget>(*main, "tabMain")->setCurrentIndex(0);
    if (auto* newProfile = main->findChild<QPushButton*>(QStringLiteral("btnNewProfile"))) {
        newProfile->click();
        main->findChild<QLineEdit*>(QStringLiteral("txtHeight"))->setText(QStringLiteral("64"));
        main->findChild<QLineEdit*>(QStringLiteral("txtName"))->setText(QStringLiteral("Ann Miller"));
        main->findChild<QLineEdit*>(QStringLiteral("txtYOB"))->setText(QStringLiteral("6"));
        pictures.Save(main, "profile-incomplete.png");
    }

    // No exit questions and no files written: the folder goes with the run.
    session.ended = true;
    return pictures.Ok() && !guard.Failed() ? 0 : 1;
}
