#include "core/views/StoredTextValidator.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <algorithm>

#include "core/views/Seams.h"

namespace pw {

namespace {

bool IsControl(char16_t c) { return c < 32 || (c >= 127 && c <= 159); }

}  // namespace

StoredTextValidator::StoredTextValidator(QObject* parent, std::function<void(const QString&)> refused)
    : QValidator(parent), refused_(std::move(refused))
{
}

int RemoveControlCharacters(QString& text, int pos)
{
    int removedBefore = 0;
    QString kept;
    kept.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (IsControl(text[i].unicode())) {
            if (i < pos)
                ++removedBefore;
        } else {
            kept += text[i];
        }
    }
    text = kept;
    return removedBefore;
}

QString FirstUnstorableCharacter(const QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text[i].unicode() > 255) {
            // A character outside the basic plane is two code units: name it whole.
            const int length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
            return text.mid(i, length);
        }
    }
    return {};
}

QString UnstorableCharacterText(const QString& character)
{
    const QString code = QString::number(character.toUcs4().value(0), 16).toUpper().rightJustified(4, QLatin1Char('0'));
    return QStringLiteral("The character \"%1\" (U+%2) cannot be stored: Platewell's files hold Western "
                          "European (Latin-1) letters only.\r\n\r\nPlease type the text without it.")
        .arg(character, code);
}

QValidator::State StoredTextValidator::validate(QString& input, int& pos) const
{
    pos -= RemoveControlCharacters(input, pos);
    pos = std::clamp(pos, 0, static_cast<int>(input.size()));
    const QString refused = FirstUnstorableCharacter(input);
    if (refused.isEmpty())
        return Acceptable;
    if (refused_)
        refused_(refused);
    return Invalid;
}

namespace {

StoredTextValidator* MakeValidator(QWidget* owner, Prompts& prompts)
{
    Prompts* said = &prompts;
    QPointer<QWidget> guardOwner(owner);
    return new StoredTextValidator(owner, [said, guardOwner](const QString& character) {
        // Told after the key press is over, not from inside the box's edit.
        QTimer::singleShot(0, guardOwner, [said, character] {
            said->Message(UnstorableCharacterText(character), QStringLiteral("Platewell"), MsgIcon::Exclamation);
        });
    });
}

}  // namespace

void KeepStorable(QLineEdit* box, Prompts& prompts) { box->setValidator(MakeValidator(box, prompts)); }

void KeepStorable(QComboBox* box, Prompts& prompts)
{
    if (box->lineEdit())
        box->lineEdit()->setValidator(MakeValidator(box, prompts));
}

}  // namespace pw
