#include "core/views/Widgets.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>

namespace pw {

QString FromLatin1(const std::string& text) { return QString::fromLatin1(text.data(), qsizetype(text.size())); }

std::string ToLatin1(const QString& text) { return text.toLatin1().toStdString(); }

std::string ToNativePath(const QString& path) { return QFile::encodeName(path).toStdString(); }

QString FromNativePath(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

QLabel* MakeLabel(QWidget* parent, const QString& name, const char* caption)
{
    return MakeLabel(parent, name, QString::fromLatin1(caption));
}

QLabel* MakeLabel(QWidget* parent, const QString& name, const QString& caption)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setText(caption);
    return label;
}

QPushButton* MakeButton(QWidget* parent, const char* name, const char* caption, const char* tip,
                        ButtonDefault autoDefault)
{
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    if (tip)
        button->setToolTip(QString::fromLatin1(tip));
    if (autoDefault == ButtonDefault::Never)
        button->setAutoDefault(false);
    return button;
}

}  // namespace pw
