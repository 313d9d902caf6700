#include "shell/views/AboutBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/HelpTopics.h"
#include "shell/views/Logo.h"
#include "core/views/Widgets.h"
#include "shell/Session.h"

namespace pw {

AboutBox::AboutBox(const Session& session, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About Platewell"));
    auto* logo = new QLabel(this);
    logo->setTextFormat(Qt::PlainText);
    logo->setPixmap(PaintLogo(QSize(96, 96)).copy(0, 0, 96, 96));
    labTitle = MakeLabel(this, QStringLiteral("labTitle"), QStringLiteral("Platewell"));
    QFont big = labTitle->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.6);
    labTitle->setFont(big);
    labVersion = MakeLabel(this, QStringLiteral("labVersion"),
                           QStringLiteral("Program version: ") + QLatin1String(kProgramVersionText));
    labDataVersion = MakeLabel(this, QStringLiteral("labDataVersion"), QStringLiteral("Data version: ") +
                                   QString::fromLatin1(DataVersionText(session.foodTable.DataVersionLine)));
    labDataVersion->setWordWrap(true);
    labHelpVersion = MakeLabel(this, QStringLiteral("labHelpVersion"),
                               QStringLiteral("Help file version: ") + QLatin1String(kHelpVersionText));
    Label1 = MakeLabel(this, QStringLiteral("Label1"), QStringLiteral("All Rights Reserved"));
    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    auto* text = new QVBoxLayout;
    for (QLabel* label : {labTitle, labVersion, labDataVersion, labHelpVersion, Label1})
        text->addWidget(label);
    auto* top = new QHBoxLayout;
    top->addWidget(logo, 0, Qt::AlignTop);
    top->addLayout(text, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOK);
    layout->addLayout(buttons);
    setMinimumWidth(420);
}

}  // namespace pw
