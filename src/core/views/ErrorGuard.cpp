#include "core/views/ErrorGuard.h"

#include <QApplication>
#include <QCoreApplication>

namespace pw {

void ErrorGuard::Report(const RunTimeError& error)
{
    if (failed_)
        return;  // one message, however many handlers the error passed through
    failed_ = true;
    ended_ = true;
    while (QApplication::overrideCursor())
        QApplication::restoreOverrideCursor();
    prompts_.Message(QString::fromLatin1(error.Message()), QStringLiteral("Platewell"), MsgIcon::Critical);
    if (afterReport_)
        afterReport_();
    QCoreApplication::exit(1);
}

}  // namespace pw
