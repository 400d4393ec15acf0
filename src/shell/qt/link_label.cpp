#include "shell/qt/link_label.h"

#include <QPaintEvent>
#include <QPainter>
#include <utility>

#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kSide = 2;  // room for the focus frame

}  // namespace

LinkLabel::LinkLabel(QWidget* parent) : DrawnButton(parent) {
  QFont font = LabelFont();
  font.setUnderline(true);
  setFont(font);
  connect(this, &QAbstractButton::clicked, this, [this] {
    if (action_) action_();
  });
  Enable();
}

void LinkLabel::SetAction(std::function<void()> action) {
  action_ = std::move(action);
  Enable();
}

void LinkLabel::SetWanted(bool wanted) {
  wanted_ = wanted;
  Enable();
}

void LinkLabel::SetRed(bool red) {
  if (red == red_) return;
  red_ = red;
  update();
}

void LinkLabel::Enable() {
  setEnabled(wanted_ && action_);
  if (isEnabled()) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
}

QSize LinkLabel::sizeHint() const {
  const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
  return {words.width() + 2 * kSide, fontMetrics().height()};
}

void LinkLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QColor ink(kLinkColor);
  if (!isEnabled()) ink = QColor(0x757A72);
  if (isEnabled() && (Hovered() || isDown())) ink = QColor(0x0A6CC8);
  if (red_) ink = Qt::red;
  painter.setPen(ink);
  painter.drawText(rect().adjusted(kSide, 0, 0, 0),
                   Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, text());
  if (!hasFocus()) return;
  painter.setPen(QPen(QColor(kLinkColor), 1, Qt::DotLine));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace parlorwire
