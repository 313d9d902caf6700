#include "printing/views/ReportRenderer.h"

#include <QBuffer>
#include <QFile>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <numeric>

#include "core/views/Widgets.h"
#include "core/LineFile.h"
#include "core/RunTimeError.h"
#include "printing/views/NutrientChart.h"
#include "core/views/SeriesChart.h"

namespace pw {

namespace {

constexpr qreal kBodyPoints = 9.5;
constexpr qreal kTablePoints = 8.5;
constexpr qreal kHeadingPoints = 11.5;
constexpr qreal kPageHeaderPoints = 9.0;
constexpr qreal kMarginMillimetres = 15.0;
// A table too wide for the page is set in smaller type, down to this share.
constexpr qreal kSmallestTableScale = 0.6;
const QColor kHeaderShade(225, 225, 225);
const QColor kRowShade(244, 244, 244);

QFont PixelFont(qreal points, qreal dpi, bool bold = false)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, qRound(points * dpi / 72.0)));
    font.setBold(bold);
    // A hair of letter spacing turns the ligatures off, so that "fl" and
    // "fi" stay two letters for whoever copies text out of a PDF.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.02);
    return font;
}

QString FromModel(const std::string& text) { return QString::fromLatin1(text); }

// Greedy wrapping between words: a line takes words while they fit; a word
// wider than the width stands alone on its line rather than being split.
QStringList WrapWords(const QString& text, const QFontMetricsF& fm, qreal width)
{
    QStringList lines;
    QString current;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString candidate = current.isEmpty() ? word : current + QLatin1Char(' ') + word;
        if (current.isEmpty() || fm.horizontalAdvance(candidate) <= width) {
            current = candidate;
        } else {
            lines << current;
            current = word;
        }
    }
    lines << current;
    return lines;
}

qreal WidestWord(const QString& text, const QFontMetricsF& fm)
{
    qreal widest = 0;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        widest = std::max(widest, fm.horizontalAdvance(word));
    return widest;
}

// A table's columns and its rows wrapped into them, in one type size.
struct TableGeometry {
    QFont font;
    QFont bold;
    qreal lineHeight = 0;
    qreal pad = 0;
    std::vector<qreal> widths;
    std::vector<QStringList> header;                // per column
    std::vector<std::vector<QStringList>> rows;     // per row, per column
    std::vector<QStringList> totals;
    qreal headerHeight = 0;
    std::vector<qreal> rowHeights;
    qreal totalsHeight = 0;
};

enum class ItemKind { Heading, Line, TableRow, Chart, Series, Space };

struct Item {
    ItemKind kind = ItemKind::Line;
    int block = -1;
    int row = 0;  // TableRow: the row, -1 the header, -2 the totals
    QString text;
    qreal y = 0;
    qreal height = 0;
};

}  // namespace

struct ReportLayout::Impl {
    const ReportDocument& report;
    QSizeF page;
    qreal dpi;
    QFont body, heading, pageHeader, pageHeaderBold;
    qreal headerBand = 0, footerBand = 0;
    std::vector<TableGeometry> tables;  // per block; empty for other blocks
    std::vector<std::vector<Item>> pages;

    Impl(const ReportDocument& r, QSizeF p, qreal d) : report(r), page(p), dpi(d)
    {
        body = PixelFont(kBodyPoints, dpi);
        heading = PixelFont(kHeadingPoints, dpi, true);
        pageHeader = PixelFont(kPageHeaderPoints, dpi);
        pageHeaderBold = PixelFont(kPageHeaderPoints, dpi, true);
        const QFontMetricsF fm(pageHeader);
        headerBand = fm.height() * 2.2;
        footerBand = fm.height() * 2.0;
        tables.resize(report.blocks.size());
        for (std::size_t b = 0; b < report.blocks.size(); ++b)
            if (report.blocks[b].kind == BlockKind::Table)
                tables[b] = MeasureTable(report.blocks[b].table);
        Paginate();
    }

    qreal ContentHeight() const { return std::max<qreal>(page.height() - headerBand - footerBand, 1); }

    TableGeometry MeasureTable(const ReportTable& table) const
    {
        TableGeometry g;
        for (qreal scale = 1.0;; scale -= 0.05) {
            if (FitTable(table, scale, g) || scale <= kSmallestTableScale)
                break;
        }
        WrapTable(table, g);
        return g;
    }

    // Column widths for the type at scale; false when even the widest word of
    // every column does not fit the page's width.
    bool FitTable(const ReportTable& table, qreal scale, TableGeometry& g) const
    {
        g.font = PixelFont(kTablePoints * scale, dpi);
        g.bold = PixelFont(kTablePoints * scale, dpi, true);
        const QFontMetricsF fm(g.font), fmBold(g.bold);
        g.lineHeight = fm.height();
        g.pad = fm.height() * 0.3;
        const std::size_t columns = table.columns.size();
        std::vector<qreal> least(columns, 0), natural(columns, 0);
        auto measure = [&](std::size_t c, const QString& text, const QFontMetricsF& m, bool wraps) {
            const qreal whole = m.horizontalAdvance(text);
            natural[c] = std::max(natural[c], whole);
            least[c] = std::max(least[c], wraps ? WidestWord(text, m) : whole);
        };
        for (std::size_t c = 0; c < columns; ++c) {
            measure(c, FromModel(table.columns[c].caption), fmBold, true);
            const bool wraps = table.columns[c].kind == ColumnKind::Text;
            for (const auto& row : table.rows)
                if (c < row.size())
                    measure(c, FromModel(row[c]), fm, wraps);
            if (c < table.totals.size())
                measure(c, FromModel(table.totals[c]), fmBold, wraps);
        }
        for (std::size_t c = 0; c < columns; ++c) {
            least[c] += 2 * g.pad + 1;
            natural[c] += 2 * g.pad + 1;
        }
        const qreal available = page.width();
        const qreal sumLeast = std::accumulate(least.begin(), least.end(), 0.0);
        const qreal sumNatural = std::accumulate(natural.begin(), natural.end(), 0.0);
        g.widths = natural;
        if (sumNatural <= available)
            return true;
        if (sumLeast > available) {
            g.widths = least;
            return false;
        }
        // Every column gets its widest word; the rest of the width goes
        // first to the text columns, in proportion to how much more they
        // would take, then to the captions of the number columns.
        qreal textWant = 0, numberWant = 0;
        for (std::size_t c = 0; c < columns; ++c)
            (table.columns[c].kind == ColumnKind::Text ? textWant : numberWant) += natural[c] - least[c];
        const qreal extra = available - sumLeast;
        const qreal textShare = textWant > 0 ? std::min<qreal>(1, extra / textWant) : 0;
        const qreal numberShare = numberWant > 0 ? std::max<qreal>(0, extra - textWant) / numberWant : 0;
        for (std::size_t c = 0; c < columns; ++c) {
            const qreal share = table.columns[c].kind == ColumnKind::Text ? textShare : numberShare;
            g.widths[c] = least[c] + (natural[c] - least[c]) * std::min<qreal>(1, share);
        }
        return true;
    }

    void WrapTable(const ReportTable& table, TableGeometry& g) const
    {
        const QFontMetricsF fm(g.font), fmBold(g.bold);
        auto wrapRow = [&](const std::vector<std::string>& cells, const QFontMetricsF& m, qreal& height) {
            std::vector<QStringList> wrapped;
            int lines = 1;
            for (std::size_t c = 0; c < table.columns.size(); ++c) {
                const QString text = c < cells.size() ? FromModel(cells[c]) : QString();
                QStringList cell = table.columns[c].kind == ColumnKind::Text
                                       ? WrapWords(text, m, g.widths[c] - 2 * g.pad)
                                       : QStringList{text};
                lines = std::max(lines, static_cast<int>(cell.size()));
                wrapped.push_back(std::move(cell));
            }
            height = lines * g.lineHeight + 2 * g.pad;
            return wrapped;
        };
        std::vector<std::string> captions;
        for (const ReportColumn& column : table.columns)
            captions.push_back(column.caption);
        // Captions wrap between words in every column, numbers' included.
        g.header.clear();
        int headerLines = 1;
        for (std::size_t c = 0; c < captions.size(); ++c) {
            g.header.push_back(WrapWords(FromModel(captions[c]), fmBold, g.widths[c] - 2 * g.pad));
            headerLines = std::max(headerLines, static_cast<int>(g.header.back().size()));
        }
        g.headerHeight = headerLines * g.lineHeight + 2 * g.pad;
        g.rows.clear();
        g.rowHeights.clear();
        for (const auto& row : table.rows) {
            qreal height = 0;
            g.rows.push_back(wrapRow(row, fm, height));
            g.rowHeights.push_back(height);
        }
        if (!table.totals.empty())
            g.totals = wrapRow(table.totals, fmBold, g.totalsHeight);
    }

    void Paginate()
    {
        pages.assign(1, {});
        qreal y = 0;
        const qreal limit = ContentHeight();
        auto newPage = [&] {
            pages.emplace_back();
            y = 0;
        };
        auto place = [&](Item item) {
            if (y > 0 && y + item.height > limit)
                newPage();
            if (item.kind == ItemKind::Space && y == 0)
                return;
            item.y = y;
            y += item.height;
            pages.back().push_back(std::move(item));
        };
        const QFontMetricsF fmBody(body), fmHeading(heading);
        for (std::size_t b = 0; b < report.blocks.size(); ++b) {
            const ReportBlock& block = report.blocks[b];
            const int index = static_cast<int>(b);
            switch (block.kind) {
            case BlockKind::Heading: {
                // A heading keeps a few lines of what follows on its page.
                const qreal height = fmHeading.height() * 1.6;
                if (y > 0 && y + height + fmBody.height() * 4 > limit)
                    newPage();
                place({ItemKind::Space, index, 0, {}, 0, fmBody.height() * 0.5});
                place({ItemKind::Heading, index, 0, FromModel(block.lines.front()), 0, height});
                break;
            }
            case BlockKind::Lines:
                for (const std::string& line : block.lines)
                    for (const QString& wrapped : WrapWords(FromModel(line), fmBody, page.width()))
                        place({ItemKind::Line, index, 0, wrapped, 0, fmBody.height() * 1.3});
                break;
            case BlockKind::Chart:
                place({ItemKind::Space, index, 0, {}, 0, fmBody.height()});
                place({ItemKind::Chart, index, 0, {}, 0, NutrientChartHeight(block.chart, body)});
                break;
            case BlockKind::Series:
                place({ItemKind::Series, index, 0, {}, 0, fmBody.height() * 7.5});
                break;
            case BlockKind::Table: {
                const TableGeometry& g = tables[b];
                const Item header{ItemKind::TableRow, index, -1, {}, 0, g.headerHeight};
                auto placeRow = [&](int row, qreal height) {
                    const bool fits = y + height <= limit;
                    if (!fits && y > 0)
                        newPage();
                    const bool pageStarts =
                        pages.back().empty() || pages.back().back().kind != ItemKind::TableRow ||
                        pages.back().back().block != index;
                    if (pageStarts) {
                        if (y > 0 && y + g.headerHeight + height > limit)
                            newPage();
                        place(header);
                    }
                    place({ItemKind::TableRow, index, row, {}, 0, height});
                };
                for (std::size_t r = 0; r < g.rows.size(); ++r)
                    placeRow(static_cast<int>(r), g.rowHeights[r]);
                if (!g.totals.empty())
                    placeRow(-2, g.totalsHeight);
                if (g.rows.empty() && g.totals.empty())
                    place(header);
                break;
            }
            }
        }
    }

    QString HeaderRight() const
    {
        const QString name = FromModel(report.personName);
        const QString date = FromModel(report.dateText);
        return name.isEmpty() ? date : name + QStringLiteral("  \u2022  ") + date;
    }

    QString Footer(int pageIndex) const
    {
        return QStringLiteral("Page %1 of %2").arg(pageIndex + 1).arg(pages.size());
    }

    void PaintTableRow(QPainter& painter, const Item& item) const
    {
        const TableGeometry& g = tables[static_cast<std::size_t>(item.block)];
        const ReportTable& table = report.blocks[static_cast<std::size_t>(item.block)].table;
        const std::vector<QStringList>& cells =
            item.row == -1 ? g.header : item.row == -2 ? g.totals : g.rows[static_cast<std::size_t>(item.row)];
        const qreal width = std::accumulate(g.widths.begin(), g.widths.end(), 0.0);
        const QRectF band(0, item.y, width, item.height);
        const qreal rule = std::max<qreal>(1, dpi / 150);
        if (item.row == -1)
            painter.fillRect(band, kHeaderShade);
        else if (item.row >= 0 && item.row % 2 == 1)
            painter.fillRect(band, kRowShade);
        painter.setFont(item.row == -1 || item.row == -2 ? g.bold : g.font);
        painter.setPen(Qt::black);
        qreal x = 0;
        for (std::size_t c = 0; c < cells.size(); ++c) {
            const bool number = table.columns[c].kind == ColumnKind::Number;
            const int align = (number ? Qt::AlignRight : Qt::AlignLeft) | (item.row == -1 ? Qt::AlignBottom : Qt::AlignTop);
            const QRectF cell(x + g.pad, item.y + g.pad, g.widths[c] - 2 * g.pad, item.height - 2 * g.pad);
            painter.save();
            painter.setClipRect(cell.adjusted(-g.pad, -g.pad, g.pad, g.pad));
            painter.drawText(cell, align, cells[c].join(QLatin1Char('\n')));
            painter.restore();
            x += g.widths[c];
        }
        painter.setPen(QPen(Qt::black, rule));
        if (item.row == -1)
            painter.drawLine(QPointF(0, band.bottom()), QPointF(width, band.bottom()));
        if (item.row == -2)
            painter.drawLine(QPointF(0, band.top()), QPointF(width, band.top()));
    }

    void Paint(QPainter& painter, int pageIndex) const
    {
        painter.save();
        painter.setRenderHint(QPainter::TextAntialiasing, true);
        // The page's header: the title on the left, the person and the date
        // on the right, a rule below.
        const QFontMetricsF fm(pageHeader);
        const QRectF headerRect(0, 0, page.width(), fm.height() * 1.4);
        painter.setPen(Qt::black);
        painter.setFont(pageHeaderBold);
        painter.drawText(headerRect, Qt::AlignLeft | Qt::AlignVCenter, FromModel(report.title));
        painter.setFont(pageHeader);
        painter.drawText(headerRect, Qt::AlignRight | Qt::AlignVCenter, HeaderRight());
        painter.setPen(QPen(Qt::black, std::max<qreal>(1, dpi / 150)));
        painter.drawLine(QPointF(0, headerRect.bottom()), QPointF(page.width(), headerRect.bottom()));
        painter.setPen(Qt::black);
        painter.drawText(QRectF(0, page.height() - fm.height() * 1.4, page.width(), fm.height() * 1.4),
                         Qt::AlignHCenter | Qt::AlignBottom, Footer(pageIndex));

        painter.translate(0, headerBand);
        const QFontMetricsF fmBody(body);
        for (const Item& item : pages[static_cast<std::size_t>(pageIndex)]) {
            switch (item.kind) {
            case ItemKind::Space: break;
            case ItemKind::Heading:
                painter.setFont(heading);
                painter.drawText(QRectF(0, item.y, page.width(), item.height), Qt::AlignLeft | Qt::AlignBottom,
                                 item.text);
                break;
            case ItemKind::Line:
                painter.setFont(body);
                painter.drawText(QRectF(0, item.y, page.width(), item.height), Qt::AlignLeft | Qt::AlignVCenter,
                                 item.text);
                break;
            case ItemKind::Chart: {
                const qreal width = std::min(page.width(), fmBody.height() * 45);
                PaintNutrientChart(painter, QRectF(0, item.y, width, item.height),
                                   report.blocks[static_cast<std::size_t>(item.block)].chart, body);
                break;
            }
            case ItemKind::Series: {
                const SeriesData& data = report.blocks[static_cast<std::size_t>(item.block)].series;
                SeriesPicture picture;
                picture.name = FromModel(data.name);
                picture.firstDate = FromModel(data.firstDate);
                picture.lastDate = FromModel(data.lastDate);
                for (const auto& value : data.values)
                    picture.values.push_back(value ? std::optional<double>(static_cast<double>(*value)) : std::nullopt);
                if (data.dailyValue)
                    picture.reference = static_cast<double>(*data.dailyValue);
                picture.average = static_cast<double>(data.average);
                PaintSeriesChart(painter, QRectF(0, item.y + fmBody.height() * 0.3, page.width(),
                                                 item.height - fmBody.height() * 0.6),
                                 picture, body);
                break;
            }
            case ItemKind::TableRow: PaintTableRow(painter, item); break;
            }
        }
        painter.restore();
    }
};

ReportLayout::ReportLayout(const ReportDocument& report, QSizeF page, qreal dpi)
    : impl_(std::make_unique<Impl>(report, page, dpi))
{
}

ReportLayout::~ReportLayout() = default;

int ReportLayout::PageCount() const { return static_cast<int>(impl_->pages.size()); }

void ReportLayout::PaintPage(QPainter& painter, int page) const
{
    if (page >= 0 && page < PageCount())
        impl_->Paint(painter, page);
}

ReportLayout::PageSummary ReportLayout::Summary(int page) const
{
    PageSummary summary;
    if (page < 0 || page >= PageCount())
        return summary;
    summary.header = FromModel(impl_->report.title) + QLatin1Char('|') + impl_->HeaderRight();
    summary.footer = impl_->Footer(page);
    int lastBlock = -1;
    for (const Item& item : impl_->pages[static_cast<std::size_t>(page)]) {
        if (item.kind == ItemKind::Chart)
            summary.chart = true;
        if (item.kind == ItemKind::Series)
            ++summary.series;
        if (item.kind != ItemKind::TableRow)
            continue;
        if (item.block != lastBlock)
            summary.tableRows.emplace_back();
        lastBlock = item.block;
        summary.tableRows.back().push_back(item.row);
    }
    return summary;
}

QPageLayout ReportPageLayout(const ReportDocument& report, const QPageSize& size)
{
    return QPageLayout(size, report.landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres),
                       QPageLayout::Millimeter);
}

bool PaintReport(const ReportDocument& report, QPagedPaintDevice& device)
{
    const qreal dpi = device.logicalDpiY();
    const QSizeF page = device.pageLayout().paintRectPixels(qRound(dpi)).size();
    const ReportLayout layout(report, page, dpi);
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    for (int p = 0; p < layout.PageCount(); ++p) {
        if (p > 0)
            device.newPage();
        layout.PaintPage(painter, p);
    }
    return painter.end();
}

std::optional<QByteArray> ReportPdfBytes(const ReportDocument& report, const QPageSize& size)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(300);
        writer.setCreator(QStringLiteral("Platewell"));
        writer.setTitle(FromModel(report.title));
        writer.setPageLayout(ReportPageLayout(report, size));
        if (!PaintReport(report, writer))
            return std::nullopt;
    }
    return buffer.data();
}

bool WriteReportPdf(const ReportDocument& report, const QString& path, const QPageSize& size)
{
    // Drawn in memory and written whole, so a failed write leaves no
    // half-written file behind.
    const std::optional<QByteArray> pdf = ReportPdfBytes(report, size);
    if (!pdf)
        return false;
    try {
        WriteFileAtomic(ToNativePath(path), std::string_view(pdf->constData(), std::size_t(pdf->size())));
    } catch (const RunTimeError&) {
        return false;
    }
    return true;
}

std::vector<QImage> RenderReportImages(const ReportDocument& report, const QPageSize& size, int dpi)
{
    const QPageLayout pageLayout = ReportPageLayout(report, size);
    const QRect full = pageLayout.fullRectPixels(dpi);
    const QRect paint = pageLayout.paintRectPixels(dpi);
    const ReportLayout layout(report, paint.size(), dpi);
    std::vector<QImage> images;
    for (int p = 0; p < layout.PageCount(); ++p) {
        QImage image(full.size(), QImage::Format_RGB32);
        image.setDotsPerMeterX(qRound(dpi / 0.0254));
        image.setDotsPerMeterY(qRound(dpi / 0.0254));
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(paint.topLeft());
        layout.PaintPage(painter, p);
        painter.end();
        images.push_back(std::move(image));
    }
    return images;
}

}  // namespace pw
