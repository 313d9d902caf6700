#pragma once
#include <QPixmap>

namespace pw {

// The program's mark, painted: a plate seen from above holding a leaf, with
// the name beside it.
QPixmap PaintLogo(const QSize& size);

}  // namespace pw
