// What of a pane goes to the clipboard.
#pragma once

#include <QMimeData>
#include <QString>
#include <memory>

#include "pane/units.h"

namespace parlorwire {

class RichTextBox;

// Lines end in LF; a picture gives its code. Where the view wraps does not show.
QString CopiedText(const RichTextBox& box, PaneRange range);

// The same with fonts and colours on the pane's background.
QString CopiedHtml(const RichTextBox& box, PaneRange range);

// Both; a stretch of more than a million characters has no HTML.
std::unique_ptr<QMimeData> Copied(const RichTextBox& box, PaneRange range);

}  // namespace parlorwire
