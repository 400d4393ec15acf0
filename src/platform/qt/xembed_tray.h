// Whether the desktop has a tray of the older kind, which takes windows in.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <cstdint>
#include <functional>

struct xcb_connection_t;

namespace parlorwire {

// The tray is who owns a selection of the X server. That is asked here and not of the toolkit,
// which settles for one kind of tray as soon as it is asked. Without an X server there is none.
class XEmbedTray : public QObject, public QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  // Needs a QGuiApplication.
  XEmbedTray();
  ~XEmbedTray() override;

  bool There() const { return owner_ != 0; }

  std::function<void()> Changed;  // from the event loop

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  void LookUp();
  void LookUpLater();

  xcb_connection_t* connection_ = nullptr;
  std::uint32_t selection_ = 0;  // atoms
  std::uint32_t manager_ = 0;
  std::uint32_t owner_ = 0;  // a window; 0 for none
};

}  // namespace parlorwire
