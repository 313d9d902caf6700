#pragma once
// frmDays, "Platewell - Days": saved lists analysed over a period. The user
// adds list files or a folder of them and removes days; the window shows
// the days table with its averages, one nutrient over the days with its top
// foods, the foods no longer in the database and the files left out, and
// makes the period's reports. The last folder is kept in the window's own
// settings file, never in pw.ini.
#include <QDialog>
#include <QString>
#include <string>
#include <vector>

#include "core/views/Seams.h"
#include "days/Period.h"
#include "fooddb/FoodTable.h"
#include "printing/Report.h"

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace pw {

class SeriesChart;

namespace texts {

inline constexpr const char* kDaysCaption = "Platewell - Days";
inline constexpr const char* kTitleDays = "Days";
inline constexpr const char* kDaysCsvDays = "&Days...";
inline constexpr const char* kDaysCsvFoods = "&Foods...";
inline constexpr const char* kPeriodNotWritten = "The period could not be written to\r\n";

}  // namespace texts

class DaysWindow : public QDialog {
    Q_OBJECT
public:
    // settingsFile: the window's own settings (its last folder); dateText
    // gives the reports' date.
    DaysWindow(const FoodTable& table, Seams& seams, QString settingsFile, QWidget* parent = nullptr);

    // The View menu's setting: amounts, or percent of each day's DV.
    void SetViewByUnits(bool byUnits);
    // Adds paths (list files or folders) and reads the period again.
    void AddPaths(const QStringList& paths);
    // Opens the folder last added, when there is one and it still exists.
    void OpenLastFolder();
    // Reads every file again, as after a change of the food table.
    void Reload();

    const Period& CurrentPeriod() const { return period_; }
    ReportDocument PeriodReport() const;

signals:
    // The period's report for the printer, the preview or a PDF file, made
    // by the report commands the day's report uses.
    void printRequested(const pw::ReportDocument& report);
    void previewRequested(const pw::ReportDocument& report);
    void pdfRequested(const pw::ReportDocument& report);
    // Help on several days: its button or F1 while the window is in front.
    void helpRequested();

private:
    void btnDaysAddFiles_Click();
    void btnDaysAddFolder_Click();
    void btnDaysRemove_Click();
    void ExportCsv(bool foods);
    void ShowPeriod();
    void ShowNutrient();
    QString LastFolder() const;
    void RememberFolder(const QString& folder);

    const FoodTable& table_;
    Seams& seams_;
    QString settingsFile_;
    bool byUnits_ = true;
    std::vector<std::string> paths_;
    Period period_;

    QPushButton* btnDaysAddFiles;
    QPushButton* btnDaysAddFolder;
    QPushButton* btnDaysRemove;
    QPushButton* btnDaysPrint;
    QPushButton* btnDaysPreview;
    QPushButton* btnDaysPdf;
    QPushButton* btnDaysCsv;
    QPushButton* btnDaysHelp;
    QLabel* labDaysPeriod;
    QTableWidget* gridDays;
    QComboBox* comDaysNutrient;
    SeriesChart* chartDays;
    QTableWidget* gridDaysTopFoods;
    QListWidget* lstDaysLostFoods;
    QListWidget* lstDaysSkipped;
};

}  // namespace pw
