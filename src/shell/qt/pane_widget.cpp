#include "shell/qt/pane_widget.h"

#include <QVBoxLayout>

#include "pane/qt/rich_text_view.h"

namespace parlorwire {

RichTextView* NewPaneWidget(RichTextBox& pane, QWidget* parent) {
  auto* holder = new QWidget(parent);
  auto* layout = new QVBoxLayout(holder);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* view = new RichTextView(pane, holder);
  view->ShowFocusAtEdge();
  layout->addWidget(view);
  return view;
}

QWidget* HolderOf(RichTextView* view) {
  return view->parentWidget();
}

}  // namespace parlorwire
