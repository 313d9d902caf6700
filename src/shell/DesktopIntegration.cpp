#include "shell/DesktopIntegration.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>

#include "analysis/AnalysisFile.h"
#include "analysis/AnalysisFileCommands.h"
#include "analysis/ProfileFile.h"
#include "analysis/ProfilePage.h"
#include "shell/Logo.h"
#include "shell/MainWindow.h"

namespace pw {

void OpenDocument(MainWindow& window, const QString& path)
{
    if (path.endsWith(QString::fromLatin1(kProfileExtension), Qt::CaseInsensitive)) {
        window.profilePage->ReadPWP(path);
        return;
    }
    AnalysisFileCommands& listFile = *window.listFile;
    if (listFile.ListNeedsSaving())
        listFile.SaveGridQuery(QString::fromLatin1(texts::kTitleOpenAnalysis));
    listFile.OpenListFile(path);
}

QIcon LogoIcon()
{
    QIcon icon;
    for (int side : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        PaintLogoMark(painter, LogoMarkRect(QRectF(0, 0, side, side)));
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

void SetDesktopIdentity(QGuiApplication& app)
{
    QGuiApplication::setDesktopFileName(QString::fromLatin1(kDesktopFileName));
    app.setWindowIcon(LogoIcon());
}

}  // namespace pw
