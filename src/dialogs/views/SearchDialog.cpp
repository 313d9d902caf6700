#include "dialogs/views/SearchDialog.h"

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QShowEvent>
#include <QTableWidget>
#include <algorithm>

#include "core/views/Widgets.h"
#include "dialogs/DialogTexts.h"
#include "core/views/ErrorGuard.h"
#include "core/views/Seams.h"
#include "foodlist/FoodSession.h"

namespace pw {

namespace {

// The designed block of controls, in twips. Left edges of the controls
// outside the frame are offsets from the frame's left edge, which the resize
// rule keeps centred.
constexpr int kMinWidth = 6804;
constexpr int kMinHeight = 4800;
constexpr int kStartHeight = 5520;
constexpr int kFrameHalfWidth = 3276;
constexpr int kFrameTop = 540;
constexpr int kFrameHeight = 1335;
constexpr int kGridLeft = 60;
constexpr int kGridTop = 2460;
constexpr int kGridWidthMargin = 252;
constexpr int kGridHeightMargin = 2928;

struct Place {
    int left;  // from the frame's left edge
    int top;
    int width;
    int height;
};
// Two lines where the caption is wider than its room.
constexpr Place kEnterSearchTermPlace = {60, 30, 1455, 510};
constexpr Place kSearchTextPlace = {1560, 105, 3360, 345};
constexpr Place kSearchButtonPlace = {5040, 90, 1515, 375};
constexpr int kButtonRowTop = 1980;
constexpr int kButtonWidth = 1455;
constexpr int kButtonHeight = 375;
constexpr int kNewSearchLeft = 240;
constexpr int kAcceptLeft = 1860;
constexpr int kCancelLeft = 3480;
constexpr int kHelpLeft = 5100;

// The selected food's three lines inside the frame, in frame twips.
constexpr int kCaptionLeft = 120;
constexpr int kCaptionWidth = 1335;
constexpr int kValueLeft = 1500;
constexpr int kValueWidth = 4935;
constexpr int kLineTops[3] = {300, 630, 960};
constexpr int kLineHeight = 285;

constexpr int kResultWidths[3] = {1500, 1500, 5000};
constexpr const char* kResultCaptions[3] = {"Primary Group", "Sub-group", "Description"};


}  // namespace

SearchDialog::SearchDialog(const FoodSession& session, Seams& seams, ErrorGuard* errorGuard, QWidget* parent)
    : OnceDialog(session.programFolder, seams, errorGuard, kTopicSearch, parent), session_(session)
{
    BuildControls();
    ConnectGuarded(btnSearch, &QPushButton::clicked, this, &SearchDialog::btnSearch_Click, guard);
    ConnectGuarded(btnNewSearch, &QPushButton::clicked, this, &SearchDialog::btnNewSearch_Click, guard);
    ConnectGuarded(btnAccept, &QPushButton::clicked, this, &SearchDialog::btnAccept_Click, guard);
    ConnectGuarded(btnCancel, &QPushButton::clicked, this, [this] { btnCancel_Click(); }, guard);
    ConnectGuarded(btnHelp, &QPushButton::clicked, this, [this] { btnHelp_Click(); }, guard);
    connect(gridSearch, &QTableWidget::currentCellChanged, this,
            [this](int row) { RunGuarded(guard, [this, row] { gridSearch_RowColChange(row); }); });
    // Text pasted or cut with the mouse follows the same rule as typing.
    ConnectGuarded(txtSearch, &QLineEdit::textEdited, this, &SearchDialog::txtSearch_KeyUp, guard);
    txtSearch->installEventFilter(this);
    // A result double-clicked, or Enter on the result moved to, is taken as
    // Accept takes it.
    connect(gridSearch, &QTableWidget::cellDoubleClicked, this, [this](int row) {
        RunGuarded(guard, [this, row] {
            gridSearch_RowColChange(row);
            if (btnAccept->isEnabled())
                btnAccept_Click();
        });
    });
    gridSearch->installEventFilter(this);
    // The grid is one stop of the Tab key; the arrow keys move inside it.
    gridSearch->setTabKeyNavigation(false);
    ResetSearch();
}

void SearchDialog::BuildControls()
{
    setObjectName(QStringLiteral("frmSearch"));
    setWindowTitle(QStringLiteral("Search for"));
    setSizeGripEnabled(true);

    labEnterSearchTerm = MakeLabel(this, QStringLiteral("labEnterSearchTerm"), "Enter Search term:");
    labEnterSearchTerm->setWordWrap(true);
    txtSearch = new QLineEdit(this);
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setToolTip(QStringLiteral("Enter search term here"));
    btnSearch = MakeButton(this, "btnSearch", "Start Search", "Click here to start search");
    // Enter in the search box starts the search while it may start.
    btnSearch->setDefault(true);

    frameResults = new QGroupBox(QStringLiteral("Search Results"), this);
    frameResults->setObjectName(QStringLiteral("frameResults"));
    labPrimaryLabel = MakeLabel(frameResults, QStringLiteral("labPrimaryLabel"), "Primary Group");
    labPrimary = MakeLabel(frameResults, QStringLiteral("labPrimary"), "");
    labSecondaryLabel = MakeLabel(frameResults, QStringLiteral("labSecondaryLabel"), "Sub-group");
    labSecondary = MakeLabel(frameResults, QStringLiteral("labSecondary"), "");
    labDescriptionLabel = MakeLabel(frameResults, QStringLiteral("labDescriptionLabel"), "Description");
    labDescription = MakeLabel(frameResults, QStringLiteral("labDescription"), "");
    QFont valueFont = labPrimary->font();
    valueFont.setBold(true);
    for (QLabel* value : {labPrimary, labSecondary, labDescription})
        value->setFont(valueFont);

    gridSearch = new QTableWidget(0, 3, this);
    gridSearch->setObjectName(QStringLiteral("gridSearch"));
    gridSearch->verticalHeader()->hide();
    gridSearch->horizontalHeader()->setSectionsClickable(false);
    gridSearch->horizontalHeader()->setHighlightSections(false);
    gridSearch->setEditTriggers(QAbstractItemView::NoEditTriggers);
    gridSearch->setSelectionBehavior(QAbstractItemView::SelectRows);
    gridSearch->setSelectionMode(QAbstractItemView::SingleSelection);
    gridSearch->setWordWrap(false);
    // Rows one line high, so text at the top of a cell sits in the middle.
    gridSearch->verticalHeader()->setMinimumSectionSize(1);
    gridSearch->verticalHeader()->setDefaultSectionSize(gridSearch->fontMetrics().height() + 4);

    btnNewSearch = MakeButton(this, "btnNewSearch", "New Search", "Start a new search");
    btnAccept = MakeButton(this, "btnAccept", "Accept", "Accept and add to main window");
    btnCancel = MakeButton(this, "btnCancel", "Cancel", nullptr);
    btnHelp = MakeButton(this, "btnHelp", "Help", nullptr);

    const int dpiX = DpiX();
    const int dpiY = DpiY();
    QLabel* const lines[3][2] = {{labPrimaryLabel, labPrimary},
                                 {labSecondaryLabel, labSecondary},
                                 {labDescriptionLabel, labDescription}};
    for (int line = 0; line < 3; ++line) {
        const int top = TwipsToPx(kLineTops[line], dpiY);
        const int height = TwipsToPx(kLineHeight, dpiY);
        lines[line][0]->setGeometry(TwipsToPx(kCaptionLeft, dpiX), top, TwipsToPx(kCaptionWidth, dpiX), height);
        lines[line][1]->setGeometry(TwipsToPx(kValueLeft, dpiX), top, TwipsToPx(kValueWidth, dpiX), height);
    }
    setMinimumSize(TwipsToPx(kMinWidth, dpiX), TwipsToPx(kMinHeight, dpiY));
    resize(width_.SetTwips(kMinWidth, dpiX), height_.SetTwips(kStartHeight, dpiY));
}

int SearchDialog::DpiX() const { return logicalDpiX() > 0 ? logicalDpiX() : 96; }
int SearchDialog::DpiY() const { return logicalDpiY() > 0 ? logicalDpiY() : 96; }

void SearchDialog::ResetSearch()
{
    for (QLabel* label : {labPrimaryLabel, labPrimary, labSecondaryLabel, labSecondary, labDescriptionLabel,
                          labDescription})
        label->setEnabled(false);
    for (QLabel* value : {labPrimary, labSecondary, labDescription})
        value->clear();
    btnNewSearch->setEnabled(false);
    btnAccept->setEnabled(false);
    InitResultsGrid();
    frameResults->setEnabled(false);
    gridSearch->setEnabled(false);
    txtSearch->clear();
    btnSearch->setEnabled(false);
    results_.clear();
    selectedResult_ = 0;
}

void SearchDialog::InitResultsGrid()
{
    gridSearch->clearContents();
    gridSearch->setRowCount(0);  // the header row only
    gridSearch->setCurrentCell(-1, -1);
    // A cell clicked last time may have scrolled the columns sideways.
    gridSearch->horizontalScrollBar()->setValue(0);
    const int dpiX = DpiX();
    for (int column = 0; column < 3; ++column) {
        gridSearch->setColumnWidth(column, TwipsToPx(kResultWidths[column], dpiX));
        auto* header = new QTableWidgetItem(QString::fromLatin1(kResultCaptions[column]));
        QFont bold = header->font();
        bold.setBold(true);
        header->setFont(bold);
        header->setTextAlignment(Qt::AlignCenter);
        gridSearch->setHorizontalHeaderItem(column, header);
    }
}

void SearchDialog::btnSearch_Click()
{
    const QString typed = txtSearch->text();
    // A character outside Latin-1 occurs in no food's texts.
    const bool latin1 = std::all_of(typed.begin(), typed.end(), [](QChar c) { return c.unicode() <= 0xFF; });
    SearchOutcome outcome;
    if (latin1)
        outcome = SearchFoods(session_.foodTable, typed.toLatin1().toStdString());
    results_.clear();
    for (const SearchResult& result : outcome.results) {
        results_.push_back(result);
        const int row = ResultCount() - 1;
        gridSearch->setRowCount(row + 1);
        const std::string* texts[3] = {&result.group, &result.subgroup, &result.description};
        for (int column = 0; column < 3; ++column) {
            auto* cell = new QTableWidgetItem(QString::fromLatin1(*texts[column]));
            cell->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
            gridSearch->setItem(row, column, cell);
        }
    }
    if (outcome.overLimit)
        seams_.prompts.Message(QString::fromLatin1(texts::kSearchOverLimit), QString::fromLatin1(texts::kTitleSearch),
                               MsgIcon::Exclamation);
    if (ResultCount() != 0) {
        frameResults->setEnabled(true);
        gridSearch->setEnabled(true);
    } else {
        seams_.prompts.Message(QString::fromLatin1(texts::kSearchNoMatch), QString::fromLatin1(texts::kTitleSearch),
                               MsgIcon::Information);
    }
    btnNewSearch->setEnabled(true);
    // New Search is the way back to the box: it takes the box's focus.
    btnNewSearch->setFocus();
    txtSearch->setEnabled(false);
    btnSearch->setEnabled(false);
}

void SearchDialog::gridSearch_RowColChange(int row)
{
    // The grid's rows are the results 1..count; its header is row 0.
    selectedResult_ = row + 1;
    if (selectedResult_ < 1 || selectedResult_ > ResultCount())
        return;
    const SearchResult& food = results_[static_cast<std::size_t>(selectedResult_ - 1)];
    const FoodTable& table = session_.foodTable;
    labPrimary->setText(QString::fromLatin1(table.Group(food.foodIndex)));
    labSecondary->setText(QString::fromLatin1(table.Subgroup(food.foodIndex)));
    labDescription->setText(QString::fromLatin1(table.Description(food.foodIndex)));
    for (QLabel* label : {labPrimaryLabel, labPrimary, labSecondaryLabel, labSecondary, labDescriptionLabel,
                          labDescription})
        label->setEnabled(true);
    btnAccept->setEnabled(true);
}

void SearchDialog::btnAccept_Click()
{
    if (selectedResult_ < 1 || selectedResult_ > ResultCount())
        return;
    emit foodChosen(results_[static_cast<std::size_t>(selectedResult_ - 1)].foodIndex);
    btnAccept->setEnabled(false);
    ResetSearch();
    txtSearch->setEnabled(true);
    QDialog::accept();
}

void SearchDialog::btnNewSearch_Click()
{
    ResetSearch();
    btnNewSearch->setEnabled(false);
    txtSearch->setEnabled(true);
    txtSearch->setFocus();
}

void SearchDialog::btnCancel_Click()
{
    ResetSearch();
    QDialog::reject();
}

void SearchDialog::txtSearch_KeyUp() { btnSearch->setEnabled(!txtSearch->text().isEmpty()); }

void SearchDialog::Form_Activate()
{
    ResetSearch();
    txtSearch->setEnabled(true);
    txtSearch->setFocus();
}

void SearchDialog::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    Form_Resize();
}

void SearchDialog::Form_Resize()
{
    const int dpiX = DpiX();
    const int dpiY = DpiY();
    const int minWidth = TwipsToPx(kMinWidth, dpiX);
    const int minHeight = TwipsToPx(kMinHeight, dpiY);
    if (!isMaximized() && !isFullScreen() && (width() < minWidth || height() < minHeight)) {
        resize(std::max(width(), minWidth), std::max(height(), minHeight));
        return;  // the resize comes back here with the new size
    }
    const int w = width_.Twips(width(), dpiX);
    const int h = height_.Twips(height(), dpiY);
    gridSearch->setGeometry(TwipsToPx(kGridLeft, dpiX), TwipsToPx(kGridTop, dpiY),
                            TwipsToPx(w - kGridWidthMargin, dpiX), TwipsToPx(h - kGridHeightMargin, dpiY));
    const int frameLeft = w / 2 - kFrameHalfWidth;
    frameResults->setGeometry(TwipsToPx(frameLeft, dpiX), TwipsToPx(kFrameTop, dpiY),
                              TwipsToPx(2 * kFrameHalfWidth, dpiX), TwipsToPx(kFrameHeight, dpiY));
    const auto place = [&](QWidget* control, const Place& p) {
        control->setGeometry(TwipsToPx(frameLeft + p.left, dpiX), TwipsToPx(p.top, dpiY), TwipsToPx(p.width, dpiX),
                             TwipsToPx(p.height, dpiY));
    };
    place(labEnterSearchTerm, kEnterSearchTermPlace);
    place(txtSearch, kSearchTextPlace);
    place(btnSearch, kSearchButtonPlace);
    place(btnNewSearch, {kNewSearchLeft, kButtonRowTop, kButtonWidth, kButtonHeight});
    place(btnAccept, {kAcceptLeft, kButtonRowTop, kButtonWidth, kButtonHeight});
    place(btnCancel, {kCancelLeft, kButtonRowTop, kButtonWidth, kButtonHeight});
    place(btnHelp, {kHelpLeft, kButtonRowTop, kButtonWidth, kButtonHeight});
}

bool SearchDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtSearch && event->type() == QEvent::KeyRelease)
        RunGuarded(guard, [this] { txtSearch_KeyUp(); });
    if (watched == gridSearch && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && btnAccept->isEnabled()) {
            RunGuarded(guard, [this] { btnAccept_Click(); });
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace pw
