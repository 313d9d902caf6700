#pragma once
// Text boxes whose text ends up in a file (the food texts of the database
// dialogs, the profile's name). The files hold Latin-1 bytes split at TAB,
// CR and LF, so control characters typed or pasted are dropped at once, and a
// character Latin-1 cannot hold is refused with a message that names it
// rather than being stored as "?".
#include <QValidator>
#include <functional>

class QComboBox;
class QLineEdit;

namespace pw {

class Prompts;

class StoredTextValidator : public QValidator {
public:
    // refused is told the first character that cannot be stored.
    StoredTextValidator(QObject* parent, std::function<void(const QString&)> refused);
    State validate(QString& input, int& pos) const override;

private:
    std::function<void(const QString&)> refused_;
};

// Removes the control characters (below 32 and 127 to 159); returns how many
// characters before pos were removed.
int RemoveControlCharacters(QString& text, int pos = 0);

// The first character of text that Latin-1 cannot hold, or "" when all fit.
QString FirstUnstorableCharacter(const QString& text);

// The message that refuses character.
QString UnstorableCharacterText(const QString& character);

// Puts a StoredTextValidator on the box (or the combo box's line edit) whose
// refusals are told through prompts, once the key or paste is handled.
void KeepStorable(QLineEdit* box, Prompts& prompts);
void KeepStorable(QComboBox* box, Prompts& prompts);

}  // namespace pw
