#include "core/views/SeriesChart.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <cmath>

namespace pw {

namespace {

const QColor kBarColour(150, 150, 150);
const QColor kOverColour(90, 90, 90);
const QColor kGuideColour(210, 210, 210);

QString Number(double value) { return QString::number(static_cast<long long>(std::llround(value))); }

}  // namespace

double SeriesScale(const SeriesPicture& picture)
{
    double top = std::max(picture.average, picture.reference.value_or(0.0));
    for (const auto& value : picture.values)
        if (value)
            top = std::max(top, *value);
    return top > 0 ? top * 1.1 : 1.0;
}

void PaintSeriesChart(QPainter& painter, const QRectF& rect, const SeriesPicture& picture, const QFont& font)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    QFont small(font);
    if (font.pointSizeF() > 0)
        small.setPointSizeF(font.pointSizeF() * 0.85);
    else if (font.pixelSize() > 0)
        small.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * 0.85)));
    const QFontMetricsF fm(font), fms(small);
    const qreal unit = std::max<qreal>(fm.height() / 12.0, 0.5);
    painter.setPen(Qt::black);

    // The caption: the name on the left, the average and the daily value on
    // the right.
    const QRectF captionRect(rect.left(), rect.top(), rect.width(), fm.height() * 1.2);
    QFont bold(font);
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(captionRect, Qt::AlignLeft | Qt::AlignVCenter, picture.name);
    painter.setFont(small);
    QString right = QStringLiteral("average ") + Number(picture.average) + QStringLiteral(" (dashed)");
    if (picture.reference)
        right += QStringLiteral(", daily value ") + Number(*picture.reference) + QStringLiteral(" (solid)");
    painter.drawText(captionRect, Qt::AlignRight | Qt::AlignVCenter, right);

    const qreal axisWidth = fms.horizontalAdvance(Number(SeriesScale(picture))) + fms.height() * 0.5;
    const QRectF plot(rect.left() + axisWidth, captionRect.bottom() + fm.height() * 0.2, rect.width() - axisWidth,
                      rect.height() - captionRect.height() - fm.height() * 0.2 - fms.height() * 1.3);
    if (plot.height() <= 0 || plot.width() <= 0) {
        painter.restore();
        return;
    }
    const double scale = SeriesScale(picture);
    auto yOf = [&](double value) { return plot.bottom() - plot.height() * value / scale; };

    painter.setPen(QPen(kGuideColour, unit));
    painter.drawRect(plot);
    painter.setPen(Qt::black);
    painter.drawText(QRectF(rect.left(), plot.top() - fms.height() / 2, axisWidth - fms.height() * 0.3, fms.height()),
                     Qt::AlignRight | Qt::AlignVCenter, Number(scale));
    painter.drawText(QRectF(rect.left(), plot.bottom() - fms.height() / 2, axisWidth - fms.height() * 0.3, fms.height()),
                     Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("0"));

    const std::size_t count = picture.values.size();
    if (count > 0) {
        const qreal slot = plot.width() / static_cast<qreal>(count);
        const qreal gap = slot > 4 * unit ? std::min(slot * 0.2, 3 * unit) : 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (!picture.values[i])
                continue;
            const double value = std::max(0.0, *picture.values[i]);
            const QRectF bar(QPointF(plot.left() + slot * static_cast<qreal>(i) + gap / 2, yOf(value)),
                             QPointF(plot.left() + slot * static_cast<qreal>(i + 1) - gap / 2, plot.bottom()));
            const bool over = picture.reference && value > *picture.reference;
            painter.fillRect(bar, over ? kOverColour : kBarColour);
            if (over) {
                QBrush hatch(Qt::black, Qt::BDiagPattern);
                hatch.setTransform(QTransform::fromScale(unit * 1.5, unit * 1.5));
                painter.fillRect(bar, hatch);
            }
        }
    }
    if (picture.reference) {
        painter.setPen(QPen(Qt::black, unit * 2));
        painter.drawLine(QPointF(plot.left(), yOf(*picture.reference)), QPointF(plot.right(), yOf(*picture.reference)));
    }
    QPen dashed(Qt::black, unit * 1.5, Qt::DashLine);
    painter.setPen(dashed);
    painter.drawLine(QPointF(plot.left(), yOf(picture.average)), QPointF(plot.right(), yOf(picture.average)));

    painter.setPen(Qt::black);
    painter.setFont(small);
    const QRectF dates(plot.left(), plot.bottom(), plot.width(), fms.height() * 1.3);
    painter.drawText(dates, Qt::AlignLeft | Qt::AlignBottom, picture.firstDate);
    if (picture.lastDate != picture.firstDate)
        painter.drawText(dates, Qt::AlignRight | Qt::AlignBottom, picture.lastDate);
    painter.restore();
}

SeriesChart::SeriesChart(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SeriesChart::SetPicture(SeriesPicture picture)
{
    picture_ = std::move(picture);
    update();
}

QSize SeriesChart::sizeHint() const
{
    const QFontMetrics fm(font());
    return {fm.height() * 30, fm.height() * 12};
}

QSize SeriesChart::minimumSizeHint() const
{
    const QFontMetrics fm(font());
    return {fm.height() * 15, fm.height() * 7};
}

void SeriesChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    const qreal margin = fontMetrics().height() * 0.5;
    PaintSeriesChart(painter, QRectF(rect()).adjusted(margin, margin / 2, -margin, -margin / 2), picture_, font());
}

}  // namespace pw
