#include "shell/qt/zastavka.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>

#include "shell/qt/control_names.h"

namespace parlorwire {

zastavka::zastavka() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  NameControl(this, "zastavka");
  SayControl(this, "Parlorwire");
  setWindowTitle("Parlorwire");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFixedSize(480, 280);
  QRect place = rect();
  place.moveCenter(QGuiApplication::primaryScreen()->geometry().center());
  move(place.topLeft());
}

void zastavka::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QSvgRenderer(QStringLiteral(":/parlorwire/zastavka.svg")).render(&painter, QRectF(rect()));
}

}  // namespace parlorwire
