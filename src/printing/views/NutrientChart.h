#pragma once
// The day at a glance: one horizontal bar per nutrient, its intake as
// percent of its daily value, with a marked line at 100 %. A bar beyond
// 100 % is hatched past the line and its percentage printed bold, so it
// reads without colour. One painter routine draws the chart on the analysis
// tab and in the printed report.
#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <vector>

#include "printing/Report.h"

class QPainter;
class QPalette;

namespace pw {

struct ChartBarGeometry {
    QString name;
    QRectF nameRect;
    QRectF plot;        // the bars' area of this bar's column, 0 % at its left
    qreal x100 = 0;     // the 100 % line of the column
    QRectF bar;         // from 0 % to the intake, at most to the scale's end
    QRectF valueRect;   // the percentage, right after the bar
    QString valueText;  // "135%"
    bool over = false;  // beyond 100 %
    bool beyondScale = false;  // longer than the scale: cut at its end
};

struct ChartGeometry {
    int scalePercent = 150;  // the percent at the plots' right edge
    int columns = 1;         // two side by side when one is too tall
    bool captions = true;    // the scale's percentages above the plots
    QFont font;              // the given font, made smaller when rows need it
    std::vector<ChartBarGeometry> bars;
};

// How the chart finds room for its rows: in smaller type (paper), or by
// closing up first and keeping the text's size where it can (the screen).
enum class ChartText { Shrink, KeepSize };

struct ChartColours {
    QColor text;   // names, percentages, outlines and the 100 % line
    QColor guide;  // the light lines every 50 %
    QColor bar;    // a bar up to 100 %
    QColor over;   // a bar beyond 100 %, hatched
    QColor background;
};
// Dark on white, for paper.
ChartColours PaperColours();
// The palette's text, window and highlight, for the screen.
ChartColours PaletteColours(const QPalette& palette);

// The percent the plot's width stands for: 150, or the largest bar rounded
// up to 50, at most 300.
int ChartScalePercent(const ChartData& data);

// Where everything goes in rect for text in font: one column of bars while
// the rows have room, else two side by side, in smaller type if need be.
ChartGeometry LayoutNutrientChart(const ChartData& data, const QRectF& rect, const QFont& font,
                                  ChartText text = ChartText::Shrink);

// The height the chart wants for font: a row per bar and the scale line.
qreal NutrientChartHeight(const ChartData& data, const QFont& font);

// Draws the chart; without bars, the message that the profile is needed.
// The percentages stand on the painter's background, over the 100 % line.
void PaintNutrientChart(QPainter& painter, const QRectF& rect, const ChartData& data, const QFont& font,
                        const ChartColours& colours = PaperColours(), ChartText text = ChartText::Shrink);

// The widget's room on its left and right for a font's line height; above
// and below it keeps 2 pixels.
qreal ChartMargin(qreal lineHeight);

// The chart on the analysis tab.
class NutrientChart : public QWidget {
    Q_OBJECT
public:
    explicit NutrientChart(QWidget* parent = nullptr);
    void SetData(ChartData data);
    const ChartData& Data() const { return data_; }
    // Where the chart is drawn: the widget less its margins.
    QRectF Area() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    // The bar (0..7) whose row holds a point of the widget, or -1.
    int BarAt(const QPointF& point) const;

signals:
    // A click on a nutrient's bar or name: the foods rich in it are wanted.
    void nutrientClicked(int nutrient);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    ChartData data_;
};

}  // namespace pw
