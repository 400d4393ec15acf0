#include "shell/qt/graphic_button.h"

#include <QLinearGradient>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr qreal kPictureSize = 16;
constexpr qreal kMargin = 9;
constexpr qreal kGap = 6;

using ButtonPicture = GraphicButton::Picture;

// The pictures stand in a square of 16 by 16.
QPainterPath Say() {
  QPainterPath path;
  path.moveTo(1, 2);
  path.lineTo(15, 8);
  path.lineTo(1, 14);
  path.lineTo(3.5, 8);
  path.closeSubpath();
  return path;
}

QPainterPath Clear() {
  QPainterPath cross;
  cross.moveTo(3, 3);
  cross.lineTo(13, 13);
  cross.moveTo(13, 3);
  cross.lineTo(3, 13);
  return cross;
}

QPainterPath Update() {
  QPainterPath arc;
  arc.arcMoveTo(2.5, 2.5, 11, 11, 60);
  arc.arcTo(2.5, 2.5, 11, 11, 60, 285);
  return arc;
}

QPainterPath UpdateHead() {
  QPainterPath head;
  head.moveTo(9.2, 0.4);
  head.lineTo(14.6, 3.4);
  head.lineTo(9.2, 6.6);
  head.closeSubpath();
  return head;
}

QPainterPath Connect() {
  QPainterPath bubble;
  bubble.addRoundedRect(QRectF(1, 2, 14, 9.5), 3, 3);
  QPainterPath tail;
  tail.moveTo(4, 10.5);
  tail.lineTo(4, 15);
  tail.lineTo(9, 11);
  tail.closeSubpath();
  return bubble.united(tail);
}

QPainterPath Account() {
  QPainterPath person;
  person.addEllipse(QRectF(5, 1, 6, 6.5));
  QPainterPath shoulders;
  shoulders.moveTo(2, 15);
  shoulders.cubicTo(2, 9, 14, 9, 14, 15);
  shoulders.closeSubpath();
  return person.united(shoulders);
}

QPainterPath Find() {
  QPainterPath glass;
  glass.addEllipse(QRectF(2, 2, 8.5, 8.5));
  glass.moveTo(9.6, 9.6);
  glass.lineTo(14, 14);
  return glass;
}

// A face, with eyes and mouth cut out of it.
QPainterPath Smile() {
  QPainterPath face;
  face.addEllipse(QRectF(1, 1, 14, 14));
  QPainterPath features;
  features.addEllipse(QRectF(4.6, 4.8, 2, 2.6));
  features.addEllipse(QRectF(9.4, 4.8, 2, 2.6));
  features.moveTo(4, 9.4);
  features.cubicTo(5, 14, 11, 14, 12, 9.4);
  features.closeSubpath();
  return face.subtracted(features);
}

void Paint(QPainter& painter, ButtonPicture picture, bool busy, const QColor& colour,
           const QColor& ground) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  QPen line(colour, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  switch (picture) {
    case ButtonPicture::kSay:
      painter.drawPath(Say());
      break;
    case ButtonPicture::kClear:
      painter.strokePath(Clear(), line);
      break;
    case ButtonPicture::kUpdate:
      line.setCapStyle(Qt::FlatCap);
      painter.strokePath(Update(), line);
      painter.drawPath(UpdateHead());
      break;
    case ButtonPicture::kConnect:
      painter.drawPath(Connect());
      painter.setBrush(ground);
      if (busy) {
        for (const qreal x : {4.6, 8.0, 11.4})
          painter.drawEllipse(QPointF(x, 6.75), 1.2, 1.2);
      } else {
        painter.drawRect(QRectF(4, 4.7, 8, 1.3));
        painter.drawRect(QRectF(4, 7.5, 5.5, 1.3));
      }
      break;
    case ButtonPicture::kAccount:
      painter.drawPath(Account());
      break;
    case ButtonPicture::kFind:
      painter.strokePath(Find(), line);
      break;
    case ButtonPicture::kSmiles:
      painter.drawPath(Smile());
      break;
  }
}

struct Look {
  QColor top, bottom, edge, ink;
};

Look LookOf(bool enabled, bool pressed, bool hover) {
  if (!enabled) return {0xE4E6E2, 0xDDDFDB, 0xC3C6C0, 0x9A9E98};
  if (pressed) return {0xA9BDD0, 0xC4D3E0, 0x3A6288, 0x002A52};
  if (hover) return {0xFFFFFF, 0xD5E4F1, 0x4A7AA6, 0x004A8C};
  return {0xFBFCFA, 0xDADED8, 0x8F978E, kLinkColor};
}

// The width of a line of whole pixels of the screen, about `width` wide.
qreal CrispWidth(const QPainter& painter, qreal width) {
  const qreal scale = painter.deviceTransform().m11();
  return std::max(1, qRound(width * scale)) / scale;
}

// The same rectangle with its edges between pixels of the screen, whatever the scale.
QRectF CrispRect(const QPainter& painter, const QRectF& rect) {
  const QTransform to_screen = painter.deviceTransform();
  return to_screen.inverted().mapRect(QRectF(to_screen.mapRect(rect).toRect()));
}

}  // namespace

GraphicButton::GraphicButton(Picture picture, QWidget* parent)
    : DrawnButton(parent), picture_(picture) {
  setFont(LabelFont());
}

QSize GraphicButton::sizeHint() const {
  const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
  const qreal width = 2 * kMargin + kPictureSize + (text().isEmpty() ? 0 : kGap + words.width());
  return {qRound(width), 26};
}

void GraphicButton::paintEvent(QPaintEvent*) {
  const Look look = LookOf(isEnabled(), isDown(), Hovered());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);

  const qreal line = CrispWidth(painter, 1);
  const qreal half = line / 2;
  const QRectF face = CrispRect(painter, rect()).adjusted(half, half, -half, -half);
  QLinearGradient fill(face.topLeft(), face.bottomLeft());
  fill.setColorAt(0, look.top);
  fill.setColorAt(1, look.bottom);
  painter.setPen(QPen(look.edge, line));
  painter.setBrush(fill);
  painter.drawRoundedRect(face, 4, 4);
  if (hasFocus()) {
    painter.setPen(QPen(QColor(kLinkColor), 1.4, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(face.adjusted(2.5, 2.5, -2.5, -2.5), 2.5, 2.5);
  }

  const QString words = text();
  const QSize size = fontMetrics().size(Qt::TextShowMnemonic, words);
  const qreal content = kPictureSize + (words.isEmpty() ? 0 : kGap + size.width());
  const qreal pushed = isDown() ? 1 : 0;
  const QPointF corner((width() - content) / 2 + pushed, (height() - kPictureSize) / 2 + pushed);
  painter.save();
  painter.translate(corner);
  Paint(painter, picture_, Busy && Busy(), look.ink, look.top);
  painter.restore();
  if (words.isEmpty()) return;
  painter.setPen(look.ink);
  const QRectF place(corner.x() + kPictureSize + kGap, pushed, size.width() + 2, height());
  painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, words);
}

}  // namespace parlorwire
