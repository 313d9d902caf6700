#pragma once
// The main window: the profile, food-list and analysis tabs, the grid of
// chosen foods, the menus, the resize rule and the one way out, Egress.
#include <QMainWindow>
#include <array>
#include <memory>

#include "core/views/Twips.h"
#include "foodlist/FoodList.h"

class QAction;
class QMenu;
class QTabWidget;
class QTableView;

namespace pw {

class AboutBox;
class DaysWindow;
class AnalysisFileCommands;
class AnalysisPage;
class DatabaseCommands;
class SearchDialog;
class RichInDialog;
class ErrorGuard;
class FoodListGrid;
class FoodListModel;
class FoodChooserPage;
class NutrientChart;
class ReportCommands;
struct ReportSource;
class ProfilePage;
struct Seams;
struct Session;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow(Session& session, Seams& seams, ErrorGuard& guard, QWidget* parent = nullptr);
    ~MainWindow() override;

    // The main window's start-up: menus and geometry from the settings, the
    // grid header, the default profile, the food table's records and group
    // list, the quantity list, the view and the first-run tutorial offer.
    void Form_Load();
    // Shutdown, in order: default profile, column widths, window size and
    // state, pw.ini, data.dat, the offer to save an unsaved list; then the
    // program ends. Runs once.
    void Egress();
    bool EgressDone() const { return egressDone_; }

    bool ViewByUnits() const;
    // Opens a document handed over by the desktop or the command line: a
    // profile (".pwp", in any case) as Load Profile does once its file is
    // chosen, anything else as File > Open does once its file is chosen,
    // after offering to save an unsaved list.
    void OpenDocument(const QString& path);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildMenus();
    // Undo and Redo follow the list's undo stack.
    void BuildEditMenu();
    void BuildCentre();
    // The grid's captions and (remembered) column widths.
    void PopulateGridHeader();
    // Redraws everything that shows nutrient values in the current view: the
    // chooser's units and values, the grid and the daily intake.
    void ChangeView();
    // The grid's header, and the totals while the list has rows.
    void RefreshGrid();
    // After every change of the list: the totals, the chart and the list
    // commands follow it.
    void OnListChanged();
    // The list's totals in the analysis' daily-intake labels.
    void ShowDailyIntake(IntakeStyle style);
    void Form_Resize();
    void OnProfileValidated(bool valid);
    void ShowHelpTopic(int command, std::optional<int> context);
    void Disclaimer();
    void mnuShowTip_Click();
    void mnuAbout_Click();
    void mnuList_Click();
    void mnuPrintAnalysis_Click();
    // The analysis report previewed or saved as a PDF; the list as CSV.
    void mnuPrintPreview_Click();
    void mnuExportPdf_Click();
    void mnuExportCsv_Click();
    void mnuAnalyseDays_Click();
    ReportSource CurrentReportSource() const;
    // The chart follows the list's totals and the daily values.
    void RefreshChart();
    // The foods rich in a nutrient (-1: the dialog's own choice).
    void mnuRichIn_Click(int nutrient);
    void mnuPlatewellWeb_Click();
    void mnuRememberWindowSize_Click();
    void mnuRememberColumnWidth_Click();
    void SetViewMode(bool byDV);
    // The list commands follow the list's length.
    void UpdateListMenus();
    int DpiX() const;
    int DpiY() const;
    int WidthTwips() const;
    int HeightTwips() const;

    Session& session_;
    Seams& seams_;
    std::unique_ptr<ReportCommands> reports_;
    ErrorGuard& guard_;
    bool loading_ = false;
    bool egressDone_ = false;
    TwipsLength width_;
    TwipsLength height_;
    std::array<TwipsLength, 13> columns_;

    // The windows and menus, each found by its objectName as well.
    QTabWidget* tabMain = nullptr;
    QTableView* gridMain = nullptr;
    FoodListModel* listModel = nullptr;  // the list's rows and its undo stack
    ProfilePage* profilePage = nullptr;
    FoodChooserPage* chooserPage = nullptr;
    AnalysisPage* analysisPage = nullptr;
    FoodListGrid* listGrid = nullptr;  // the list's rows in gridMain
    NutrientChart* chartNutrients = nullptr;  // on the analysis tab
    AnalysisFileCommands* listFile = nullptr;  // the list saved to and opened from its file
    int pageBeforeOpen_ = -1;                  // the page a list file was opened from
    AboutBox* aboutBox = nullptr;  // created on first use
    DaysWindow* frmDays = nullptr;  // created on first use
    // The Database menu: the dialogs that change the food table, and deleting.
    DatabaseCommands* database = nullptr;
    // Opened by the chooser's Search button; created on first use and kept.
    SearchDialog* frmSearch = nullptr;
    // The foods rich in a nutrient; created on first use and kept.
    RichInDialog* frmRichIn = nullptr;

    // Menus and items, named as their objectName.
    QMenu* mnuFile = nullptr;
    QMenu* mnuPrint = nullptr;
    QMenu* mnuEdit = nullptr;
    QAction* mnuUndo = nullptr;
    QAction* mnuRedo = nullptr;
    QMenu* mnuDatabase = nullptr;
    QMenu* mnuViewBy = nullptr;
    QMenu* mnuOptions = nullptr;
    QMenu* mnuHelp = nullptr;
    QAction* mnuOpen = nullptr;
    QAction* mnuSave = nullptr;
    QAction* mnuClearList = nullptr;
    QAction* mnuList = nullptr;
    QAction* mnuPrintAnalysis = nullptr;
    QAction* mnuPrintPreview = nullptr;
    QAction* mnuExportPdf = nullptr;
    QAction* mnuExportCsv = nullptr;
    QAction* mnuAnalyseDays = nullptr;
    QAction* mnuExit = nullptr;
    QAction* mnuRichIn = nullptr;
    QAction* mnuAddCustomItem = nullptr;
    QAction* mnuSaveAsDish = nullptr;
    QAction* mnuCopyToFavorites = nullptr;
    QAction* mnuDeleteFromDatabase = nullptr;
    QAction* mnuViewByUnits = nullptr;
    QAction* mnuViewByDV = nullptr;
    QAction* mnuShowTip = nullptr;
    QAction* mnuRememberWindowSize = nullptr;
    QAction* mnuRememberColumnWidth = nullptr;
    QAction* mnuQuickTutorial = nullptr;
    QAction* mnuHelpContents = nullptr;
    QAction* mnuHelpIndex = nullptr;
    QAction* mnuHelpOnHelp = nullptr;
    QAction* mnuTechSupport = nullptr;
    QAction* mnuPlatewellWeb = nullptr;
    QAction* mnuDisclaimer = nullptr;
    QAction* mnuAbout = nullptr;
};

}  // namespace pw
