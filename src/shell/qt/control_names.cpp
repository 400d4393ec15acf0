#include "shell/qt/control_names.h"

#include <QFont>
#include <QTextDocument>

namespace parlorwire {

void NameControl(QWidget* control, const QString& system_name) {
  control->setObjectName(system_name);
  control->setAccessibleDescription(system_name);
}

void NameControl(QWidget* control, const QString& family, int slot) {
  NameControl(control, family + QLatin1Char('_') + QString::number(slot));
}

void SayControl(QWidget* control, const QString& text) {
  QString said = text;
  control->setAccessibleName(said.remove(QLatin1Char('&')));
}

QString PlainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()) : text;
}

QFont LabelFont() {
  QFont font(QStringLiteral("verdana"), 8);
  font.setStyleHint(QFont::SansSerif);
  return font;
}

}  // namespace parlorwire
