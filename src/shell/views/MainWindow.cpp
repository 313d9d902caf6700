#include "shell/views/MainWindow.h"

#include <QAction>
#include <algorithm>
#include <QActionGroup>
#include <QApplication>
#include <QScreen>
#include <QSettings>
#include <QCloseEvent>
#include <QComboBox>
#include <QDate>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QMenuBar>
#include <QPushButton>
#include <QResizeEvent>
#include <QShortcut>
#include <QTabWidget>
#include <QTableView>
#include <QUndoStack>
#include <QWidget>

#include "analysis/AnalysisFile.h"
#include "analysis/views/AnalysisFileCommands.h"
#include "analysis/views/AnalysisPage.h"
#include "printing/views/NutrientChart.h"
#include "printing/Report.h"
#include "printing/views/ReportCommands.h"
#include "shell/ProgramFolder.h"
#include "shell/views/AboutBox.h"
#include "days/views/DaysWindow.h"
#include "analysis/views/ProfilePage.h"
#include "core/LineFile.h"
#include "core/Text.h"
#include "dialogs/views/DatabaseCommands.h"
#include "dialogs/views/SearchDialog.h"
#include "richin/views/RichInDialog.h"
#include "fooddb/DataFile.h"
#include "fooddb/FoodEditing.h"
#include "foodlist/FoodList.h"
#include "foodlist/views/FoodListGrid.h"
#include "foodlist/views/FoodListModel.h"
#include "foodlist/views/FoodChooserPage.h"
#include "foodlist/FoodListTexts.h"
#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "shell/Session.h"

namespace pw {

namespace {

// Layout of the main window, in twips.
constexpr int kTabWidth = 7512;
constexpr int kTabHeight = 3420;
constexpr int kTabTop = 60;
constexpr int kGridLeft = 60;
constexpr int kGridTop = 3540;
constexpr int kGridWidthMargin = 216;
constexpr int kGridHeightMargin = 4200;
constexpr int kTabHalfWidth = 3756;

const char* const kTutorialQuestion =
    "Would you like to view the Quick Tutorial?\r\n\r\nYou can master this program in less than three minutes!";
const char* const kTutorialTitle = "View Quick Tutorial?";
const char* const kWebPageAddress = "https://platewell.example.org/";
const char* const kWebPageFailed =
    "Unable to open your web browser.\r\nIf you are able to do so manually, please visit our site at:\r\n";
const char* const kWebPageTitle = "Platewell's Web Site";
const char* const kDisclaimerTitle = "Important Disclaimer";
const char* const kDisclaimerLines[] = {
    "Although the nutrition database is believed to be accurate,",
    "this program is provided AS IS, and there is no warranty",
    "for the accuracy of the nutritional database or for the",
    "interpretation of data or analysis.",
    "",
    "Data analysis is intended for healthy adults only.",
    "However, this program is not intended to replace the",
    "services of a qualified health care provider, dietician,",
    "nutritionist, or physician.",
};

QAction* AddItem(QMenu* menu, const char* name, const char* caption)
{
    QAction* action = menu->addAction(QString::fromLatin1(caption));
    action->setObjectName(QString::fromLatin1(name));
    return action;
}

QMenu* AddMenu(QWidget* parentMenu, const char* name, const char* caption)
{
    QMenu* menu = nullptr;
    if (auto* bar = qobject_cast<QMenuBar*>(parentMenu))
        menu = bar->addMenu(QString::fromLatin1(caption));
    else
        menu = static_cast<QMenu*>(parentMenu)->addMenu(QString::fromLatin1(caption));
    menu->setObjectName(QString::fromLatin1(name));
    menu->menuAction()->setObjectName(QString::fromLatin1(name));
    return menu;
}

// A menu's title in the bar follows the menu's own enabled state, so both
// are set (the bar re-enabling its children must not re-enable the menu).
void SetMenuEnabled(QMenu* menu, bool enabled)
{
    menu->setEnabled(enabled);
    menu->menuAction()->setEnabled(enabled);
}

}  // namespace

MainWindow::MainWindow(Session& session, Seams& seams, ErrorGuard& guard, QWidget* parent)
    : QMainWindow(parent), session_(session), seams_(seams), guard_(guard)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Platewell"));
    listModel = new FoodListModel(session_, this);
    BuildMenus();
    BuildCentre();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildMenus()
{
    QMenuBar* bar = menuBar();
    mnuFile = AddMenu(bar, "mnuFile", "&File");
    mnuOpen = AddItem(mnuFile, "mnuOpen", "&Open Analysis...");
    mnuSave = AddItem(mnuFile, "mnuSave", "&Save Analysis...");
    mnuClearList = AddItem(mnuFile, "mnuClearList", "&Clear List");
    mnuFile->addSeparator();
    mnuPrint = AddMenu(mnuFile, "mnuPrint", "&Print");
    mnuList = AddItem(mnuPrint, "mnuList", "Food &List");
    mnuPrintAnalysis = AddItem(mnuPrint, "mnuPrintAnalysis", "&Analysis Report");
    mnuPrintPreview = AddItem(mnuFile, "mnuPrintPreview", "Print Pre&view...");
    mnuExportPdf = AddItem(mnuFile, "mnuExportPdf", "Export as PD&F...");
    mnuExportCsv = AddItem(mnuFile, "mnuExportCsv", "Expor&t as CSV...");
    mnuFile->addSeparator();
    mnuAnalyseDays = AddItem(mnuFile, "mnuAnalyseDays", "Analyse &Days...");
    mnuAnalyseDays->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    mnuFile->addSeparator();
    mnuExit = AddItem(mnuFile, "mnuExit", "E&xit");
    mnuOpen->setShortcut(QKeySequence::Open);
    mnuSave->setShortcut(QKeySequence::Save);
    mnuPrintAnalysis->setShortcut(QKeySequence::Print);

    BuildEditMenu();

    mnuDatabase = AddMenu(bar, "mnuDatabase", "&Database");
    mnuRichIn = AddItem(mnuDatabase, "mnuRichIn", "Foods &Rich In...");
    mnuDatabase->addSeparator();
    mnuAddCustomItem = AddItem(mnuDatabase, "mnuAddCustomItem", "&Add Custom Item...");
    mnuSaveAsDish = AddItem(mnuDatabase, "mnuSaveAsDish", "&Save List as Dish...");
    mnuCopyToFavorites = AddItem(mnuDatabase, "mnuCopyToFavorites", "&Copy Item to Favorites...");
    mnuDatabase->addSeparator();
    mnuDeleteFromDatabase = AddItem(mnuDatabase, "mnuDeleteFromDatabase", "&Delete Item from Database");

    mnuViewBy = AddMenu(bar, "mnuViewBy", "&View");
    mnuViewByUnits = AddItem(mnuViewBy, "mnuViewByUnits", "&Units");
    mnuViewByDV = AddItem(mnuViewBy, "mnuViewByDV", "Percent of &Daily Value (%DV)");
    auto* viewGroup = new QActionGroup(this);  // one of the two is checked
    for (QAction* view : {mnuViewByUnits, mnuViewByDV}) {
        view->setCheckable(true);
        viewGroup->addAction(view);
    }

    mnuOptions = AddMenu(bar, "mnuOptions", "&Options");
    mnuShowTip = AddItem(mnuOptions, "mnuShowTip", "&Show \"Tip of the Day\" at startup");
    mnuRememberWindowSize = AddItem(mnuOptions, "mnuRememberWindowSize", "Remember &Window Size");
    mnuRememberColumnWidth = AddItem(mnuOptions, "mnuRememberColumnWidth", "Remember &Column Widths");
    for (QAction* toggle : {mnuShowTip, mnuRememberWindowSize, mnuRememberColumnWidth})
        toggle->setCheckable(true);

    mnuHelp = AddMenu(bar, "mnuHelp", "&Help");
    mnuQuickTutorial = AddItem(mnuHelp, "mnuQuickTutorial", "&Quick Tutorial");
    mnuHelpContents = AddItem(mnuHelp, "mnuHelpContents", "&Contents...");
    mnuHelpIndex = AddItem(mnuHelp, "mnuHelpIndex", "&Index");
    mnuHelpOnHelp = AddItem(mnuHelp, "mnuHelpOnHelp", "&How to use Help");
    mnuHelp->addSeparator();
    mnuTechSupport = AddItem(mnuHelp, "mnuTechSupport", "&Technical Support");
    mnuPlatewellWeb = AddItem(mnuHelp, "mnuPlatewellWeb", "Platewell's &Web Site");
    mnuDisclaimer = AddItem(mnuHelp, "mnuDisclaimer", "Important &Disclaimer");
    mnuHelp->addSeparator();
    mnuAbout = AddItem(mnuHelp, "mnuAbout", "&About Platewell");

    // The commands on the chosen food wait until a food is chosen.
    for (QAction* onChosenFood : {mnuCopyToFavorites, mnuDeleteFromDatabase})
        onChosenFood->setEnabled(false);
    // Nothing to save, print or clear while the list is empty.
    UpdateListMenus();
    // A new profile starts invalid: nothing to view until it is complete.
    SetMenuEnabled(mnuViewBy, false);

    const auto guarded = [this](QAction* action, void (MainWindow::*handler)()) {
        ConnectGuarded(action, &QAction::triggered, this, handler, &guard_);
    };
    ConnectGuarded(mnuRichIn, &QAction::triggered, this, [this] { mnuRichIn_Click(-1); }, &guard_);
    guarded(mnuExit, &MainWindow::Egress);
    guarded(mnuDisclaimer, &MainWindow::Disclaimer);
    guarded(mnuAbout, &MainWindow::mnuAbout_Click);
    guarded(mnuList, &MainWindow::mnuList_Click);
    guarded(mnuPrintAnalysis, &MainWindow::mnuPrintAnalysis_Click);
    guarded(mnuPrintPreview, &MainWindow::mnuPrintPreview_Click);
    guarded(mnuExportPdf, &MainWindow::mnuExportPdf_Click);
    guarded(mnuExportCsv, &MainWindow::mnuExportCsv_Click);
    guarded(mnuAnalyseDays, &MainWindow::mnuAnalyseDays_Click);
    guarded(mnuPlatewellWeb, &MainWindow::mnuPlatewellWeb_Click);
    guarded(mnuShowTip, &MainWindow::mnuShowTip_Click);
    guarded(mnuRememberWindowSize, &MainWindow::mnuRememberWindowSize_Click);
    guarded(mnuRememberColumnWidth, &MainWindow::mnuRememberColumnWidth_Click);
    ConnectGuarded(mnuViewByUnits, &QAction::triggered, this, [this] { SetViewMode(false); }, &guard_);
    ConnectGuarded(mnuViewByDV, &QAction::triggered, this, [this] { SetViewMode(true); }, &guard_);

    auto help = [this](QAction* action, int command, std::optional<int> context) {
        connect(action, &QAction::triggered, this, [this, command, context] { ShowHelpTopic(command, context); });
    };
    help(mnuQuickTutorial, kHelpContext, kTopicQuickTutorial);
    help(mnuHelpContents, kHelpContext, kTopicContents);
    help(mnuHelpIndex, kHelpIndex, kTopicQuickTutorial);
    help(mnuHelpOnHelp, kHelpHelpOnHelp, std::nullopt);
    help(mnuTechSupport, kHelpContext, kTopicTechnicalSupport);
}

void MainWindow::BuildEditMenu()
{
    mnuEdit = AddMenu(menuBar(), "mnuEdit", "&Edit");
    mnuUndo = AddItem(mnuEdit, "mnuUndo", "&Undo");
    mnuRedo = AddItem(mnuEdit, "mnuRedo", "&Redo");
    mnuUndo->setShortcuts(QKeySequence::Undo);
    mnuRedo->setShortcuts(QKeySequence::Redo);
    const QUndoStack* stack = &listModel->Stack();
    // "&Undo Add Cheddar": the step each would take, disabled while none.
    auto follow = [](QAction* action, const char* verb, bool can, const QString& step) {
        action->setEnabled(can);
        action->setText(QString::fromLatin1(verb) + (step.isEmpty() ? QString() : QLatin1Char(' ') + step));
    };
    auto followUndo = [this, stack, follow] { follow(mnuUndo, "&Undo", stack->canUndo(), stack->undoText()); };
    auto followRedo = [this, stack, follow] { follow(mnuRedo, "&Redo", stack->canRedo(), stack->redoText()); };
    connect(stack, &QUndoStack::indexChanged, this, [=] { followUndo(); followRedo(); });
    connect(stack, &QUndoStack::canUndoChanged, this, followUndo);
    connect(stack, &QUndoStack::canRedoChanged, this, followRedo);
    followUndo();
    followRedo();
    ConnectGuarded(mnuUndo, &QAction::triggered, listModel, &FoodListModel::Undo, &guard_);
    ConnectGuarded(mnuRedo, &QAction::triggered, listModel, &FoodListModel::Redo, &guard_);
}

void MainWindow::BuildCentre()
{
    auto* centre = new QWidget(this);
    centre->setObjectName(QStringLiteral("centre"));
    setCentralWidget(centre);

    tabMain = new QTabWidget(centre);
    tabMain->setObjectName(QStringLiteral("tabMain"));
    profilePage = new ProfilePage(session_, seams_, &guard_, tabMain);
    chooserPage = new FoodChooserPage(session_, seams_, &guard_, tabMain);
    // Window-modal over the main window: nothing there takes input while
    // the search dialog is open.
    connect(chooserPage, &FoodChooserPage::searchRequested, this, [this] {
        if (!frmSearch) {
            frmSearch = new SearchDialog(session_, seams_, &guard_, this);
            connect(frmSearch, &SearchDialog::foodChosen, chooserPage, &FoodChooserPage::ShowFoundFood);
        }
        frmSearch->open();
    });
    connect(chooserPage, &FoodChooserPage::copyToFavoritesAvailable, this,
            [this](bool on) { mnuCopyToFavorites->setEnabled(on); });
    connect(chooserPage, &FoodChooserPage::deleteFromDatabaseAvailable, this,
            [this](bool on) { mnuDeleteFromDatabase->setEnabled(on); });
    analysisPage = new AnalysisPage(session_, tabMain);
    chartNutrients = new NutrientChart(analysisPage);
    analysisPage->AddChart(chartNutrients);
    reports_ = std::make_unique<ReportCommands>(seams_.prompts, seams_.files, seams_.printer,
                                                QString::fromStdString(session_.programFolder),
                                                ProgramOwnFiles({session_.programFolder}));
    tabMain->addTab(profilePage, QStringLiteral("&Profile"));
    tabMain->addTab(chooserPage, QStringLiteral("Food &List"));  // Alt+F is the File menu
    tabMain->addTab(analysisPage, QStringLiteral("&Analysis"));
    connect(profilePage, &ProfilePage::profileValidated, this,
            [this](bool valid) { guard_.Run([&] { OnProfileValidated(valid); }); });
    connect(chooserPage, &FoodChooserPage::helpRequested, this,
            [this] { ShowHelpTopic(kHelpContext, kTopicFoodList); });
    connect(analysisPage, &AnalysisPage::richInRequested, this,
            [this](int nutrient) { guard_.Run([&] { mnuRichIn_Click(nutrient); }); });
    connect(chartNutrients, &NutrientChart::nutrientClicked, this,
            [this](int nutrient) { guard_.Run([&] { mnuRichIn_Click(nutrient); }); });
    connect(analysisPage, &AnalysisPage::helpRequested, this,
            [this] { ShowHelpTopic(kHelpContext, kTopicAnalysis); });
    // F1: the topic of the tab in front (profile 2, food list 3, analysis 4).
    auto* helpKey = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(helpKey, &QShortcut::activated, this,
            [this] {
                ShowHelpTopic(kHelpContext, kTopicProfile + std::clamp(tabMain->currentIndex(), 0, 2));
            });

    gridMain = new QTableView(centre);
    gridMain->setObjectName(QStringLiteral("gridMain"));
    gridMain->verticalHeader()->setVisible(false);
    gridMain->setEditTriggers(QAbstractItemView::NoEditTriggers);
    gridMain->setSelectionBehavior(QAbstractItemView::SelectRows);
    gridMain->setSelectionMode(QAbstractItemView::SingleSelection);
    gridMain->horizontalHeader()->setHighlightSections(false);
    // One line a row: a long description is cut short, not wrapped into a
    // row too low to show its second line.
    gridMain->setWordWrap(false);
    gridMain->verticalHeader()->setDefaultSectionSize(gridMain->fontMetrics().height() + 6);
    gridMain->setEnabled(false);

    listGrid = new FoodListGrid(session_, seams_, guard_, *gridMain, *listModel, *chooserPage, this);
    connect(listModel, &FoodListModel::listChanged, this, [this] { guard_.Run([&] { OnListChanged(); }); });
    listFile = new AnalysisFileCommands(session_, seams_, *profilePage, this);
    connect(listFile, &AnalysisFileCommands::captionChanged, this, &QWidget::setWindowTitle);
    connect(listFile, &AnalysisFileCommands::personCleared, analysisPage, &AnalysisPage::ClearPerson);
    // The page a list was opened from comes back once the list is read.
    connect(listFile, &AnalysisFileCommands::openStarting, this, [this] { pageBeforeOpen_ = tabMain->currentIndex(); });
    connect(listFile, &AnalysisFileCommands::openFinished, this, [this] {
        if (pageBeforeOpen_ >= 0 && tabMain->isTabEnabled(pageBeforeOpen_))
            tabMain->setCurrentIndex(pageBeforeOpen_);
    });
    connect(listFile, &AnalysisFileCommands::listRead, listModel, &FoodListModel::OpenList);
    connect(listFile, &AnalysisFileCommands::listWritten, listModel, &FoodListModel::MarkSaved);
    connect(listFile, &AnalysisFileCommands::clearListWanted, listModel, &FoodListModel::ClearList);
    connect(listModel, &FoodListModel::openStepping, listFile, &AnalysisFileCommands::StepOpen);
    connect(listModel, &FoodListModel::listFileStepped, listFile, &AnalysisFileCommands::ShowListFile);
    // A new person's list starts a new history.
    connect(profilePage, &ProfilePage::newProfileStarted, listModel, &FoodListModel::ForgetHistory);

    database = new DatabaseCommands(session_, seams_, guard_, *this);
    connect(database, &DatabaseCommands::foodsMoved, chooserPage, &FoodChooserPage::RebuildTierMap);
    connect(database, &DatabaseCommands::chooserResetWanted, chooserPage, &FoodChooserPage::DisableTiers);
    // The File and Database menus' commands act through these two objects.
    ConnectGuarded(mnuOpen, &QAction::triggered, listFile, &AnalysisFileCommands::mnuOpen_Click, &guard_);
    ConnectGuarded(mnuSave, &QAction::triggered, listFile, &AnalysisFileCommands::mnuSave_Click, &guard_);
    ConnectGuarded(mnuClearList, &QAction::triggered, listFile, &AnalysisFileCommands::mnuClearList_Click, &guard_);
    ConnectGuarded(mnuAddCustomItem, &QAction::triggered, database, &DatabaseCommands::AddCustomItem, &guard_);
    ConnectGuarded(mnuSaveAsDish, &QAction::triggered, database, &DatabaseCommands::SaveAsDish, &guard_);
    ConnectGuarded(mnuCopyToFavorites, &QAction::triggered, database, &DatabaseCommands::CopyToFavorites, &guard_);
    ConnectGuarded(mnuDeleteFromDatabase, &QAction::triggered, database, &DatabaseCommands::DeleteFromDatabase,
                   &guard_);
    connect(database, &DatabaseCommands::clearListRequested, listModel, [this] { listModel->ClearList(); });
    connect(database, &DatabaseCommands::dishSaved, this, [this] { mnuSaveAsDish->setEnabled(false); });
    connect(database, &DatabaseCommands::deleteRefused, this, [this] { mnuDeleteFromDatabase->setEnabled(false); });
}

int MainWindow::DpiX() const { return logicalDpiX() > 0 ? logicalDpiX() : 96; }
int MainWindow::DpiY() const { return logicalDpiY() > 0 ? logicalDpiY() : 96; }
int MainWindow::WidthTwips() const { return width_.Twips(width(), DpiX()); }
int MainWindow::HeightTwips() const { return height_.Twips(height(), DpiY()); }

void MainWindow::Form_Load()
{
    loading_ = true;
    menuBar()->setEnabled(false);  // no command may start while the table loads
    Settings& s = session_.settings;

    mnuShowTip->setChecked(s.showTips);
    if (!s.rememberColumnWidths) {
        mnuRememberColumnWidth->setChecked(false);
        s.columnWidths = kDefaultColumnWidths;
    } else {
        mnuRememberColumnWidth->setChecked(true);
    }

    setMinimumSize(TwipsToPx(kDefaultWindowWidth, DpiX()), TwipsToPx(kDefaultWindowHeight, DpiY()));
    bool maximise = false;
    if (s.rememberWindowSize) {
        mnuRememberWindowSize->setChecked(true);
        maximise = s.windowState < 0 || s.windowState > 1;
    } else {
        mnuRememberWindowSize->setChecked(false);
        s.windowWidth = kDefaultWindowWidth;
        s.windowHeight = kDefaultWindowHeight;
    }
    // A remembered size never exceeds the screen: the tabs stay in view.
    QSize size(width_.SetTwips(s.windowWidth, DpiX()), height_.SetTwips(s.windowHeight, DpiY()));
    if (const QScreen* shown = screen() ? screen() : QGuiApplication::primaryScreen())
        size = size.boundedTo(shown->availableGeometry().size());
    resize(size);

    tabMain->setTabEnabled(0, true);
    tabMain->setTabEnabled(1, false);
    tabMain->setTabEnabled(2, false);
    PopulateGridHeader();

    if (maximise)
        showMaximized();
    else
        showNormal();
    QCoreApplication::processEvents();

    profilePage->ReadDefaultPWP();

    QApplication::setOverrideCursor(Qt::WaitCursor);
    QElapsedTimer sincePaint;
    sincePaint.start();
    // Let the window repaint while the records load, without paying for an
    // event-loop pass on every one of several thousand records.
    LoadDatabaseRecords(session_.foodTable, [&sincePaint](int) {
        if (sincePaint.elapsed() >= 15) {
            QCoreApplication::processEvents();
            sincePaint.restart();
        }
    });
    chooserPage->RebuildTierMap();
    QApplication::restoreOverrideCursor();

    chooserPage->FillQuantityList();

    SetViewMode(s.viewMode == kViewDV);
    QCoreApplication::processEvents();
    menuBar()->setEnabled(true);
    loading_ = false;

    if (session_.tutorialPending) {
        session_.tutorialPending = false;
        if (seams_.prompts.Message(QString::fromLatin1(kTutorialQuestion), QString::fromLatin1(kTutorialTitle),
                                   MsgIcon::Question, MsgButtons::YesNo) == MsgResult::Yes)
            OpenHelp(seams_.help, session_.programFolder, kHelpContext,
                                 kTopicQuickTutorial);
    }
}

void MainWindow::PopulateGridHeader()
{
    for (int c = 0; c < kGridColumns; ++c)
        gridMain->setColumnWidth(c, columns_[c].SetTwips(session_.settings.columnWidths[c], DpiX()));
}

// The view mode lives in the settings; the View menu's check marks show it.
bool MainWindow::ViewByUnits() const { return session_.settings.viewMode != kViewDV; }

void MainWindow::SetViewMode(bool byDV)
{
    mnuViewByUnits->setChecked(!byDV);
    mnuViewByDV->setChecked(byDV);
    session_.settings.viewMode = byDV ? kViewDV : kViewUnits;
    if (frmDays)
        frmDays->SetViewByUnits(!byDV);
    ChangeView();
}

void MainWindow::ChangeView()
{
    chooserPage->SetUnitCaptions(!ViewByUnits());
    if (chooserPage->FoodChosen())
        chooserPage->DisplayFoodNutrients(session_.chooser.currentFood);
    listModel->SetViewByUnits(ViewByUnits());
    RefreshGrid();
    // The daily intake again, as percents written without the blank that a
    // written row leaves before "DV".
    ShowDailyIntake(ViewByUnits() ? IntakeStyle::Units : IntakeStyle::PercentUnspaced);
}

void MainWindow::RefreshGrid()
{
    PopulateGridHeader();
    if (session_.foodList.Count() >= 1)
        ShowDailyIntake(ViewByUnits() ? IntakeStyle::Units : IntakeStyle::PercentSpaced);
}

void MainWindow::ShowDailyIntake(IntakeStyle style)
{
    const NutrientValues totals = session_.foodList.Totals();
    for (int i = 0; i < kShownNutrients; ++i)
        analysisPage->SetDailyIntake(i, QString::fromLatin1(DailyIntakeText(static_cast<Nutrient>(i), totals[i],
                                                                            session_.dailyValues[i], style)));
}

void MainWindow::OnListChanged()
{
    const FoodList& list = session_.foodList;
    // An emptied list brings the remembered column widths back.
    if (list.Count() == 0 && !list.blankRowBelow)
        PopulateGridHeader();
    ShowDailyIntake(ViewByUnits() ? IntakeStyle::Units : IntakeStyle::PercentSpaced);
    RefreshChart();
    UpdateListMenus();
}

void MainWindow::UpdateListMenus()
{
    const ListCommandStates allowed = ListCommandsFor(session_.foodList.Count());
    mnuClearList->setEnabled(allowed.clear);
    mnuSave->setEnabled(allowed.save);
    SetMenuEnabled(mnuPrint, allowed.print);
    mnuList->setEnabled(allowed.print);
    mnuPrintAnalysis->setEnabled(allowed.print);
    for (QAction* report : {mnuPrintPreview, mnuExportPdf, mnuExportCsv})
        report->setEnabled(allowed.print);
    mnuSaveAsDish->setEnabled(allowed.saveAsDish);
}

void MainWindow::OnProfileValidated(bool valid)
{
    tabMain->setTabEnabled(1, valid);
    tabMain->setTabEnabled(2, valid);
    mnuAddCustomItem->setEnabled(true);
    gridMain->setEnabled(valid);
    SetMenuEnabled(mnuViewBy, valid);
    if (valid) {
        analysisPage->UpdateSummary();
        RefreshGrid();
    }
    RefreshChart();
}

void MainWindow::ShowHelpTopic(int command, std::optional<int> context)
{
    OpenHelp(seams_.help, session_.programFolder, command, context);
}

void MainWindow::OpenDocument(const QString& path)
{
    if (path.endsWith(QString::fromLatin1(kProfileExtension), Qt::CaseInsensitive)) {
        profilePage->ReadPWP(path);
        return;
    }
    if (listFile->ListNeedsSaving())
        listFile->SaveGridQuery(QString::fromLatin1(texts::kTitleOpenAnalysis));
    listFile->OpenListFile(path);
}

void MainWindow::mnuShowTip_Click()
{
    // The action has already flipped its check mark.
    session_.settings.showTips = mnuShowTip->isChecked();
    if (session_.settings.showTips)
        session_.settings.currentTip = 0;
}

void MainWindow::mnuRememberWindowSize_Click()
{
    session_.settings.rememberWindowSize = mnuRememberWindowSize->isChecked();
}

void MainWindow::mnuRememberColumnWidth_Click()
{
    session_.settings.rememberColumnWidths = mnuRememberColumnWidth->isChecked();
}

ReportSource MainWindow::CurrentReportSource() const
{
    return {session_.profile, session_.dailyValues, session_.foodList,
            QDate::currentDate().toString(Qt::ISODate).toStdString()};
}

void MainWindow::RefreshChart()
{
    const DailyValues none{};
    chartNutrients->SetData(BuildChartData(session_.profile.valid ? session_.dailyValues : none,
                                           session_.foodList.Totals()));
}

void MainWindow::mnuRichIn_Click(int nutrient)
{
    if (!frmRichIn) {
        frmRichIn = new RichInDialog(session_, seams_, &guard_, this);
        // The food goes to the chooser, on its tab, ready for Enter.
        connect(frmRichIn, &RichInDialog::foodChosen, this, [this](int index, const QString& quantity) {
            guard_.Run([&] {
                tabMain->setCurrentWidget(chooserPage);
                chooserPage->TakeRankedFood(index, quantity);
            });
        });
    }
    frmRichIn->PresetNutrient(nutrient >= 0 && nutrient < kShownNutrients ? std::optional(static_cast<Nutrient>(nutrient))
                                                                         : std::nullopt);
    frmRichIn->SetProfileComplete(session_.profile.valid && tabMain->isTabEnabled(1));
    frmRichIn->open();
}

void MainWindow::mnuList_Click() { reports_->PrintReport(BuildFoodListReport(CurrentReportSource(), ViewByUnits())); }

void MainWindow::mnuPrintAnalysis_Click() { reports_->PrintReport(BuildAnalysisReport(CurrentReportSource())); }

void MainWindow::mnuPrintPreview_Click() { reports_->PreviewReport(BuildAnalysisReport(CurrentReportSource())); }

void MainWindow::mnuExportPdf_Click() { reports_->ExportPdf(BuildAnalysisReport(CurrentReportSource())); }

void MainWindow::mnuExportCsv_Click()
{
    const ReportSource source = CurrentReportSource();
    reports_->ExportCsv(session_.foodList, session_.profile.inputs.name, source.dateText);
}

// The days window is built once and kept; its last folder lives in its own
// settings file beside the help window's (~/.config/Platewell/days.ini).
void MainWindow::mnuAnalyseDays_Click()
{
    if (!frmDays) {
        const QString settingsFile =
            QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Platewell"), QStringLiteral("days"))
                .fileName();
        frmDays = new DaysWindow(session_.foodTable, seams_, settingsFile, this);
        frmDays->SetViewByUnits(ViewByUnits());
        connect(frmDays, &DaysWindow::printRequested, this,
                [this](const ReportDocument& report) { guard_.Run([&] { reports_->PrintReport(report); }); });
        connect(frmDays, &DaysWindow::previewRequested, this,
                [this](const ReportDocument& report) { guard_.Run([&] { reports_->PreviewReport(report); }); });
        connect(frmDays, &DaysWindow::pdfRequested, this,
                [this](const ReportDocument& report) { guard_.Run([&] { reports_->ExportPdf(report); }); });
        connect(frmDays, &DaysWindow::helpRequested, this, [this] { ShowHelpTopic(kHelpContext, kTopicDays); });
        frmDays->OpenLastFolder();
    }
    frmDays->show();
    frmDays->raise();
    frmDays->activateWindow();
}

void MainWindow::mnuAbout_Click()
{
    if (!aboutBox)
        aboutBox = new AboutBox(session_, this);
    aboutBox->open();
}

void MainWindow::mnuPlatewellWeb_Click()
{
    const QString address = QString::fromLatin1(kWebPageAddress);
    if (!seams_.help.OpenWebPage(address))
        seams_.prompts.Message(QString::fromLatin1(kWebPageFailed) + address, QString::fromLatin1(kWebPageTitle),
                               MsgIcon::Exclamation);
}

void MainWindow::Disclaimer()
{
    std::vector<std::string> lines(std::begin(kDisclaimerLines), std::end(kDisclaimerLines));
    seams_.prompts.Beep();
    seams_.prompts.Message(QString::fromLatin1(JoinLines(lines)), QString::fromLatin1(kDisclaimerTitle),
                           MsgIcon::Critical);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

void MainWindow::Form_Resize()
{
    if (isMinimized())
        return;
    const int dpiX = DpiX();
    const int dpiY = DpiY();
    const int minWidth = TwipsToPx(kDefaultWindowWidth, dpiX);
    const int minHeight = TwipsToPx(kDefaultWindowHeight, dpiY);
    if (!isMaximized() && !isFullScreen() && (width() < minWidth || height() < minHeight)) {
        resize(std::max(width(), minWidth), std::max(height(), minHeight));
        return;  // the resize comes back here with the new size
    }
    const int w = WidthTwips();
    const int h = HeightTwips();
    gridMain->setGeometry(TwipsToPx(kGridLeft, dpiX), TwipsToPx(kGridTop, dpiY),
                          TwipsToPx(w - kGridWidthMargin, dpiX), TwipsToPx(h - kGridHeightMargin, dpiY));
    tabMain->setGeometry(TwipsToPx(w / 2 - kTabHalfWidth, dpiX), TwipsToPx(kTabTop, dpiY), TwipsToPx(kTabWidth, dpiX),
                         TwipsToPx(kTabHeight, dpiY));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (loading_) {
        event->ignore();
        return;
    }
    guard_.Run([&] { Egress(); });
    event->accept();
}

void MainWindow::Egress()
{
    if (egressDone_ || session_.ended)
        return;
    egressDone_ = true;
    Settings& s = session_.settings;

    // Each file on its own: one that cannot be written (a full disk, a folder
    // made read-only) is told with the offer to try again, and the others are
    // still saved.
    const QString title = QStringLiteral("Platewell");
    bool allSaved = SaveOrTell(seams_.prompts, title, [&] { profilePage->WriteDefaultPWP(); }, true);

    if (!s.rememberColumnWidths) {
        s.columnWidths = kDefaultColumnWidths;
    } else {
        for (int c = 0; c < kGridColumns; ++c)
            s.columnWidths[c] = columns_[c].Twips(gridMain->columnWidth(c), DpiX());
    }
    if (s.rememberWindowSize) {
        s.windowWidth = WidthTwips();
        s.windowHeight = HeightTwips();
    } else {
        s.windowWidth = kDefaultWindowWidth;
        s.windowHeight = kDefaultWindowHeight;
    }
    s.windowState = isMinimized() ? 1 : isMaximized() ? 2 : 0;
    allSaved = SaveOrTell(seams_.prompts, title, [&] { WriteSettings(session_.programFolder, s); }, true) && allSaved;

    std::string dataPath = FindFileNoCase(session_.programFolder, kDataFileName);
    if (dataPath.empty())
        dataPath = JoinPath(session_.programFolder, kDataFileName);
    allSaved = SaveOrTell(seams_.prompts, title, [&] {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        try {
            SaveDatabase(session_.foodTable, dataPath);
        } catch (...) {
            QApplication::restoreOverrideCursor();
            throw;
        }
        QApplication::restoreOverrideCursor();
    }, true) && allSaved;

    if (listFile->ListNeedsSaving())
        listFile->SaveGridQuery(QString::fromLatin1(texts::kTitleExit), true);

    session_.ended = true;
    // A file left unsaved at the user's word still ends the program, but
    // not as a success: a script that started it can tell.
    QCoreApplication::exit(allSaved ? 0 : 1);
}

}  // namespace pw
