#include "shell/qt/wire_hint.h"

#include <QLineEdit>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kShown = 6000;  // ms
constexpr int kAbove = 8;     // pixels between the tip and the box

}  // namespace

QString LostOnTheWire(const QString& text) {
  QString lost;
  for (const char32_t code : text.toStdU32String()) {
    const QString character = QString::fromUcs4(&code, 1);
    if (code == U'?' || FromQString(character) != "?" || lost.contains(character)) continue;
    lost += character;
  }
  return lost;
}

WireHint::WireHint(const Client& client, QLineEdit* box)
    : QObject(box), client_(client), box_(box) {
  connect(box_, &QLineEdit::textChanged, this, &WireHint::Look);
}

void WireHint::Look(const QString& text) {
  const QString lost = LostOnTheWire(text);
  const auto is_told = [this](QChar part) { return told_.contains(part); };
  const bool all_told = std::all_of(lost.begin(), lost.end(), is_told);
  told_ = lost;
  if (lost.isEmpty() || all_told || !box_->isVisible()) return;
  const QString hint =
      ToQString(InLanguage(client_, {W<"В чат придут как «?»: ">, "Will arrive as \"?\": "})) +
      lost;
  const QPoint above(0, -box_->height() - kAbove);
  QToolTip::showText(box_->mapToGlobal(above), PlainToolTip(hint), box_, {}, kShown);
}

}  // namespace parlorwire
