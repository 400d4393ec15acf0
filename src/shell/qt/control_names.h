// The names under which people with a screen reader, and tests, find a control; and the look that
// the windows share.
#pragma once

#include <QString>
#include <QWidget>

#include "shell/qt/ground_palette.h"

namespace parlorwire {

// The colours that several windows share.
inline constexpr unsigned kMainBackColor = 0xE9EBE7;  // 0xRRGGBB
inline constexpr unsigned kDialogBackColor = 0xC0C6BB;
inline constexpr unsigned kLinkColor = 0x003C74;

// `system_name` becomes the control's objectName and its accessible description.
void NameControl(QWidget* control, const QString& system_name);

// The same for one of a numbered family: "msg", 3 gives "msg_3".
void NameControl(QWidget* control, const QString& family, int slot);

// The name that a screen reader says; `text` may hold a mnemonic mark.
void SayControl(QWidget* control, const QString& text);

// A tool tip that shows `text` to the letter, also where it looks like markup.
QString PlainToolTip(const QString& text);

// Font "verdana" 8, which labels and fields have.
QFont LabelFont();

}  // namespace parlorwire
