#include "shell/qt/banner_panel.h"

#include <QResizeEvent>

#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr double kSmallest = 6;  // points
constexpr double kStep = 0.5;

}  // namespace

BannerPanel::BannerPanel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void BannerPanel::SetBanner(const QString& text) {
  setText(text);
  SayControl(this, text);  // the toolkit does not read the text
  Fit();
}

void BannerPanel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void BannerPanel::Fit() {
  QFont tried = LabelFont();
  const int room = contentsRect().width() - 2 * margin();
  while (QFontMetrics(tried).horizontalAdvance(text()) > room && tried.pointSizeF() > kSmallest)
    tried.setPointSizeF(tried.pointSizeF() - kStep);
  if (tried != font()) setFont(tried);
  setToolTip(QFontMetrics(tried).horizontalAdvance(text()) > room ? text() : QString());
}

}  // namespace parlorwire
