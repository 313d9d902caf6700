#pragma once
// The one renderer of the reports: lays a ReportDocument out on pages and
// paints them on a printer, a PDF writer or images. Every page has a header
// with the title, the person's name and the date, and "Page n of m" below.
// Tables are sized to their content, wrap text between words only, repeat
// their header row on every page and never split a row across pages.
#include <QByteArray>
#include <QImage>
#include <QPageLayout>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

#include "printing/Report.h"

class QPagedPaintDevice;
class QPainter;

namespace pw {

class ReportLayout {
public:
    // page: the printable area in device pixels; dpi: the device's
    // resolution, which the type sizes follow.
    ReportLayout(const ReportDocument& report, QSizeF page, qreal dpi);
    ~ReportLayout();
    ReportLayout(const ReportLayout&) = delete;
    ReportLayout& operator=(const ReportLayout&) = delete;

    int PageCount() const;
    // Paints page 0..PageCount()-1 with the painter's origin at the top left
    // of the printable area.
    void PaintPage(QPainter& painter, int page) const;
    // What a page holds, for tests: per table piece, the rows placed (-1 the
    // header row, -2 the totals row), and the page's header and footer texts.
    struct PageSummary {
        QString header;
        QString footer;
        std::vector<std::vector<int>> tableRows;
        bool chart = false;
        int series = 0;  // the charts over days
    };
    PageSummary Summary(int page) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

// The page layout a report wants: A4 or the given size, portrait or
// landscape as the report says, 15 mm margins.
QPageLayout ReportPageLayout(const ReportDocument& report, const QPageSize& size = QPageSize(QPageSize::A4));

// Paints every page on device (a printer or a PDF writer), starting a new
// page between them; false when the painter could not start.
bool PaintReport(const ReportDocument& report, QPagedPaintDevice& device);

// The report as the bytes of a PDF file; nothing when it cannot be drawn.
std::optional<QByteArray> ReportPdfBytes(const ReportDocument& report,
                                         const QPageSize& size = QPageSize(QPageSize::A4));

// Writes the report as a PDF file; false when it cannot be written.
bool WriteReportPdf(const ReportDocument& report, const QString& path,
                    const QPageSize& size = QPageSize(QPageSize::A4));

// The pages as images of the whole sheet at dpi, white, margins included.
std::vector<QImage> RenderReportImages(const ReportDocument& report, const QPageSize& size, int dpi);

}  // namespace pw
