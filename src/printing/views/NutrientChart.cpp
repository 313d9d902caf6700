#include "printing/views/NutrientChart.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace pw {

namespace {

constexpr int kMinimumScale = 150;
constexpr int kMaximumScale = 300;
constexpr int kScaleStep = 50;
const QColor kOverColour(214, 96, 38);

qreal RowHeight(const QFontMetricsF& fm) { return fm.height() * 1.6; }

}  // namespace

ChartColours PaperColours() { return {QColor(40, 40, 40), QColor(200, 200, 200), QColor(74, 126, 187), kOverColour, Qt::white}; }

ChartColours PaletteColours(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Text);
    const QColor window = palette.color(QPalette::Window);
    // A guide a quarter of the way from the window's colour to the text's.
    const QColor guide = QColor::fromRgbF(window.redF() * 0.75f + text.redF() * 0.25f,
                                          window.greenF() * 0.75f + text.greenF() * 0.25f,
                                          window.blueF() * 0.75f + text.blueF() * 0.25f);
    return {text, guide, palette.color(QPalette::Highlight), kOverColour, window};
}

int ChartScalePercent(const ChartData& data)
{
    std::int32_t largest = 0;
    for (const ChartBar& bar : data.bars)
        largest = std::max(largest, bar.percent);
    const int rounded = largest >= kMaximumScale ? kMaximumScale
                                                 : (largest + kScaleStep - 1) / kScaleStep * kScaleStep;
    return std::clamp(rounded, kMinimumScale, kMaximumScale);
}

qreal NutrientChartHeight(const ChartData& data, const QFont& font)
{
    const QFontMetricsF fm(font);
    return RowHeight(fm) * static_cast<qreal>(std::max<std::size_t>(data.bars.size(), 1)) + fm.height() * 1.5;
}

namespace {

constexpr qreal kTightRow = 1.15;  // row heights in lines of text
constexpr qreal kClosestRow = 0.9;  // the line's own leading given up
// The nutrients' names as the chooser's panel shortens them.
constexpr const char* kShortNames[] = {"Calories", "Protein", "Carbos.", "Fats", "Cholest.", "Fiber", "Calcium",
                                       "Sodium"};
constexpr qreal kLooseRow = 3.0;
constexpr qreal kSmallestText = 8.0;  // pixels a line of text keeps at least

qreal CaptionHeight(const QFontMetricsF& fm) { return fm.height() * 1.3; }

bool RowsFit(std::size_t bars, int columns, const QFont& font, qreal height, bool captions, qreal pitch = kTightRow)
{
    const QFontMetricsF fm(font);
    const auto rows = static_cast<qreal>((bars + columns - 1) / columns);
    return (captions ? CaptionHeight(fm) : 0) + rows * fm.height() * pitch <= height;
}

QFont Scaled(const QFont& font, qreal factor)
{
    QFont scaled(font);
    if (font.pixelSize() > 0)
        scaled.setPixelSize(std::max(1, qRound(font.pixelSize() * factor)));
    else
        scaled.setPointSizeF(font.pointSizeF() * factor);
    return scaled;
}

}  // namespace

ChartGeometry LayoutNutrientChart(const ChartData& data, const QRectF& rect, const QFont& font, ChartText text)
{
    ChartGeometry g;
    g.scalePercent = ChartScalePercent(data);
    g.font = font;
    const std::size_t count = std::max<std::size_t>(data.bars.size(), 1);
    qreal pitch = kTightRow;
    bool placed = RowsFit(count, 1, g.font, rect.height(), true);
    if (!placed && text == ChartText::KeepSize) {
        // On screen the text keeps the size of the window's own: two
        // columns, then no scale captions, then closer rows come first.
        const struct {
            bool captions;
            qreal pitch;
        } tries[] = {{true, kTightRow}, {false, kTightRow}, {false, 1.0}, {false, kClosestRow}};
        for (const auto& t : tries) {
            if (RowsFit(count, 2, g.font, rect.height(), t.captions, t.pitch)) {
                g.columns = 2;
                g.captions = t.captions;
                pitch = t.pitch;
                placed = true;
                break;
            }
        }
    }
    if (!placed) {
        // Two columns in smaller type; in the least room without the scale's
        // captions (the 100 % line and the percentages still tell).
        g.columns = 2;
        for (bool captions : {true, false}) {
            g.captions = captions;
            g.font = font;
            while (!RowsFit(count, 2, g.font, rect.height(), captions) &&
                   QFontMetricsF(g.font).height() * 0.9 >= kSmallestText)
                g.font = Scaled(g.font, 0.9);
            if (RowsFit(count, 2, g.font, rect.height(), captions))
                break;
        }
        // Still too low: rather than lose a bar, the rows close up to a line
        // each and the type goes below its least size as far as it must.
        if (!RowsFit(count, g.columns, g.font, rect.height(), g.captions)) {
            pitch = 1.0;
            for (int step = 0; step < 20 && !RowsFit(count, g.columns, g.font, rect.height(), g.captions, pitch);
                 ++step) {
                const QFont smaller = Scaled(g.font, 0.9);
                if (QFontMetricsF(smaller).height() >= QFontMetricsF(g.font).height())
                    break;
                g.font = smaller;
            }
        }
    }
    const QFontMetricsF fm(g.font);
    QFont bold(g.font);
    bold.setBold(true);
    // On screen the percentages take the room of the widest one shown;
    // paper keeps room for five digits.
    QString widestValue = QStringLiteral("00000%");
    if (text == ChartText::KeepSize) {
        widestValue = QStringLiteral("000%");
        for (const ChartBar& bar : data.bars) {
            const QString value = QString::number(bar.percent) + QLatin1Char('%');
            if (value.size() > widestValue.size())
                widestValue = QString(value.size() - 1, QLatin1Char('0')) + QLatin1Char('%');
        }
    }
    const qreal valueWidth = QFontMetricsF(bold).horizontalAdvance(widestValue) + fm.height() * 0.3;
    const qreal gap = fm.height() * 0.6;
    const qreal columnGap = fm.height() * 1.5;
    const qreal columnWidth = (rect.width() - columnGap * (g.columns - 1)) / g.columns;
    const std::size_t perColumn = (count + g.columns - 1) / g.columns;
    const qreal top = rect.top() + (g.captions ? CaptionHeight(fm) : 0);  // room for the scale's captions
    // The rows share the height given, between a tight and a loose spacing.
    const qreal row = std::clamp((rect.bottom() - top) / static_cast<qreal>(perColumn), fm.height() * pitch,
                                 fm.height() * kLooseRow);
    for (int column = 0; column < g.columns; ++column) {
        const std::size_t first = perColumn * static_cast<std::size_t>(column);
        const std::size_t last = std::min(data.bars.size(), first + perColumn);
        // On screen, where the names would leave the bars less than half
        // the column, the nutrients go by the chooser's short names.
        const auto nameOf = [&](std::size_t i, bool shortName) {
            return shortName && data.bars.size() == std::size(kShortNames) ? QString::fromLatin1(kShortNames[i])
                                                                            : QString::fromLatin1(data.bars[i].name);
        };
        const auto namesWidth = [&](bool shortName) {
            qreal width = 0;
            for (std::size_t i = first; i < last; ++i)
                width = std::max(width, fm.horizontalAdvance(nameOf(i, shortName)));
            return width;
        };
        qreal nameWidth = namesWidth(false);
        const bool shortNames =
            text == ChartText::KeepSize && columnWidth - valueWidth - nameWidth - gap < columnWidth / 2;
        if (shortNames)
            nameWidth = namesWidth(true);
        const qreal left = rect.left() + column * (columnWidth + columnGap);
        const qreal plotLeft = left + nameWidth + gap;
        const QRectF plot(plotLeft, top, std::max<qreal>(left + columnWidth - valueWidth - plotLeft, 1),
                          row * static_cast<qreal>(last > first ? last - first : 0));
        const qreal x100 = plot.left() + plot.width() * 100.0 / g.scalePercent;
        for (std::size_t i = first; i < last; ++i) {
            const ChartBar& bar = data.bars[i];
            ChartBarGeometry b;
            b.name = nameOf(i, shortNames);
            b.plot = plot;
            b.x100 = x100;
            const qreal y = top + row * static_cast<qreal>(i - first);
            b.nameRect = QRectF(left, y, nameWidth, row);
            const std::int32_t shown = std::clamp<std::int32_t>(bar.percent, 0, g.scalePercent);
            b.bar = QRectF(plot.left(), y + row * 0.2, plot.width() * shown / g.scalePercent, row * 0.6);
            b.valueText = QString::number(bar.percent) + QLatin1Char('%');
            b.over = bar.percent > 100;
            b.beyondScale = bar.percent > g.scalePercent;
            const qreal valueLeft = b.bar.right() + fm.height() * 0.3;
            b.valueRect = QRectF(valueLeft, y, left + columnWidth - valueLeft, row);
            g.bars.push_back(b);
        }
    }
    return g;
}

void PaintNutrientChart(QPainter& painter, const QRectF& rect, const ChartData& data, const QFont& font,
                        const ChartColours& colours, ChartText text)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setFont(font);
    if (data.bars.empty()) {
        painter.setPen(colours.text);
        painter.drawText(rect, Qt::AlignCenter | Qt::TextWordWrap,
                         QStringLiteral("The chart of the day's intake needs a complete profile."));
        painter.restore();
        return;
    }
    const ChartGeometry g = LayoutNutrientChart(data, rect, font, text);
    const QFontMetricsF fm(g.font);
    QFont bold(g.font);
    bold.setBold(true);
    const qreal unit = fm.height() / 12.0;  // line widths follow the text size

    // Per column: light guide lines every 50 %, their captions above.
    std::vector<QRectF> plots;
    for (const ChartBarGeometry& b : g.bars)
        if (plots.empty() || plots.back() != b.plot)
            plots.push_back(b.plot);
    for (const QRectF& plot : plots) {
        for (int percent = 0; percent <= g.scalePercent; percent += kScaleStep) {
            const qreal x = plot.left() + plot.width() * percent / g.scalePercent;
            painter.setPen(QPen(colours.guide, unit));
            painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom()));
            // In a narrow plot only 0, 100 and the end are captioned.
            const bool captioned = plot.width() / (g.scalePercent / kScaleStep) > fm.horizontalAdvance(QStringLiteral("300%")) * 1.2 ||
                                   percent == 0 || percent == 100 || percent == g.scalePercent;
            if (!captioned || !g.captions)
                continue;
            painter.setFont(percent == 100 ? bold : g.font);
            painter.setPen(colours.text);
            const QString caption = QString::number(percent) + QLatin1Char('%');
            const qreal w = fm.horizontalAdvance(caption) * 1.3;
            painter.drawText(QRectF(x - w / 2, plot.top() - CaptionHeight(fm), w, fm.height() * 1.3), Qt::AlignCenter,
                             caption);
        }
    }

    for (const ChartBarGeometry& b : g.bars) {
        painter.setFont(g.font);
        painter.setPen(colours.text);
        painter.drawText(b.nameRect, Qt::AlignRight | Qt::AlignVCenter, b.name);
        if (b.bar.width() > 0) {
            // Up to 100 % in the plain colour; beyond it hatched.
            QRectF within = b.bar;
            within.setRight(std::min(b.bar.right(), b.x100));
            painter.fillRect(within, colours.bar);
            if (b.over) {
                const QRectF beyond(QPointF(b.x100, b.bar.top()), b.bar.bottomRight());
                painter.fillRect(beyond, colours.over);
                QBrush hatch(Qt::black, Qt::BDiagPattern);
                hatch.setTransform(QTransform::fromScale(unit * 1.5, unit * 1.5));
                painter.fillRect(beyond, hatch);
            }
            painter.setPen(QPen(colours.text, unit));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(b.bar);
            if (b.beyondScale) {
                // Two white slanted strokes: the bar goes on beyond the scale.
                const qreal x = b.bar.right() - fm.height() * 0.7;
                painter.setPen(QPen(colours.background, unit * 2.5));
                for (qreal dx : {0.0, fm.height() * 0.3})
                    painter.drawLine(QPointF(x + dx, b.bar.bottom() + unit),
                                     QPointF(x + dx + fm.height() * 0.2, b.bar.top() - unit));
            }
        }
    }

    // The daily value itself: a strong dashed line at 100 %.
    painter.setPen(QPen(colours.text, unit * 2, Qt::DashLine));
    for (const QRectF& plot : plots) {
        const qreal x100 = plot.left() + plot.width() * 100.0 / g.scalePercent;
        painter.drawLine(QPointF(x100, plot.top() - (g.captions ? fm.height() * 0.2 : 0)), QPointF(x100, plot.bottom()));
    }

    // The percentages last, over the line.
    for (const ChartBarGeometry& b : g.bars) {
        painter.setFont(b.over ? bold : g.font);
        const QRectF text = QFontMetricsF(painter.font()).boundingRect(b.valueRect, Qt::AlignLeft | Qt::AlignVCenter, b.valueText);
        painter.fillRect(text, painter.background());
        painter.setPen(colours.text);
        painter.drawText(b.valueRect, Qt::AlignLeft | Qt::AlignVCenter, b.valueText);
    }
    painter.restore();
}

qreal ChartMargin(qreal lineHeight) { return lineHeight * 0.5; }

NutrientChart::NutrientChart(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("chartNutrients"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMouseTracking(true);
}

int NutrientChart::BarAt(const QPointF& point) const
{
    if (data_.bars.empty())
        return -1;
    const ChartGeometry g = LayoutNutrientChart(data_, Area(), font(), ChartText::KeepSize);
    for (std::size_t i = 0; i < g.bars.size(); ++i) {
        const ChartBarGeometry& b = g.bars[i];
        // The whole row: the name, the bar's plot and the percentage.
        const QRectF row(b.nameRect.left(), b.nameRect.top(), b.valueRect.right() - b.nameRect.left(),
                         b.nameRect.height());
        if (row.contains(point))
            return static_cast<int>(i);
    }
    return -1;
}

bool NutrientChart::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const int bar = BarAt(help->pos());
        if (bar >= 0)
            QToolTip::showText(help->globalPos(),
                               QStringLiteral("Foods rich in ") + QString::fromLatin1(data_.bars[bar].name), this);
        else
            QToolTip::showText(help->globalPos(), QStringLiteral("The day's intake as percent of each daily value"),
                               this);
        return true;
    }
    return QWidget::event(event);
}

void NutrientChart::mouseMoveEvent(QMouseEvent* event)
{
    setCursor(BarAt(event->position()) >= 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QWidget::mouseMoveEvent(event);
}

void NutrientChart::mouseReleaseEvent(QMouseEvent* event)
{
    const int bar = BarAt(event->position());
    if (event->button() == Qt::LeftButton && bar >= 0)
        emit nutrientClicked(bar);
    QWidget::mouseReleaseEvent(event);
}

void NutrientChart::SetData(ChartData data)
{
    if (data == data_)
        return;
    data_ = std::move(data);
    update();
}

// The chart takes the room the page leaves: it asks for little, so that the
// labels above keep their size, and grows into what is free.
QSize NutrientChart::sizeHint() const { return minimumSizeHint(); }

QSize NutrientChart::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(QLatin1Char('x')) * 30, fontMetrics().height() * 2};
}

QRectF NutrientChart::Area() const
{
    const qreal margin = ChartMargin(fontMetrics().height());
    return QRectF(rect()).adjusted(margin, 2, -margin, -2);
}

void NutrientChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setBackground(palette().window());
    PaintNutrientChart(painter, Area(), data_, font(), PaletteColours(palette()), ChartText::KeepSize);
}

}  // namespace pw
