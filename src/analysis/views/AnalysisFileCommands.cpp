#include "analysis/views/AnalysisFileCommands.h"

#include <QFile>

#include "core/views/Widgets.h"
#include "analysis/AnalysisFile.h"
#include "analysis/AnalysisOpening.h"
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

// The profile's entries as settings that put them back as they are.
std::vector<ProfileSetting> SettingsOf(const ProfileInputs& inputs)
{
    return {{ProfileField::Name, inputs.name},
            {ProfileField::Yob, inputs.yob},
            {ProfileField::Measurement, {}, inputs.measurement},
            {ProfileField::Height, inputs.height},
            {ProfileField::Weight, inputs.weight},
            {ProfileField::Sex, {}, inputs.sex},
            {ProfileField::Lifestyle, {}, inputs.lifestyle}};
}

}  // namespace

AnalysisFileCommands::AnalysisFileCommands(AnalysisSession& session, Seams& seams, ProfilePage& profilePage,
                                           QObject* parent)
    : QObject(parent), session_(session), seams_(seams), profilePage_(profilePage)
{
}

AnalysisFileCommands::Opened AnalysisFileCommands::Current() const
{
    return {profilePage_.CurrentInputs(), session_.currentListFile};
}

void AnalysisFileCommands::Restore(const Opened& state)
{
    profilePage_.ApplySettings(SettingsOf(state.inputs));
    profilePage_.ValidateTab1Data();
    ShowListFile(FromNativePath(state.listFile));
}

void AnalysisFileCommands::ShowListFile(const QString& file)
{
    session_.currentListFile = ToNativePath(file);
    if (file.isEmpty())
        emit captionChanged(QString::fromLatin1(texts::kMainTitle));
    else
        SetCaption();
}

void AnalysisFileCommands::StepOpen(bool undo) { Restore(undo ? beforeOpen_ : afterOpen_); }

bool AnalysisFileCommands::ListNeedsSaving() const
{
    return session_.foodList.Count() >= 1 && !session_.foodList.listSaved;
}

void AnalysisFileCommands::SetCaption()
{
    emit captionChanged(QString::fromLatin1(texts::kMainTitle) + QString::fromLatin1(texts::kCaptionFileSeparator) +
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
    emit listWritten();
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
    const Opened before = Current();
    session_.currentListFile = ToNativePath(path);
    // Emptying the profile closes the list's tabs for a moment; the page
    // the user opened the file from comes back once the profile read is
    // valid again.
    emit openStarting();
    ClearData();
    std::vector<FoodListEntry> rows = ReadAnalysis(path);
    if (session_.ended)
        return;
    beforeOpen_ = before;
    afterOpen_ = Current();
    emit listRead(std::move(rows), FromNativePath(session_.currentListFile).section(QLatin1Char('/'), -1));
    emit openFinished();
    SetCaption();
}

void AnalysisFileCommands::ReportNotAnAnalysisFile(const QString& path)
{
    seams_.prompts.Message(path + QString::fromLatin1(texts::kNotAnAnalysisFile),
                           QString::fromLatin1(texts::kTitleError), MsgIcon::Critical);
}

std::vector<FoodListEntry> AnalysisFileCommands::ReadAnalysis(const QString& path)
{
    std::vector<FoodListEntry> rows;
    const AnalysisFileContent content = ReadAnalysisFile(ToNativePath(path));
    if (content.refused) {
        ReportNotAnAnalysisFile(path);
        return rows;
    }
    // The profile first, whatever the order of the lines: the entries'
    // percents are taken of its daily values.
    if (!profilePage_.ApplySettings(content.settings)) {
        ReportNotAnAnalysisFile(path);
        return rows;
    }
    bool valid = content.valid;
    try {
        profilePage_.ValidateTab1Data();
        if (session_.ended)
            return rows;
        const DailyValues dailyValues = session_.profile.valid ? session_.dailyValues : DailyValues{};
        // More rows than a list holds end here, as a file that is not a list.
        const auto row = [&rows](FoodListEntry entry) {
            if (static_cast<int>(rows.size()) >= kFoodListCapacity)
                throw RunTimeError(ErrorKind::SubscriptRange, "food list row " + std::to_string(rows.size() + 1));
            rows.push_back(std::move(entry));
        };
        // Once the program is ending (terminated while a message was up) the
        // rest of the file is not told.
        OpenItems(content.items, session_.foodTable, dailyValues, row, [&](const std::string& text) {
            if (!session_.ended)
                seams_.prompts.Message(text, texts::kTitleOpenList, MsgIcon::Exclamation);
        });
    } catch (const RunTimeError&) {
        valid = false;
    }
    if (!valid && !session_.ended)
        ReportNotAnAnalysisFile(path);
    return rows;
}

void AnalysisFileCommands::ClearData()
{
    profilePage_.ApplySettings({{ProfileField::Name, {}},
                                {ProfileField::Yob, {}},
                                {ProfileField::Height, {}},
                                {ProfileField::Weight, {}}});
    // The emptied profile is invalid: the list's tab and the grid close.
    profilePage_.ValidateTab1Data();
    emit personCleared();
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
    const QString file = FromNativePath(session_.currentListFile);
    ShowListFile({});
    emit clearListWanted(file);
}

}  // namespace pw
