#pragma once
// Saving and opening the food list with its profile as a list file (.pwl),
// clearing the list, and the question that offers to save an unsaved list
// before it is cleared, replaced or left behind at exit.
#include <QObject>
#include <QString>

class QTabWidget;

namespace pw {

class AnalysisPage;
class FoodListGrid;
class FoodListPage;
class ProfilePage;
struct Seams;
struct Session;

class AnalysisFileCommands : public QObject {
    Q_OBJECT
public:
    // window is the main window, whose caption names the list file; tabs
    // are its pages.
    AnalysisFileCommands(Session& session, Seams& seams, QWidget& window, QTabWidget& tabs, ProfilePage& profilePage,
                         AnalysisPage& analysisPage, FoodListPage& chooser, FoodListGrid& grid,
                         QObject* parent = nullptr);

    // Asks for a file and saves the analysis to it; Cancel changes nothing.
    // atExit: a failed write offers to try again.
    void SaveGrid(bool atExit = false);
    // Writes the profile and the list to path and marks the list saved; a
    // failure is a PathFileAccess run-time error.
    void WriteAnalysis(const QString& path);
    // Asks for a file, then empties the profile and the list and reads the
    // file; Cancel changes nothing.
    void OpenGrid();
    // What OpenGrid does once the file is chosen: empties the profile and
    // the list, reads the file and names it in the caption.
    void OpenListFile(const QString& path);
    // Reads a list file into the profile and the list: every food is looked
    // for by its tier texts, a missing one is reported and dropped, and a
    // file that is not a list file is reported, keeping what was read
    // before the fault.
    void ReadAnalysis(const QString& path);
    // Empties the profile entries, the age and BMI captions, the chooser and
    // the list.
    void ClearData();
    // "Do you want to save your foodlist?" under title; Yes saves.
    void SaveGridQuery(const QString& title, bool atExit = false);
    // True when the list has rows not saved since they changed.
    bool ListNeedsSaving() const;

    void mnuSave_Click();
    void mnuOpen_Click();
    // Offers to save, then clears the list and forgets its file; the profile
    // stays.
    void mnuClearList_Click();

private:
    void SetCaption();
    void ReportNotAnAnalysisFile(const QString& path);

    Session& session_;
    Seams& seams_;
    QWidget& window_;
    QTabWidget& tabs_;
    ProfilePage& profilePage_;
    AnalysisPage& analysisPage_;
    FoodListPage& chooser_;
    FoodListGrid& grid_;
};

}  // namespace pw
