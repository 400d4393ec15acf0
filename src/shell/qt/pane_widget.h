// The widget that shows a pane.
#pragma once

class QWidget;

namespace parlorwire {

class RichTextBox;
class RichTextView;

// The view stands in a holder that shows and hides it with its tab: whether the view itself is
// visible is the pane's own affair.
RichTextView* NewPaneWidget(RichTextBox& pane, QWidget* parent);

QWidget* HolderOf(RichTextView* view);

}  // namespace parlorwire
