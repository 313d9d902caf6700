#pragma once
#include <QPixmap>
#include <QRectF>

class QPainter;

namespace pw {

// The program's mark, painted: a plate seen from above holding a leaf, with
// the name beside it.
QPixmap PaintLogo(const QSize& size);

// The mark alone, the plate and its leaf, filling plateRect (a square) on a
// transparent ground: the program's icon.
void PaintLogoMark(QPainter& painter, const QRectF& plateRect);
// The plate's square inside an icon's square, leaving room for the rim.
QRectF LogoMarkRect(const QRectF& square);

}  // namespace pw
