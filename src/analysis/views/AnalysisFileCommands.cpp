#include "analysis/views/AnalysisFileCommands.h"

#include <QFile>
#include <QLabel>
#include <QTabWidget>
#include <QWidget>

#include "core/views/Widgets.h"
#include "analysis/AnalysisFile.h"
#include "analysis/AnalysisOpening.h"
#include "analysis/views/AnalysisPage.h"
#include "analysis/AnalysisTexts.h"
#include "analysis/views/ProfilePage.h"
#include "core/RunTimeError.h"
#include "foodlist/FoodListTexts.h"
#include "core/views/Seams.h"
#include "analysis/AnalysisSession.h"

namespace pw {

namespace {

FileDialogRequest ListFileRequest(const AnalysisSession& session)
{
    FileDialogRequest request;
    request.initialFolder = FromNativePath(session.programFolder);
    request.defaultExtension = QString::fromLatin1(kAnalysisExtension);
    request.filter = QString::fromLatin1(texts::kAnalysisFilter);
    request.overwritePrompt = true;
    request.pathMustExist = true;
    return request;
}

}  // namespace

AnalysisFileCommands::AnalysisFileCommands(AnalysisSession& session, Seams& seams, QWidget& window, QTabWidget& tabs,
                                           ProfilePage& profilePage,
                                           AnalysisPage& analysisPage, ListLink list,
                                           QObject* parent)
    : QObject(parent), session_(session), seams_(seams), window_(window), tabs_(tabs), profilePage_(profilePage),
      analysisPage_(analysisPage), list_(std::move(list))
{
}

bool AnalysisFileCommands::ListNeedsSaving() const
{
    return session_.foodList.Count() >= 1 && !session_.foodList.listSaved;
}

void AnalysisFileCommands::SetCaption()
{
    window_.setWindowTitle(QString::fromLatin1(texts::kMainTitle) + QString::fromLatin1(texts::kCaptionFileSeparator) +
                           FromNativePath(session_.currentListFile));
}

void AnalysisFileCommands::SaveGrid(bool atExit)
{
    FileDialogRequest request = ListFileRequest(session_);
    request.proposedName = FromNativePath(session_.currentListFile);
    request.hideReadOnly = true;
    const std::optional<QString> path = seams_.files.SaveFile(request);
    if (!path)
        return;
    // A failed save leaves the list unsaved, so leaving it still asks.
    if (!SaveOrTell(seams_.prompts, QString::fromLatin1(texts::kMainTitle), [&] { WriteAnalysis(*path); },
                    atExit))
        return;
    session_.currentListFile = ToNativePath(*path);
    SetCaption();
    seams_.prompts.Message(std::string(texts::kAnalysisSaved), texts::kTitleAnalysisSaved, MsgIcon::Information);
}

void AnalysisFileCommands::WriteAnalysis(const QString& path)
{
    WriteAnalysisFile(ToNativePath(path), profilePage_.CurrentInputs(), session_.foodList);
    session_.foodList.listSaved = true;
}

void AnalysisFileCommands::OpenGrid()
{
    // No file-must-exist check: a name that is not there is reported as a
    // file that is not a list file.
    const std::optional<QString> path = seams_.files.OpenFile(ListFileRequest(session_));
    if (!path)
        return;
    OpenListFile(*path);
}

void AnalysisFileCommands::OpenListFile(const QString& path)
{
    session_.currentListFile = ToNativePath(path);
    // Emptying the profile closes the list's tabs for a moment; the page
    // the user opened the file from comes back once the profile read is
    // valid again.
    const int page = tabs_.currentIndex();
    ClearData();
    ReadAnalysis(path);
    if (session_.ended)
        return;
    if (page >= 0 && tabs_.isTabEnabled(page))
        tabs_.setCurrentIndex(page);
    SetCaption();
    session_.foodList.listSaved = true;
}

void AnalysisFileCommands::ReportNotAnAnalysisFile(const QString& path)
{
    seams_.prompts.Message(path + QString::fromLatin1(texts::kNotAnAnalysisFile),
                           QString::fromLatin1(texts::kTitleError), MsgIcon::Critical);
}

void AnalysisFileCommands::ReadAnalysis(const QString& path)
{
    list_.refresh();
    const AnalysisFileContent content = ReadAnalysisFile(ToNativePath(path));
    if (content.refused) {
        ReportNotAnAnalysisFile(path);
        return;
    }
    // The profile first, whatever the order of the lines: the entries'
    // percents are taken of its daily values.
    if (!profilePage_.ApplySettings(content.settings)) {
        ReportNotAnAnalysisFile(path);
        return;
    }
    bool valid = content.valid;
    try {
        profilePage_.ValidateTab1Data();
        if (session_.ended)
            return;
        const DailyValues dailyValues = session_.profile.valid ? session_.dailyValues : DailyValues{};
        // More rows than a list holds end here, as a file that is not a list.
        // Once the program is ending (terminated while a message was up) the
        // rest of the file is not told.
        OpenItems(content.items, session_.foodTable, dailyValues, list_.append, [&](const std::string& text) {
            if (!session_.ended)
                seams_.prompts.Message(text, texts::kTitleOpenList, MsgIcon::Exclamation);
        });
        // A valid profile brings the summary and the grid up to date.
        if (valid)
            profilePage_.ValidateTab1Data();
    } catch (const RunTimeError&) {
        valid = false;
    }
    if (!valid && !session_.ended)
        ReportNotAnAnalysisFile(path);
}

void AnalysisFileCommands::ClearData()
{
    profilePage_.ApplySettings({{ProfileField::Name, {}},
                                {ProfileField::Yob, {}},
                                {ProfileField::Height, {}},
                                {ProfileField::Weight, {}}});
    // The emptied profile is invalid: the list's tab and the grid close.
    profilePage_.ValidateTab1Data();
    analysisPage_.ClearPerson();
    list_.disableChooser();
    list_.clear();
}

void AnalysisFileCommands::SaveGridQuery(const QString& title, bool atExit)
{
    if (seams_.prompts.Message(QString::fromLatin1(texts::kSaveListQuestion), title, MsgIcon::Question,
                               MsgButtons::YesNo) == MsgResult::Yes)
        SaveGrid(atExit);
}

void AnalysisFileCommands::mnuSave_Click() { SaveGrid(); }

void AnalysisFileCommands::mnuOpen_Click()
{
    if (ListNeedsSaving())
        SaveGridQuery(QString::fromLatin1(texts::kTitleOpenAnalysis));
    OpenGrid();
}

void AnalysisFileCommands::mnuClearList_Click()
{
    if (ListNeedsSaving())
        SaveGridQuery(QString::fromLatin1(texts::kTitleClearList));
    window_.setWindowTitle(QString::fromLatin1(texts::kMainTitle));
    session_.currentListFile.clear();
    list_.clear();
}

}  // namespace pw
