#include "shell/qt/ss_tab.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "session/app_state.h"
#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kWidest = 220;
constexpr int kNarrowest = 60;

}  // namespace

SSTab::SSTab(QWidget* parent) : QTabBar(parent) {
  setFont(LabelFont());
  setExpanding(false);
  setUsesScrollButtons(true);
  setElideMode(Qt::ElideRight);
  setFocusPolicy(Qt::TabFocus);
  settling_ = true;
  for (int tab = 0; tab < kTabCount; ++tab) {
    addTab(QString());
    setTabTextColor(tab, QColor(kLinkColor));
    setTabVisible(tab, false);
  }
  settling_ = false;
  connect(this, &QTabBar::currentChanged, this, [this](int index) {
    if (settling_ || index < 0 || !isTabVisible(index) || index == tab_) return;
    const int previous = tab_;
    tab_ = index;
    if (Click) Click(previous);
  });
}

void SSTab::Tab(int tab) {
  const int previous = tab_;
  tab_ = tab;
  settling_ = true;
  setCurrentIndex(tab);
  settling_ = false;
  if (Click) Click(previous);
}

void SSTab::TabVisible(int tab, bool visible) {
  settling_ = true;
  setTabVisible(tab, visible);
  // Hiding the marked tab moves the mark; it belongs to the active slot.
  if (isTabVisible(tab_)) setCurrentIndex(tab_);
  settling_ = false;
}

bool SSTab::AnyVisible() const {
  for (int tab = 0; tab < kTabCount; ++tab)
    if (isTabVisible(tab)) return true;
  return false;
}

void SSTab::keyPressEvent(QKeyEvent* event) {
  walked_along_ = true;
  QTabBar::keyPressEvent(event);
  walked_along_ = false;
}

// A notch on the way to a pane is not meant for the tabs.
void SSTab::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

// A click on the active tab is a click, too.
void SSTab::mousePressEvent(QMouseEvent* event) {
  const bool again =
      event->button() == Qt::LeftButton && tabAt(event->position().toPoint()) == tab_;
  QTabBar::mousePressEvent(event);
  if (again && Click) Click(tab_);
}

QSize SSTab::tabSizeHint(int index) const {
  QSize size = QTabBar::tabSizeHint(index);
  size.setWidth(std::clamp(size.width(), kNarrowest, kWidest));
  return size;
}

QSize SSTab::minimumTabSizeHint(int index) const {
  return tabSizeHint(index);
}

}  // namespace parlorwire
