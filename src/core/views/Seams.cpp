#include "core/views/Seams.h"

#include "core/HelpContexts.h"

#include <QDir>
#include <QFile>

#include "core/LineFile.h"
#include "core/views/Widgets.h"
#include "core/RunTimeError.h"

namespace pw {

QString InFolder(const std::string& folder, const QString& name)
{
    const std::string found = FindFileNoCase(folder, name.toStdString());
    if (!found.empty())
        return QString::fromStdString(found);
    return QDir(QString::fromStdString(folder)).filePath(name);
}

void OpenHelp(HelpDisplay& help, const std::string& programFolder, int command, std::optional<int> context)
{
    help.ShowHelp(InFolder(programFolder, QString::fromLatin1(kHelpFileName)), command, context);
}

bool SaveOrTell(Prompts& prompts, const QString& title, const std::function<void()>& save, bool offerRetry)
{
    for (;;) {
        try {
            save();
            return true;
        } catch (const SaveError& error) {
            QString text = QStringLiteral("Platewell could not save the file\r\n") +
                           FromNativePath(error.Path()) +
                           QStringLiteral("\r\n\r\nThe system says: ") + QString::fromLocal8Bit(error.Reason()) +
                           QStringLiteral(".");
            if (!offerRetry) {
                prompts.Message(text + QStringLiteral("\r\n\r\nThe file was not saved."), title,
                                MsgIcon::Exclamation);
                return false;
            }
            text += QStringLiteral("\r\n\r\nFree some disk space or correct the folder's permissions, then choose "
                                   "Retry. Cancel goes on without saving this file; its previous version is kept.");
            if (prompts.Message(text, title, MsgIcon::Exclamation, MsgButtons::RetryCancel) != MsgResult::Retry)
                return false;
        }
    }
}

}  // namespace pw
