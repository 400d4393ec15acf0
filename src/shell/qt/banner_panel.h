// The panel of the status row that holds the banner.
#pragma once

#include <QLabel>

namespace parlorwire {

// A long text gets a smaller font where there is no room for it, down to a size that can still be
// read; what is then beyond the edge is told by a tool tip. It never makes the window wider.
class BannerPanel : public QLabel {
  Q_OBJECT

 public:
  explicit BannerPanel(QWidget* parent);

  void SetBanner(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
};

}  // namespace parlorwire
