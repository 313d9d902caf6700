#include "shell/Logo.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

namespace pw {

void PaintLogoMark(QPainter& p, const QRectF& plateRect)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const qreal plate = plateRect.width();
    const QPointF centre = plateRect.center();

    // Plate: a rim and a well.
    QRadialGradient rim(centre, plate / 2);
    rim.setColorAt(0.0, QColor(0xFF, 0xFF, 0xFF));
    rim.setColorAt(0.85, QColor(0xF1, 0xEE, 0xE6));
    rim.setColorAt(1.0, QColor(0xC9, 0xC2, 0xB2));
    p.setPen(QPen(QColor(0x9C, 0x93, 0x80), plate / 60));
    p.setBrush(rim);
    p.drawEllipse(plateRect);
    p.setPen(QPen(QColor(0xD8, 0xD1, 0xC1), plate / 72));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(plateRect.adjusted(plate * 0.14, plate * 0.14, -plate * 0.14, -plate * 0.14));

    // Leaf on the plate, with its midrib.
    const qreal leaf = plate * 0.30;
    QPainterPath leafPath;
    leafPath.moveTo(centre.x() - leaf, centre.y() + leaf * 0.6);
    leafPath.cubicTo(centre.x() - leaf * 0.9, centre.y() - leaf * 0.9, centre.x() + leaf * 0.4,
                     centre.y() - leaf * 1.1, centre.x() + leaf, centre.y() - leaf * 0.7);
    leafPath.cubicTo(centre.x() + leaf * 0.8, centre.y() + leaf * 0.5, centre.x() - leaf * 0.2,
                     centre.y() + leaf * 0.9, centre.x() - leaf, centre.y() + leaf * 0.6);
    QLinearGradient green(centre.x() - leaf, centre.y() + leaf, centre.x() + leaf, centre.y() - leaf);
    green.setColorAt(0.0, QColor(0x2E, 0x7D, 0x32));
    green.setColorAt(1.0, QColor(0x8B, 0xC3, 0x4A));
    p.setPen(Qt::NoPen);
    p.setBrush(green);
    p.drawPath(leafPath);
    p.setPen(QPen(QColor(0xE8, 0xF5, 0xE9), plate / 60, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(centre.x() - leaf * 0.9, centre.y() + leaf * 0.55),
               QPointF(centre.x() + leaf * 0.75, centre.y() - leaf * 0.55));
    p.restore();
}

QRectF LogoMarkRect(const QRectF& square)
{
    // The rim's pen reaches half its width beyond the plate.
    const qreal margin = square.width() / 40;
    return square.adjusted(margin, margin, -margin, -margin);
}

QPixmap PaintLogo(const QSize& size)
{
    QPixmap pixmap(size);
    pixmap.fill(QColor(0xFB, 0xF8, 0xF1));
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);

    const qreal h = size.height();
    const qreal plate = h * 0.72;
    const QRectF plateRect(h * 0.14, (h - plate) / 2, plate, plate);
    PaintLogoMark(p, plateRect);

    // Name and line beneath it.
    const qreal textLeft = plateRect.right() + h * 0.14;
    QFont title(QStringLiteral("Sans Serif"));
    title.setPixelSize(int(h * 0.26));
    title.setBold(true);
    p.setFont(title);
    p.setPen(QColor(0x33, 0x4A, 0x2B));
    p.drawText(QRectF(textLeft, h * 0.18, size.width() - textLeft, h * 0.36), Qt::AlignLeft | Qt::AlignVCenter,
               QStringLiteral("Platewell"));
    QFont subtitle(QStringLiteral("Sans Serif"));
    subtitle.setPixelSize(int(h * 0.085));
    p.setFont(subtitle);
    p.setPen(QColor(0x6D, 0x64, 0x52));
    p.drawText(QRectF(textLeft, h * 0.56, size.width() - textLeft, h * 0.2), Qt::AlignLeft | Qt::AlignVCenter,
               QStringLiteral("What you eat, weighed up"));
    return pixmap;
}

}  // namespace pw
