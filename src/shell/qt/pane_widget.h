// The widget that shows a pane.
#pragma once

class QString;
class QWidget;

namespace parlorwire {

class RichTextBox;

QWidget* NewPaneWidget(RichTextBox& pane, QWidget* parent);

}  // namespace parlorwire
