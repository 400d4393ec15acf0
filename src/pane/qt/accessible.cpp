#include "pane/qt/accessible.h"

#include <QAccessibleWidget>
#include <QStringList>
#include <algorithm>

#include "pane/qt/reader_selection.h"
#include "pane/qt/rich_text_view.h"
#include "pane/rich_text_box.h"
#include "platform/qt/text_conversion.h"

namespace parlorwire {
namespace {

QString Rgb(QColor colour) {
  return QStringLiteral("rgb(%1,%2,%3)").arg(colour.red()).arg(colour.green()).arg(colour.blue());
}

QString AttributesOf(const PaneFormat& format) {
  QStringList attributes;
  QString family = ToQString(format.font_name);
  family.remove(QLatin1Char('"')).remove(QLatin1Char(';'));
  attributes << QStringLiteral("font-family:\"%1\"").arg(family);
  attributes << QStringLiteral("font-size:%1pt").arg(format.font_size);
  attributes << QStringLiteral("color:") + Rgb(ToQColor(format.colour));
  if (format.back_colour)
    attributes << QStringLiteral("background-color:") + Rgb(ToQColor(*format.back_colour));
  attributes << (format.bold ? QStringLiteral("font-weight:bold")
                             : QStringLiteral("font-weight:normal"));
  attributes << (format.italic ? QStringLiteral("font-style:italic")
                               : QStringLiteral("font-style:normal"));
  if (format.underline)
    attributes << QStringLiteral("text-underline-style:solid")
               << QStringLiteral("text-underline-type:single");
  if (format.alignment != PaneAlignment::kLeft)
    attributes << (format.alignment == PaneAlignment::kCentre ? QStringLiteral("text-align:center")
                                                              : QStringLiteral("text-align:right"));
  return attributes.join(QLatin1Char(';')) + QLatin1Char(';');
}

class AccessiblePane : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit AccessiblePane(RichTextView* view)
      : QAccessibleWidget(view, QAccessible::EditableText), view_(view) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    state.selectableText = true;
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  using QAccessibleWidget::text;

  // ---- the text ----

  int characterCount() const override { return AccessibleOffset(box().Length()); }

  QString text(int start, int end) const override {
    return AccessibleText(box(), Within(start, end));
  }

  QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                       int* end) const override {
    return Tell(Around(At(offset), boundary), start, end);
  }

  QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                           int* end) const override {
    const PaneRange here = Around(At(offset), boundary);
    if (here.start == 0) return Tell({0, 0}, start, end);
    return Tell(Around(here.start - 1, boundary), start, end);
  }

  QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* start,
                          int* end) const override {
    const PaneRange here = Around(At(offset), boundary);
    const PanePosition length = box().Length();
    if (here.end >= length) return Tell({length, length}, start, end);
    return Tell(Around(here.end, boundary), start, end);
  }

  QString attributes(int offset, int* start, int* end) const override {
    const PanePosition at = At(offset);
    const PaneLine line = box().LineByIndex(box().LineAt(at));
    for (const PaneRun& run : box().RunsBetween(line.start, line.next)) {
      if (at >= run.start + run.length) continue;
      *start = AccessibleOffset(run.start);
      *end = AccessibleOffset(run.start + run.length);
      return AttributesOf(run.format);
    }
    *start = *end = AccessibleOffset(at);
    return AttributesOf(box().OwnFormat());
  }

  // ---- caret and selection ----

  int cursorPosition() const override { return AccessibleOffset(view_->Caret()); }
  void setCursorPosition(int position) override {
    view_->Select(position, position);
    view_->ShowPosition(position);
  }

  int selectionCount() const override { return view_->Selected().empty() ? 0 : 1; }
  void selection(int index, int* start, int* end) const override {
    *start = *end = 0;
    if (index != 0 || view_->Selected().empty()) return;
    *start = AccessibleOffset(view_->Selected().start);
    *end = AccessibleOffset(view_->Selected().end);
  }
  void addSelection(int start, int end) override { view_->Select(start, end); }
  void setSelection(int index, int start, int end) override {
    if (index == 0) view_->Select(start, end);
  }
  void removeSelection(int index) override {
    if (index == 0) view_->Select(view_->Caret(), view_->Caret());
  }

  // ---- places, in pixels of the screen ----

  QRect characterRect(int offset) const override {
    const QRect rect = view_->CharacterRect(At(offset));
    if (rect.isNull()) return {};
    return {view_->viewport()->mapToGlobal(rect.topLeft()), rect.size()};
  }

  int offsetAtPoint(const QPoint& point) const override {
    const QPoint within = view_->viewport()->mapFromGlobal(point);
    if (!view_->viewport()->rect().contains(within)) return -1;
    return AccessibleOffset(view_->CharFromPos(within.x(), within.y()));
  }

  void scrollToSubstring(int start, int) override { view_->ShowPosition(start); }

 private:
  const RichTextBox& box() const { return view_->box(); }

  PanePosition At(int offset) const {
    return std::clamp(PanePosition{offset}, PanePosition{0}, box().Length());
  }
  PaneRange Within(int start, int end) const {
    return {At(start), end < 0 ? box().Length() : At(end)};
  }

  PaneRange Around(PanePosition position, QAccessible::TextBoundaryType boundary) const {
    switch (boundary) {
      case QAccessible::CharBoundary:
        return {position, std::min(position + 1, box().Length())};
      case QAccessible::WordBoundary:
        return RangeAround(box(), position, SelectionGrain::kWord);
      case QAccessible::LineBoundary:
        return view_->RowAround(position);
      case QAccessible::NoBoundary:
        return {0, box().Length()};
      default:
        return RangeAround(box(), position, SelectionGrain::kLine);
    }
  }

  QString Tell(PaneRange range, int* start, int* end) const {
    *start = AccessibleOffset(range.start);
    *end = AccessibleOffset(range.end);
    return SpokenText(box(), range);
  }

  RichTextView* view_;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* view = qobject_cast<RichTextView*>(object);
  return view == nullptr ? nullptr : new AccessiblePane(view);
}

}  // namespace

void InstallPaneAccessibility() {
  QAccessible::installFactory(MakeAccessible);
}

int AccessibleOffset(PanePosition position) {
  return static_cast<int>(position);
}

QString AccessibleText(const RichTextBox& box, PaneRange range) {
  if (range.empty()) return {};
  QString text = ToQString(box.TextBetween(range.start, range.end));
  text.replace(QLatin1Char('\r'), QLatin1Char(' '));
  for (const PaneRun& run : box.RunsBetween(range.start, range.end))
    if (run.picture) text[run.start - range.start] = QChar::ObjectReplacementCharacter;
  return text;
}

QString SpokenText(const RichTextBox& box, PaneRange range) {
  const QString text = AccessibleText(box, range);
  QString spoken;
  PanePosition at = range.start;
  for (const PaneRun& run : box.RunsBetween(range.start, range.end)) {
    if (!run.picture || run.picture->code.empty()) continue;
    spoken += QStringView(text).mid(at - range.start, run.start - at);
    spoken += ToQString(run.picture->code);
    at = run.start + 1;
  }
  spoken += QStringView(text).mid(at - range.start);
  return spoken;
}

}  // namespace parlorwire
