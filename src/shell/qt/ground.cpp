#include "shell/qt/ground.h"

#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QSvgRenderer>

#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kMarkSize = 128;

}  // namespace

Ground::Ground(QWidget* owner) : QWidget(owner) {}

void Ground::Hint(const QString& hint) {
  hint_ = hint;
  update();
}

void Ground::ShowHint(bool show) {
  show_hint_ = show;
  update();
}

void Ground::PageAt(const QRect& page) {
  page_ = page;
  update();
}

void Ground::PageColour(const QColor& colour) {
  page_colour_ = colour;
  update();
}

void Ground::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(kMainBackColor));
  if (!show_hint_) {
    painter.setPen(QColor(0xA9AFA6));
    painter.setBrush(page_colour_.isValid() ? page_colour_ : QColor(0xF4F5F2));
    painter.drawRect(page_.adjusted(0, 0, -1, -1));
    return;
  }
  const QRect middle = rect().adjusted(20, 40, -20, -20);
  QRect mark(0, 0, kMarkSize, kMarkSize);
  mark.moveCenter(middle.center() - QPoint(0, 40));
  painter.setOpacity(0.55);
  QSvgRenderer(QStringLiteral(":/parlorwire/parlorwire.svg")).render(&painter, mark);
  painter.setOpacity(1);
  painter.setPen(QColor(kLinkColor));
  painter.setFont(QFont(QStringLiteral("verdana"), 10));
  const QRect words(middle.left(), mark.bottom() + 16, middle.width(), 60);
  painter.drawText(words, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, hint_);
}

void Ground::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (Resized) Resized();
}

}  // namespace parlorwire
