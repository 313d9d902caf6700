#pragma once
// One value over consecutive days as bars: a gap for a day without a value,
// a solid line at the reference (the daily value) and a dashed line at the
// average; bars beyond the reference are hatched, so it reads in greyscale.
// The same painter draws the days window's chart and the printed one.
#include <QFont>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <optional>
#include <vector>

class QPainter;

namespace pw {

struct SeriesPicture {
    QString name;                 // above the plot, on the left
    QString firstDate, lastDate;  // under the plot's two ends
    std::vector<std::optional<double>> values;
    std::optional<double> reference;
    double average = 0;
};

// The plot's top value: the largest of the values, the reference and the
// average, with a tenth more room; 1 when all are 0.
double SeriesScale(const SeriesPicture& picture);

void PaintSeriesChart(QPainter& painter, const QRectF& rect, const SeriesPicture& picture, const QFont& font);

class SeriesChart : public QWidget {
    Q_OBJECT
public:
    explicit SeriesChart(QWidget* parent = nullptr);
    void SetPicture(SeriesPicture picture);
    const SeriesPicture& Picture() const { return picture_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SeriesPicture picture_;
};

}  // namespace pw
