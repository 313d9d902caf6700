#include "richin/views/RichInDialog.h"

#include <QAbstractTableModel>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QShowEvent>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <variant>
#include <vector>

#include "core/HelpContexts.h"
#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "core/views/Widgets.h"
#include "fooddb/FoodGroups.h"
#include "foodlist/FoodSession.h"
#include "richin/RichIn.h"

namespace pw {

namespace {

constexpr const char* kBasisCaptions[2] = {"per serving", "per 100 calories"};
constexpr const char* kAllGroupsCaption = "All groups";
// Column widths in widths of an "M": rank, the food's four texts, the values.
constexpr int kColumnEms[] = {3, 11, 9, 16, 7, 7, 5, 6, 6, 6};

QString Latin1(const std::string& text) { return QString::fromLatin1(text); }

}  // namespace

// The table's rows in one of three views, their cells made when asked for:
// a full table of 4,000 foods costs no more than its visible rows.
class RichInTableModel : public QAbstractTableModel {
public:
    RichInTableModel(const FoodSession& session, QObject* parent) : QAbstractTableModel(parent), session_(session) {}

    struct Ranking {
        RichRanking ranking;
        RichBasis basis;
    };
    struct Gap {
        GapOutcome outcome;
    };
    struct Contributors {
        std::vector<ContributorRow> rows;
        std::int32_t total = 0;
    };

    void Show(Nutrient nutrient, std::int32_t dailyValue, std::variant<Ranking, Gap, Contributors> rows)
    {
        beginResetModel();
        nutrient_ = nutrient;
        dailyValue_ = dailyValue;
        rows_ = std::move(rows);
        endResetModel();
    }

    const std::variant<Ranking, Gap, Contributors>& Rows() const { return rows_; }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        if (parent.isValid())
            return 0;
        if (const auto* r = std::get_if<Ranking>(&rows_))
            return static_cast<int>(r->ranking.rows.size());
        if (const auto* g = std::get_if<Gap>(&rows_))
            return static_cast<int>(g->outcome.rows.size());
        return static_cast<int>(std::get<Contributors>(rows_).rows.size());
    }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        if (parent.isValid())
            return 0;
        return static_cast<int>(Headers().size());
    }

    // The FoodTable index of a row; -1 for a list row whose food is gone.
    int FoodIndex(int row) const
    {
        if (row < 0 || row >= rowCount())
            return -1;
        if (const auto* r = std::get_if<Ranking>(&rows_))
            return r->ranking.rows[static_cast<std::size_t>(row)].foodIndex;
        if (const auto* g = std::get_if<Gap>(&rows_))
            return g->outcome.rows[static_cast<std::size_t>(row)].foodIndex;
        const FoodListEntry& entry = ListEntry(row);
        std::int16_t index = entry.foodIndex;
        ItemLocation(session_.foodTable, entry.group, entry.subgroup, entry.description, entry.measure, index);
        return index;
    }

    QString Quantity(int row) const
    {
        const auto* g = std::get_if<Gap>(&rows_);
        if (!g || row < 0 || row >= rowCount())
            return {};
        return Latin1(g->outcome.rows[static_cast<std::size_t>(row)].quantityText);
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        const std::vector<QString> headers = Headers();
        return section >= 0 && section < static_cast<int>(headers.size()) ? headers[static_cast<std::size_t>(section)]
                                                                          : QVariant();
    }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid())
            return {};
        const int column = index.column();
        if (role == Qt::TextAlignmentRole)
            return column == 0 || column >= 5 ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                              : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
        if (role != Qt::DisplayRole)
            return {};
        const int row = index.row();
        if (column == 0)
            return QString::number(row + 1);
        if (const auto* c = std::get_if<Contributors>(&rows_)) {
            const ContributorRow& r = c->rows[static_cast<std::size_t>(row)];
            const FoodListEntry& entry = ListEntry(row);
            switch (column) {
            case 1: return Latin1(entry.group);
            case 2: return Latin1(entry.subgroup);
            case 3: return Latin1(entry.description);
            case 4: return Latin1(entry.measure);
            case 5: return Latin1(entry.quantityText);
            case 6: return Latin1(RichAmountWithUnit(r.amount, RichBasis::PerServing, nutrient_));
            case 7: return Latin1(ShareText(r.amount, c->total));
            default: return {};
            }
        }
        const int food = FoodIndex(row);
        const FoodTable& table = session_.foodTable;
        switch (column) {
        case 1: return Latin1(table.Group(food));
        case 2: return Latin1(table.Subgroup(food));
        case 3: return Latin1(table.Description(food));
        case 4: return Latin1(table.Measure(food));
        default: break;
        }
        if (const auto* r = std::get_if<Ranking>(&rows_)) {
            const RichRow& rich = r->ranking.rows[static_cast<std::size_t>(row)];
            switch (column) {
            case 5: return Latin1(RichAmountWithUnit(rich.shown, r->basis, nutrient_));
            case 6: return Latin1(RichPercentText(rich.shown, r->basis, dailyValue_));
            case 7: return QString::number(table.Value(food, kCalories));
            default: return {};
            }
        }
        const GapRow& gap = std::get<Gap>(rows_).outcome.rows[static_cast<std::size_t>(row)];
        switch (column) {
        case 5: return Latin1(gap.quantityText);
        case 6: return Latin1(RichAmountWithUnit(gap.nutrientAdded, RichBasis::PerServing, nutrient_));
        case 7: return QString::number(gap.caloriesAdded);
        case 8: return Latin1(RichAmountWithUnit(gap.fatAdded, RichBasis::PerServing, kFats));
        case 9: return Latin1(RichAmountWithUnit(gap.sodiumAdded, RichBasis::PerServing, kSodium));
        default: return {};
        }
    }

private:
    const FoodListEntry& ListEntry(int row) const
    {
        return session_.foodList.Entry(std::get<Contributors>(rows_).rows[static_cast<std::size_t>(row)].listRow);
    }

    std::vector<QString> Headers() const
    {
        const QString name = QString::fromLatin1(kRichNutrientNames[nutrient_]);
        const std::vector<QString> food = {QStringLiteral("Rank"), QStringLiteral("Group"), QStringLiteral("Subgroup"),
                                           QStringLiteral("Description"), QStringLiteral("Measure")};
        std::vector<QString> headers = food;
        if (const auto* r = std::get_if<Ranking>(&rows_)) {
            headers.push_back(name + QLatin1Char(' ') +
                              QString::fromLatin1(kBasisCaptions[r->basis == RichBasis::PerServing ? 0 : 1]));
            headers.push_back(QStringLiteral("% DV"));
            headers.push_back(QStringLiteral("Calories"));
        } else if (std::holds_alternative<Gap>(rows_)) {
            for (const QString& h : {QStringLiteral("Quantity"), name + QStringLiteral(" added"),
                                     QStringLiteral("Calories added"), QStringLiteral("Fat added"),
                                     QStringLiteral("Sodium added")})
                headers.push_back(h);
        } else {
            headers.push_back(QStringLiteral("Qty"));
            headers.push_back(name);
            headers.push_back(QStringLiteral("Share of the day"));
        }
        return headers;
    }

    const FoodSession& session_;
    Nutrient nutrient_ = kCalories;
    std::int32_t dailyValue_ = 0;
    std::variant<Ranking, Gap, Contributors> rows_;
};

RichInDialog::RichInDialog(const FoodSession& session, Seams& seams, ErrorGuard* errorGuard, QWidget* parent)
    : QDialog(parent), guard(errorGuard), session_(session), seams_(seams)
{
    BuildControls();
    ConnectGuarded(comRichNutrient, &QComboBox::activated, this, &RichInDialog::comRichNutrient_Click, guard);
    for (QComboBox* combo : {comRichBasis, comRichGroup})
        ConnectGuarded(combo, &QComboBox::activated, this, &RichInDialog::FillGrid, guard);
    for (QButtonGroup* group : {orderGroup_, viewGroup_})
        ConnectGuarded(group, &QButtonGroup::idClicked, this, &RichInDialog::FillGrid, guard);
    ConnectGuarded(chkRichGap, &QCheckBox::clicked, this, &RichInDialog::FillGrid, guard);
    ConnectGuarded(btnRichChoose, &QPushButton::clicked, this, &RichInDialog::btnRichChoose_Click, guard);
    ConnectGuarded(btnRichCancel, &QPushButton::clicked, this, &RichInDialog::btnRichCancel_Click, guard);
    ConnectGuarded(btnRichHelp, &QPushButton::clicked, this, &RichInDialog::btnRichHelp_Click, guard);
    ConnectGuarded(gridRich->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
                   &RichInDialog::UpdateControls, guard);
    connect(gridRich, &QTableView::doubleClicked, this, [this] { RunGuarded(guard, [this] { btnRichChoose_Click(); }); });
    gridRich->installEventFilter(this);
    new QShortcut(QKeySequence(Qt::Key_F1), this, this, [this] { RunGuarded(guard, [this] { btnRichHelp_Click(); }); });
}

RichInDialog::~RichInDialog() = default;

void RichInDialog::BuildControls()
{
    setObjectName(QStringLiteral("frmRichIn"));
    setWindowTitle(QStringLiteral("Foods Rich In"));
    setSizeGripEnabled(true);

    labRichNutrient = MakeLabel(this, QStringLiteral("labRichNutrient"), "&Nutrient:");
    comRichNutrient = new QComboBox(this);
    comRichNutrient->setObjectName(QStringLiteral("comRichNutrient"));
    for (const char* name : kRichNutrientNames)
        comRichNutrient->addItem(QString::fromLatin1(name));
    labRichNutrient->setBuddy(comRichNutrient);

    labRichBasis = MakeLabel(this, QStringLiteral("labRichBasis"), "&Amount:");
    comRichBasis = new QComboBox(this);
    comRichBasis->setObjectName(QStringLiteral("comRichBasis"));
    for (const char* caption : kBasisCaptions)
        comRichBasis->addItem(QString::fromLatin1(caption));
    labRichBasis->setBuddy(comRichBasis);

    labRichGroup = MakeLabel(this, QStringLiteral("labRichGroup"), "&Group:");
    comRichGroup = new QComboBox(this);
    comRichGroup->setObjectName(QStringLiteral("comRichGroup"));
    comRichGroup->addItem(QString::fromLatin1(kAllGroupsCaption));
    for (std::string_view name : kGroupNames)
        comRichGroup->addItem(QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size())));
    labRichGroup->setBuddy(comRichGroup);

    optRichMost = new QRadioButton(QStringLiteral("&Most first"), this);
    optRichMost->setObjectName(QStringLiteral("optRichMost"));
    optRichLeast = new QRadioButton(QStringLiteral("&Least first"), this);
    optRichLeast->setObjectName(QStringLiteral("optRichLeast"));
    orderGroup_ = new QButtonGroup(this);
    orderGroup_->addButton(optRichMost, 0);
    orderGroup_->addButton(optRichLeast, 1);

    optRichAllFoods = new QRadioButton(QStringLiteral("All &foods"), this);
    optRichAllFoods->setObjectName(QStringLiteral("optRichAllFoods"));
    optRichThisList = new QRadioButton(QStringLiteral("&This list's contributors"), this);
    optRichThisList->setObjectName(QStringLiteral("optRichThisList"));
    optRichThisList->setToolTip(QStringLiteral("The foods of your list by how much each gave"));
    viewGroup_ = new QButtonGroup(this);
    viewGroup_->addButton(optRichAllFoods, 0);
    viewGroup_->addButton(optRichThisList, 1);
    chkRichGap = new QCheckBox(QStringLiteral("Fill the &gap"), this);
    chkRichGap->setObjectName(QStringLiteral("chkRichGap"));
    chkRichGap->setToolTip(QStringLiteral("How much of each food brings the day to its daily value"));

    labRichNote = MakeLabel(this, QStringLiteral("labRichNote"), "");
    labRichNote->setWordWrap(true);

    gridRich = new QTableView(this);
    gridRich->setObjectName(QStringLiteral("gridRich"));
    table_ = new RichInTableModel(session_, this);
    gridRich->setModel(table_);
    gridRich->verticalHeader()->hide();
    gridRich->setEditTriggers(QAbstractItemView::NoEditTriggers);
    gridRich->setSelectionBehavior(QAbstractItemView::SelectRows);
    gridRich->setSelectionMode(QAbstractItemView::SingleSelection);
    gridRich->setWordWrap(false);
    gridRich->setTabKeyNavigation(false);
    gridRich->horizontalHeader()->setHighlightSections(false);
    gridRich->horizontalHeader()->setSectionsClickable(false);
    // Rows of one line, not measured row by row: a table of 4,000 foods
    // fills at once.
    gridRich->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    gridRich->verticalHeader()->setMinimumSectionSize(1);
    gridRich->verticalHeader()->setDefaultSectionSize(gridRich->fontMetrics().height() + 4);
    const int em = fontMetrics().horizontalAdvance(QLatin1Char('M'));

    btnRichChoose = MakeButton(this, "btnRichChoose", "&Choose", "Take the food into the food chooser");
    btnRichCancel = MakeButton(this, "btnRichCancel", "Cancel");
    btnRichHelp = MakeButton(this, "btnRichHelp", "Help");
    btnRichChoose->setDefault(true);

    auto* choices = new QGridLayout;
    choices->addWidget(labRichNutrient, 0, 0);
    choices->addWidget(comRichNutrient, 0, 1);
    choices->addWidget(labRichBasis, 0, 2);
    choices->addWidget(comRichBasis, 0, 3);
    choices->addWidget(labRichGroup, 0, 4);
    choices->addWidget(comRichGroup, 0, 5);
    choices->setColumnStretch(5, 1);
    auto* options = new QHBoxLayout;
    for (QWidget* w : {static_cast<QWidget*>(optRichMost), static_cast<QWidget*>(optRichLeast)})
        options->addWidget(w);
    options->addSpacing(em * 2);
    for (QWidget* w : {static_cast<QWidget*>(optRichAllFoods), static_cast<QWidget*>(optRichThisList)})
        options->addWidget(w);
    options->addSpacing(em * 2);
    options->addWidget(chkRichGap);
    options->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* b : {btnRichChoose, btnRichCancel, btnRichHelp})
        buttons->addWidget(b);
    auto* page = new QVBoxLayout(this);
    page->addLayout(choices);
    page->addLayout(options);
    page->addWidget(labRichNote);
    page->addWidget(gridRich, 1);
    page->addLayout(buttons);
    resize(em * 76, em * 36);
}

int RichInDialog::RowCount() const { return table_->rowCount(); }
int RichInDialog::FoodIndexOfRow(int row) const { return table_->FoodIndex(row); }
QString RichInDialog::QuantityOfRow(int row) const { return table_->Quantity(row); }

int RichInDialog::CurrentRow() const
{
    const QModelIndex current = gridRich->currentIndex();
    return current.isValid() ? current.row() : -1;
}

bool RichInDialog::GapAvailable() const
{
    const auto nutrient = static_cast<Nutrient>(comRichNutrient->currentIndex());
    return profileComplete_ && session_.foodList.Count() > 0 && session_.dailyValues[nutrient] > 0;
}

void RichInDialog::Form_Activate()
{
    resetting_ = true;
    const Nutrient nutrient = preset_.value_or(MostLackingNutrient(
        session_.foodList.Totals(), profileComplete_ ? session_.dailyValues : DailyValues{}));
    preset_.reset();
    comRichNutrient->setCurrentIndex(nutrient);
    comRichBasis->setCurrentIndex(0);
    comRichGroup->setCurrentIndex(0);
    optRichAllFoods->setChecked(true);
    chkRichGap->setChecked(false);
    resetting_ = false;
    comRichNutrient_Click();
    gridRich->setFocus();
}

void RichInDialog::comRichNutrient_Click()
{
    // Each nutrient opens in its own order: least first for the limits.
    const auto nutrient = static_cast<Nutrient>(comRichNutrient->currentIndex());
    (DefaultRichOrder(nutrient) == RichOrder::Most ? optRichMost : optRichLeast)->setChecked(true);
    FillGrid();
}

void RichInDialog::FillGrid()
{
    if (resetting_)
        return;
    const auto nutrient = static_cast<Nutrient>(std::max(0, comRichNutrient->currentIndex()));
    const int group = comRichGroup->currentIndex() - 1;  // "All groups" first
    const RichOrder order = optRichLeast->isChecked() ? RichOrder::Least : RichOrder::Most;
    const std::int32_t dailyValue = profileComplete_ ? session_.dailyValues[nutrient] : 0;
    const std::string name = kRichNutrientNames[nutrient];
    if (!GapAvailable())
        chkRichGap->setChecked(false);
    QString note;
    if (optRichThisList->isChecked()) {
        RichInTableModel::Contributors rows;
        rows.rows = RankContributors(session_.foodList, nutrient, group, order);
        rows.total = session_.foodList.Totals()[nutrient];
        note = session_.foodList.Count() == 0
                   ? QStringLiteral("The list is empty.")
                   : QStringLiteral("The list's foods gave %1 of %2 in all.")
                         .arg(Latin1(RichAmountWithUnit(rows.total, RichBasis::PerServing, nutrient)), Latin1(name));
        table_->Show(nutrient, dailyValue, std::move(rows));
    } else if (chkRichGap->isChecked()) {
        RichInTableModel::Gap gap{FillGap(session_.foodTable, nutrient, group, session_.foodList.Totals()[nutrient],
                                          dailyValue)};
        const GapOutcome& o = gap.outcome;
        const QString total = Latin1(RichAmountWithUnit(o.dayTotal, RichBasis::PerServing, nutrient));
        const QString dv = Latin1(RichAmountWithUnit(o.dailyValue, RichBasis::PerServing, nutrient));
        if (o.state == GapState::Reached) {
            note = QStringLiteral("The day already has %1 of %2, at or above its daily value of %3: there is no gap "
                                  "to fill.")
                       .arg(total, Latin1(name), dv);
        } else {
            note = QStringLiteral("The day has %1 of %2 of its daily value of %3. Each quantity brings it to the "
                                  "daily value; fewest calories first.")
                       .arg(total, Latin1(name), dv);
            if (o.beyondLimit > 0)
                note += QStringLiteral(" %1 foods would need more than 99 servings; they come last.").arg(o.beyondLimit);
        }
        table_->Show(nutrient, dailyValue, std::move(gap));
    } else {
        const RichBasis basis = comRichBasis->currentIndex() == 1 ? RichBasis::Per100Calories : RichBasis::PerServing;
        RichInTableModel::Ranking ranking{RankFoods(session_.foodTable, {nutrient, basis, group, order}), basis};
        note = QStringLiteral("%1 foods.").arg(ranking.ranking.rows.size());
        if (ranking.ranking.withoutCalories > 0)
            note += QStringLiteral(" %1 foods without calories are left out.").arg(ranking.ranking.withoutCalories);
        table_->Show(nutrient, dailyValue, std::move(ranking));
    }
    labRichNote->setText(note);
    const int em = fontMetrics().horizontalAdvance(QLatin1Char('M'));
    // Each column as wide as its kind of text, and never narrower than its
    // header.
    const QFontMetrics header(gridRich->horizontalHeader()->font());
    for (int column = 0; column < table_->columnCount() && column < static_cast<int>(std::size(kColumnEms)); ++column)
        gridRich->setColumnWidth(
            column, std::max(kColumnEms[column] * em,
                             header.horizontalAdvance(table_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()) + em));
    if (table_->rowCount() > 0)
        gridRich->setCurrentIndex(table_->index(0, 0));
    UpdateControls();
}

void RichInDialog::UpdateControls()
{
    const bool list = optRichThisList->isChecked();
    const bool gap = chkRichGap->isChecked();
    chkRichGap->setEnabled(!list && GapAvailable());
    for (QWidget* w : {static_cast<QWidget*>(labRichBasis), static_cast<QWidget*>(comRichBasis)})
        w->setEnabled(!list && !gap);
    optRichMost->setEnabled(!gap);
    optRichLeast->setEnabled(!gap);
    btnRichChoose->setEnabled(profileComplete_ && FoodIndexOfRow(CurrentRow()) >= 0);
}

void RichInDialog::btnRichChoose_Click()
{
    const int row = CurrentRow();
    const int index = FoodIndexOfRow(row);
    if (!profileComplete_ || index < 0)
        return;
    const QString quantity = QuantityOfRow(row);
    QDialog::accept();
    emit foodChosen(index, quantity);
}

void RichInDialog::btnRichCancel_Click() { QDialog::reject(); }

void RichInDialog::reject()
{
    RunGuarded(guard, [this] { btnRichCancel_Click(); });
}

void RichInDialog::btnRichHelp_Click()
{
    seams_.help.ShowHelp(InFolder(session_.programFolder, QStringLiteral("Pw.hlp")), kHelpContext, kTopicRichIn);
}

void RichInDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        RunGuarded(guard, [this] { Form_Activate(); });
}

bool RichInDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == gridRich && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            RunGuarded(guard, [this] { btnRichChoose_Click(); });
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace pw
