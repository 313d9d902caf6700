#pragma once
// The small kit every window is built with: the one conversion between the
// model's Latin-1 texts and native paths and Qt's strings, and the factories
// of labels and buttons that carry their control names.
#include <QString>
#include <string>

class QLabel;
class QPushButton;
class QWidget;

namespace pw {

// Model texts are Latin-1 bytes; a QString that Latin-1 cannot hold is kept
// out of the model by the boxes that take text (see StoredTextValidator).
QString FromLatin1(const std::string& text);
std::string ToLatin1(const QString& text);

// Paths in the file system's own encoding, as the model opens them.
std::string ToNativePath(const QString& path);
QString FromNativePath(const std::string& path);

enum class ButtonDefault { Auto, Never };

// A label named name showing caption (Latin-1) as plain text: what a label
// shows is never read as markup, whoever wrote it.
QLabel* MakeLabel(QWidget* parent, const QString& name, const char* caption);
// The same for a caption made at run time.
QLabel* MakeLabel(QWidget* parent, const QString& name, const QString& caption);
// A button named name with caption and, when given, a tool tip. Never: the
// button does not become a dialog's default on focus.
QPushButton* MakeButton(QWidget* parent, const char* name, const char* caption, const char* tip = nullptr,
                        ButtonDefault autoDefault = ButtonDefault::Auto);

}  // namespace pw
