#include "shell/views/TipWindow.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/LineFile.h"
#include "shell/views/Logo.h"
#include "shell/Session.h"
#include "shell/Tips.h"

namespace pw {

TipWindow::TipWindow(Session& session, QWidget* parent) : QDialog(parent), session_(session)
{
    setObjectName(QStringLiteral("frmTip"));
    setWindowTitle(QStringLiteral("Platewell's Tip of the Day"));

    Picture1 = new QLabel(this);
    Picture1->setTextFormat(Qt::PlainText);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    Picture1->setPixmap(PaintLogo(QSize(96, 96)).copy(0, 0, 96, 96));
    Picture1->setAlignment(Qt::AlignTop);
    Label1 = new QLabel(this);
    Label1->setTextFormat(Qt::PlainText);
    Label1->setText(QStringLiteral("Did you know..."));
    Label1->setObjectName(QStringLiteral("Label1"));
    QFont bold = Label1->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.2);
    Label1->setFont(bold);
    lblTipText = new QLabel(this);
    lblTipText->setObjectName(QStringLiteral("lblTipText"));
    lblTipText->setTextFormat(Qt::PlainText);
    lblTipText->setWordWrap(true);
    lblTipText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblTipText->setMinimumSize(300, 90);

    chkLoadTipsAtStartup = new QCheckBox(QStringLiteral("&Show Tips at Startup"), this);
    chkLoadTipsAtStartup->setObjectName(QStringLiteral("chkLoadTipsAtStartup"));
    chkLoadTipsAtStartup->setChecked(true);
    cmdNextTip = new QPushButton(QStringLiteral("&Next Tip"), this);
    cmdNextTip->setObjectName(QStringLiteral("cmdNextTip"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto* text = new QVBoxLayout;
    text->addWidget(Label1);
    text->addWidget(lblTipText, 1);
    auto* top = new QHBoxLayout;
    top->addWidget(Picture1);
    top->addLayout(text, 1);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(chkLoadTipsAtStartup);
    bottom->addStretch(1);
    bottom->addWidget(cmdNextTip);
    bottom->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(bottom);

    connect(cmdNextTip, &QPushButton::clicked, this, [this] { ShowNextTip(); });
    connect(chkLoadTipsAtStartup, &QCheckBox::clicked, this,
            [this](bool checked) { session_.settings.showTips = checked; });
    connect(cmdOK, &QPushButton::clicked, this, [this] { close(); });
}

void TipWindow::Form_Load()
{
    const std::string path = FindFileNoCase(session_.programFolder, kTipsFileName);
    tips_ = ReadTips(
        ReadWholeFile(path.empty() ? JoinPath(session_.programFolder, kTipsFileName) : path, kTipsFileLimit));
    ShowNextTip();
}

void TipWindow::ShowNextTip()
{
    Settings& s = session_.settings;
    s.currentTip = NextTip(s.currentTip, static_cast<int>(tips_.size()));
    const std::size_t index = static_cast<std::size_t>(s.currentTip - 1);
    lblTipText->setText(index < tips_.size() ? QString::fromLatin1(tips_[index]) : QString());
}

void TipWindow::closeEvent(QCloseEvent* event)
{
    QDialog::closeEvent(event);
    Finish();
}

void TipWindow::reject()
{
    // Escape hides the window without closing it: the main window still
    // comes next.
    QDialog::reject();
    Finish();
}

void TipWindow::Finish()
{
    if (!finished_) {
        finished_ = true;
        emit finishedShowing();
    }
}

}  // namespace pw
