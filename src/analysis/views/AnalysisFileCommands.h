#pragma once
// Saving and opening the food list with its profile as a list file (.pwl),
// clearing the list, and the question that offers to save an unsaved list
// before it is cleared, replaced or left behind at exit.
#include <QObject>
#include <QString>
#include <functional>

#include "foodlist/FoodList.h"

class QTabWidget;

namespace pw {

class AnalysisPage;
class ProfilePage;
struct Seams;
struct AnalysisSession;

// What the list-file commands ask of the chooser and the grid of chosen foods.
struct ListLink {
    std::function<void()> refresh;                    // the grid redrawn from the list
    std::function<void(FoodListEntry entry)> append;  // a row added to the list and the grid
    std::function<void()> clear;                      // the list and the grid emptied
    std::function<void()> disableChooser;             // the chooser's tiers emptied
};

class AnalysisFileCommands : public QObject {
    Q_OBJECT
public:
    // window is the main window, whose caption names the list file; tabs
    // are its pages.
    AnalysisFileCommands(AnalysisSession& session, Seams& seams, QWidget& window, QTabWidget& tabs, ProfilePage& profilePage,
                         AnalysisPage& analysisPage, ListLink list, QObject* parent = nullptr);

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

    AnalysisSession& session_;
    Seams& seams_;
    QWidget& window_;
    QTabWidget& tabs_;
    ProfilePage& profilePage_;
    AnalysisPage& analysisPage_;
    ListLink list_;
};

}  // namespace pw
