#pragma once
// Saving and opening the food list with its profile as a list file (.pwl),
// clearing the list, and the question that offers to save an unsaved list
// before it is cleared, replaced or left behind at exit.
#include <QObject>
#include <QString>
#include <vector>

#include "analysis/Profile.h"
#include "foodlist/FoodList.h"

namespace pw {

class ProfilePage;
struct Seams;
struct AnalysisSession;

class AnalysisFileCommands : public QObject {
    Q_OBJECT
signals:
    // The rows of the list file named name, read: they replace the list.
    void listRead(std::vector<pw::FoodListEntry> rows, const QString& name);
    // The list as it stands was written to its file.
    void listWritten();
    // The list is to be emptied, and the file it was saved as or opened
    // from forgotten.
    void clearListWanted(const QString& file);
    // The main window's caption: the program's name, and the list file's
    // path while there is one.
    void captionChanged(const QString& caption);
    // The profile was emptied: the person's age and BMI go too.
    void personCleared();
    // A list file is about to replace the profile and the list, and has
    // replaced them (not sent when the program ended meanwhile).
    void openStarting();
    void openFinished();

public:
    // profilePage holds the profile the list file is saved and read with.
    AnalysisFileCommands(AnalysisSession& session, Seams& seams, ProfilePage& profilePage, QObject* parent = nullptr);

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
    // An opened list taken back (undo) or opened again: the profile and the
    // file's name it came with, or those it replaced, are put back.
    void StepOpen(bool undo);
    // The list file named in the caption, or none.
    void ShowListFile(const QString& file);
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
    // Reads a list file into the profile and returns its rows: every food is
    // looked for by its tier texts, a missing one is reported and dropped,
    // and a file that is not a list file is reported, keeping what was read
    // before the fault.
    std::vector<FoodListEntry> ReadAnalysis(const QString& path);
    // Empties the profile entries and the age and BMI captions.
    void ClearData();
    void SetCaption();
    // The profile and the list file as an open finds or leaves them.
    struct Opened {
        ProfileInputs inputs;
        std::string listFile;
    };
    Opened Current() const;
    void Restore(const Opened& state);
    void ReportNotAnAnalysisFile(const QString& path);

    AnalysisSession& session_;
    Seams& seams_;
    ProfilePage& profilePage_;
    // Before and after the last open, which an undo and a redo go back to.
    Opened beforeOpen_;
    Opened afterOpen_;
};

}  // namespace pw
