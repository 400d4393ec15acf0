// The strip of the ten tabs.
#pragma once

#include <QTabBar>
#include <functional>

namespace parlorwire {

// The tabs are slots 0..9 and exist from the start, invisible. `Tab` is the active slot, whether
// its tab is visible or not.
class SSTab : public QTabBar {
  Q_OBJECT

 public:
  explicit SSTab(QWidget* parent);

  int Tab() const { return tab_; }
  // Makes a slot the active one; Click follows.
  void Tab(int tab);
  void TabVisible(int tab, bool visible);
  bool TabVisible(int tab) const { return isTabVisible(tab); }
  bool AnyVisible() const;

  // The active slot has changed, by the user or by the program, or was clicked once more;
  // `previous` is the slot left.
  std::function<void(int previous)> Click;

  // Whether the arrow keys are changing the tab at this moment.
  bool WalkedAlong() const { return walked_along_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;

 private:
  int tab_ = 0;
  bool walked_along_ = false;
  bool settling_ = false;  // the toolkit moves its own mark while a tab appears or goes
};

}  // namespace parlorwire
