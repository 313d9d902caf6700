#include "days/views/DaysWindow.h"

#include <QComboBox>
#include <QDate>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <set>

#include "analysis/AnalysisFile.h"
#include "core/LineFile.h"
#include "core/views/SeriesChart.h"
#include "core/views/Widgets.h"
#include "days/DayFiles.h"
#include "days/PeriodReport.h"

namespace pw {

namespace {

constexpr const char* kLastFolderKey = "lastFolder";
constexpr const char* kCsvFilter = "Comma-separated values (*.csv)|*.csv";
constexpr int kTopFoods = 10;
constexpr int kFirstDayNutrientColumn = 3;

QTableWidgetItem* Cell(const QString& text, bool number)
{
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setTextAlignment(number ? (Qt::AlignRight | Qt::AlignVCenter) : (Qt::AlignLeft | Qt::AlignVCenter));
    return item;
}

QTableWidget* MakeTable(QWidget* parent, const char* name, const QStringList& captions)
{
    auto* table = new QTableWidget(0, static_cast<int>(captions.size()), parent);
    table->setObjectName(QString::fromLatin1(name));
    table->setHorizontalHeaderLabels(captions);
    table->verticalHeader()->setVisible(false);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    table->horizontalHeader()->setStretchLastSection(true);
    return table;
}

}  // namespace

DaysWindow::DaysWindow(const FoodTable& table, Seams& seams, QString settingsFile, QWidget* parent)
    : QDialog(parent), table_(table), seams_(seams), settingsFile_(std::move(settingsFile))
{
    setObjectName(QStringLiteral("frmDays"));
    setWindowTitle(QString::fromLatin1(texts::kDaysCaption));
    setModal(false);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);

    btnDaysAddFiles = MakeButton(this, "btnDaysAddFiles", "Add &Files...", "Adds saved lists (.pwl) as days",
                                 ButtonDefault::Never);
    btnDaysAddFolder = MakeButton(this, "btnDaysAddFolder", "Add F&older...",
                                  "Adds every saved list (.pwl) in a folder", ButtonDefault::Never);
    btnDaysRemove = MakeButton(this, "btnDaysRemove", "&Remove Days", "Removes the selected days",
                               ButtonDefault::Never);
    btnDaysPrint = MakeButton(this, "btnDaysPrint", "&Print...", "Prints the period report", ButtonDefault::Never);
    btnDaysPreview = MakeButton(this, "btnDaysPreview", "Pre&view...", "Shows the period report as printed",
                                ButtonDefault::Never);
    btnDaysPdf = MakeButton(this, "btnDaysPdf", "Export P&DF...", "Saves the period report as a PDF file",
                            ButtonDefault::Never);
    btnDaysCsv = MakeButton(this, "btnDaysCsv", "Export &CSV", "Saves the days or their foods as CSV",
                            ButtonDefault::Never);
    btnDaysHelp = MakeButton(this, "btnDaysHelp", "&Help", "Opens the help on several days", ButtonDefault::Never);
    auto* csvMenu = new QMenu(btnDaysCsv);
    QAction* csvDays = csvMenu->addAction(QString::fromLatin1(texts::kDaysCsvDays));
    csvDays->setObjectName(QStringLiteral("mnuDaysCsvDays"));
    QAction* csvFoods = csvMenu->addAction(QString::fromLatin1(texts::kDaysCsvFoods));
    csvFoods->setObjectName(QStringLiteral("mnuDaysCsvFoods"));
    btnDaysCsv->setMenu(csvMenu);

    labDaysPeriod = MakeLabel(this, QStringLiteral("labDaysPeriod"), "");
    QStringList captions = {QStringLiteral("Date"), QStringLiteral("Files"), QStringLiteral("Foods")};
    for (const char* caption : kPeriodNutrientCaptions)
        captions << QString::fromLatin1(caption);
    gridDays = MakeTable(this, "gridDays", captions);

    comDaysNutrient = new QComboBox(this);
    comDaysNutrient->setObjectName(QStringLiteral("comDaysNutrient"));
    for (const char* name : kReportNutrientNames)
        comDaysNutrient->addItem(QString::fromLatin1(name));
    chartDays = new SeriesChart(this);
    chartDays->setObjectName(QStringLiteral("chartDays"));
    gridDaysTopFoods = MakeTable(this, "gridDaysTopFoods",
                                 {QStringLiteral("Amount"), QStringLiteral("Share"), QStringLiteral("Top food")});
    lstDaysLostFoods = new QListWidget(this);
    lstDaysLostFoods->setObjectName(QStringLiteral("lstDaysLostFoods"));
    lstDaysSkipped = new QListWidget(this);
    lstDaysSkipped->setObjectName(QStringLiteral("lstDaysSkipped"));

    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {btnDaysAddFiles, btnDaysAddFolder, btnDaysRemove})
        buttons->addWidget(b);
    buttons->addStretch();
    for (QPushButton* b : {btnDaysPrint, btnDaysPreview, btnDaysPdf, btnDaysCsv, btnDaysHelp})
        buttons->addWidget(b);

    auto* nutrientRow = new QHBoxLayout;
    nutrientRow->addWidget(MakeLabel(this, QStringLiteral("labDaysNutrient"), "&Nutrient:"));
    nutrientRow->addWidget(comDaysNutrient);
    nutrientRow->addStretch();
    findChild<QLabel*>(QStringLiteral("labDaysNutrient"))->setBuddy(comDaysNutrient);

    auto* chartAndFoods = new QHBoxLayout;
    chartAndFoods->addWidget(chartDays, 3);
    chartAndFoods->addWidget(gridDaysTopFoods, 2);

    auto* leftOut = new QGridLayout;
    leftOut->addWidget(MakeLabel(this, QStringLiteral("labDaysLostFoods"), "Foods no longer in the database:"), 0, 0);
    leftOut->addWidget(MakeLabel(this, QStringLiteral("labDaysSkipped"), "Files left out:"), 0, 1);
    leftOut->addWidget(lstDaysLostFoods, 1, 0);
    leftOut->addWidget(lstDaysSkipped, 1, 1);
    for (QListWidget* list : {lstDaysLostFoods, lstDaysSkipped})
        list->setMaximumHeight(fontMetrics().height() * 5);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(labDaysPeriod);
    layout->addWidget(gridDays, 3);
    layout->addLayout(nutrientRow);
    layout->addLayout(chartAndFoods, 3);
    layout->addLayout(leftOut, 1);
    resize(fontMetrics().height() * 62, fontMetrics().height() * 44);

    connect(btnDaysAddFiles, &QPushButton::clicked, this, &DaysWindow::btnDaysAddFiles_Click);
    connect(btnDaysAddFolder, &QPushButton::clicked, this, &DaysWindow::btnDaysAddFolder_Click);
    connect(btnDaysRemove, &QPushButton::clicked, this, &DaysWindow::btnDaysRemove_Click);
    connect(btnDaysPrint, &QPushButton::clicked, this, [this] { emit printRequested(PeriodReport()); });
    connect(btnDaysPreview, &QPushButton::clicked, this, [this] { emit previewRequested(PeriodReport()); });
    connect(btnDaysPdf, &QPushButton::clicked, this, [this] { emit pdfRequested(PeriodReport()); });
    connect(btnDaysHelp, &QPushButton::clicked, this, &DaysWindow::helpRequested);
    new QShortcut(QKeySequence(Qt::Key_F1), this, this, &DaysWindow::helpRequested);
    connect(csvDays, &QAction::triggered, this, [this] { ExportCsv(false); });
    connect(csvFoods, &QAction::triggered, this, [this] { ExportCsv(true); });
    connect(comDaysNutrient, &QComboBox::currentIndexChanged, this, &DaysWindow::ShowNutrient);
    connect(gridDays, &QTableWidget::itemSelectionChanged, this, [this] {
        btnDaysRemove->setEnabled(!gridDays->selectionModel()->selectedRows().isEmpty());
    });
    ShowPeriod();
}

QString DaysWindow::LastFolder() const
{
    QSettings settings(settingsFile_, QSettings::IniFormat);
    return settings.value(QString::fromLatin1(kLastFolderKey)).toString();
}

void DaysWindow::RememberFolder(const QString& folder)
{
    QSettings settings(settingsFile_, QSettings::IniFormat);
    settings.setValue(QString::fromLatin1(kLastFolderKey), folder);
}

void DaysWindow::SetViewByUnits(bool byUnits)
{
    byUnits_ = byUnits;
    ShowPeriod();
}

void DaysWindow::AddPaths(const QStringList& paths)
{
    std::vector<std::string> given;
    for (const QString& path : paths)
        given.push_back(ToNativePath(path));
    for (const std::string& path : ExpandDayPaths(given))
        if (std::find(paths_.begin(), paths_.end(), path) == paths_.end())
            paths_.push_back(path);
    Reload();
}

void DaysWindow::OpenLastFolder()
{
    const QString folder = LastFolder();
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        AddPaths({folder});
}

void DaysWindow::Reload()
{
    period_ = ReadPeriod(paths_, table_, seams_.clock.CurrentYear());
    ShowPeriod();
}

ReportDocument DaysWindow::PeriodReport() const
{
    return BuildPeriodReport(period_, QDate::currentDate().toString(Qt::ISODate).toStdString());
}

void DaysWindow::btnDaysAddFiles_Click()
{
    FileDialogRequest request;
    request.initialFolder = LastFolder();
    request.defaultExtension = QString::fromLatin1(kAnalysisExtension);
    request.filter = QString::fromLatin1(texts::kAnalysisFilter);
    request.fileMustExist = true;
    const std::optional<QStringList> files = seams_.files.OpenFiles(request);
    if (!files || files->isEmpty())
        return;
    RememberFolder(QFileInfo(files->front()).absolutePath());
    AddPaths(*files);
}

void DaysWindow::btnDaysAddFolder_Click()
{
    FileDialogRequest request;
    request.initialFolder = LastFolder();
    request.pathMustExist = true;
    const std::optional<QString> folder = seams_.files.ChooseFolder(request);
    if (!folder)
        return;
    RememberFolder(*folder);
    AddPaths({*folder});
}

void DaysWindow::btnDaysRemove_Click()
{
    std::set<std::string> removed;
    for (const QModelIndex& index : gridDays->selectionModel()->selectedRows()) {
        const auto row = static_cast<std::size_t>(index.row());
        if (row < period_.days.size())
            removed.insert(period_.days[row].paths.begin(), period_.days[row].paths.end());
    }
    if (removed.empty())
        return;
    std::erase_if(paths_, [&](const std::string& path) { return removed.count(path) > 0; });
    Reload();
}

void DaysWindow::ExportCsv(bool foods)
{
    if (period_.Empty())
        return;
    FileDialogRequest request;
    request.initialFolder = LastFolder();
    request.defaultExtension = QStringLiteral(".csv");
    request.proposedName = QString::fromLatin1(
        ProposedReportName(period_.LatestDay()->profile.inputs.name,
                           DateText(period_.days.front().date) + " to " + DateText(period_.days.back().date)) +
        (foods ? " foods" : " days"));
    request.filter = QString::fromLatin1(kCsvFilter);
    request.overwritePrompt = true;
    request.pathMustExist = true;
    const std::optional<QString> path = seams_.files.SaveFile(request);
    if (!path)
        return;
    const std::string bytes = foods ? PeriodFoodsCsv(period_) : PeriodDaysCsv(period_);
    SaveOrTell(seams_.prompts, QString::fromLatin1(texts::kTitleDays),
               [&] { WriteFileAtomic(ToNativePath(*path), bytes); });
}

void DaysWindow::ShowPeriod()
{
    labDaysPeriod->setText(QString::fromLatin1(period_.PeriodLine()) +
                           (period_.Empty() ? QStringLiteral(": add saved lists or a folder of them.")
                                            : QStringLiteral("; averages are per logged day.")));
    const int days = static_cast<int>(period_.days.size());
    gridDays->clearContents();
    gridDays->setRowCount(period_.Empty() ? 0 : days + 2);
    for (int r = 0; r < days; ++r) {
        const PeriodDay& day = period_.days[static_cast<std::size_t>(r)];
        gridDays->setItem(r, 0, Cell(QString::fromLatin1(DayDateText(day)), false));
        gridDays->setItem(r, 1, Cell(QString::number(day.files.size()), true));
        gridDays->setItem(r, 2, Cell(QString::number(day.foods.size()), true));
        for (int n = 0; n < kShownNutrients; ++n)
            gridDays->setItem(r, kFirstDayNutrientColumn + n,
                              Cell(QString::fromLatin1(DayCellText(day, n, byUnits_)), true));
    }
    if (!period_.Empty()) {
        // The closing rows: the average per logged day (of the percents
        // over the days with daily values) and the days over 100 % of DV.
        const int average = days, over = days + 1;
        gridDays->setItem(average, 0, Cell(QString::fromLatin1(texts::kAverageRow), false));
        gridDays->setItem(average, 2, Cell(QString::number(period_.AverageFoods()), true));
        gridDays->setItem(over, 0, Cell(QString::fromLatin1(texts::kDaysOverRow), false));
        for (int n = 0; n < kShownNutrients; ++n) {
            QString text;
            if (byUnits_) {
                text = QString::number(period_.Average(n));
            } else if (const auto percent = period_.AveragePercent(n)) {
                text = QString::number(*percent) + QLatin1Char('%');
            }
            gridDays->setItem(average, kFirstDayNutrientColumn + n, Cell(text, true));
            gridDays->setItem(over, kFirstDayNutrientColumn + n, Cell(QString::number(period_.DaysOver(n)), true));
        }
        for (int row : {average, over})
            for (int c = 0; c < gridDays->columnCount(); ++c)
                if (QTableWidgetItem* item = gridDays->item(row, c)) {
                    QFont bold = item->font();
                    bold.setBold(true);
                    item->setFont(bold);
                    item->setFlags(Qt::ItemIsEnabled);
                }
    }
    gridDays->resizeColumnsToContents();

    lstDaysLostFoods->clear();
    for (const LostFood& lost : period_.lost)
        lstDaysLostFoods->addItem(QString::fromLatin1(LostFoodLine(lost)));
    lstDaysSkipped->clear();
    for (const SkippedFile& skipped : period_.skipped)
        lstDaysSkipped->addItem(QString::fromLocal8Bit(skipped.path.c_str()) + QStringLiteral(": ") +
                                QString::fromLatin1(skipped.reason));
    btnDaysRemove->setEnabled(!gridDays->selectionModel()->selectedRows().isEmpty());
    for (QPushButton* b : {btnDaysPrint, btnDaysPreview, btnDaysPdf, btnDaysCsv})
        b->setEnabled(!period_.Empty());
    ShowNutrient();
}

void DaysWindow::ShowNutrient()
{
    const int nutrient = std::max(0, comDaysNutrient->currentIndex());
    const SeriesData series = BuildSeries(period_, nutrient);
    SeriesPicture picture;
    picture.name = QString::fromLatin1(series.name);
    picture.firstDate = QString::fromLatin1(series.firstDate);
    picture.lastDate = QString::fromLatin1(series.lastDate);
    for (const auto& value : series.values)
        picture.values.push_back(value ? std::optional<double>(static_cast<double>(*value)) : std::nullopt);
    if (series.dailyValue)
        picture.reference = static_cast<double>(*series.dailyValue);
    picture.average = static_cast<double>(series.average);
    chartDays->SetPicture(std::move(picture));

    const std::vector<TopFood> foods = period_.TopFoods(nutrient, kTopFoods);
    gridDaysTopFoods->clearContents();
    gridDaysTopFoods->setRowCount(static_cast<int>(foods.size()));
    for (int r = 0; r < static_cast<int>(foods.size()); ++r) {
        const TopFood& food = foods[static_cast<std::size_t>(r)];
        QStringList name;
        for (const std::string* part : {&food.group, &food.subgroup, &food.description})
            if (!part->empty())
                name << QString::fromLatin1(*part);
        QString text = name.join(QStringLiteral(" / "));
        if (!food.measure.empty())
            text += QStringLiteral(" (") + QString::fromLatin1(food.measure) + QLatin1Char(')');
        gridDaysTopFoods->setItem(r, 0, Cell(QString::number(food.amount), true));
        gridDaysTopFoods->setItem(r, 1, Cell(QString::number(food.share) + QLatin1Char('%'), true));
        gridDaysTopFoods->setItem(r, 2, Cell(text, false));
    }
    gridDaysTopFoods->resizeColumnsToContents();
}

}  // namespace pw
