#include "shell/views/DesktopIntegration.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>

#include "shell/views/Logo.h"

namespace pw {

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
