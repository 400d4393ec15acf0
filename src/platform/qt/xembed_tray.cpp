#include "platform/qt/xembed_tray.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace parlorwire {
namespace {

// The tray of the first screen; servers with several have long gone.
constexpr std::string_view kSelection = "_NET_SYSTEM_TRAY_S0";
constexpr std::string_view kManager = "MANAGER";
constexpr std::uint8_t kSentByAClient = 0x80;  // a bit of an event's type

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

std::uint32_t Atom(xcb_connection_t* connection, std::string_view name) {
  const auto cookie =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
  return reply ? reply->atom : 0;
}

// Its end is told as an event from now on. False if it has gone already.
bool WatchWindow(xcb_connection_t* connection, xcb_window_t window) {
  const std::array<std::uint32_t, 1> events = {XCB_EVENT_MASK_STRUCTURE_NOTIFY};
  const auto cookie =
      xcb_change_window_attributes_checked(connection, window, XCB_CW_EVENT_MASK, events.data());
  const Owned<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
  return error == nullptr;
}

}  // namespace

XEmbedTray::XEmbedTray() {
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  // Without a screen the toolkit has the interface, and no connection behind it.
  if (x11 == nullptr || x11->connection() == nullptr) return;
  connection_ = x11->connection();
  selection_ = Atom(connection_, kSelection);
  manager_ = Atom(connection_, kManager);
  qApp->installNativeEventFilter(this);
  LookUp();
}

XEmbedTray::~XEmbedTray() {
  if (connection_ != nullptr && qApp != nullptr) qApp->removeNativeEventFilter(this);
}

void XEmbedTray::LookUp() {
  const std::uint32_t before = owner_;
  const auto cookie = xcb_get_selection_owner(connection_, selection_);
  const Owned<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_, cookie, nullptr));
  owner_ = reply ? reply->owner : 0;
  if (owner_ != 0 && owner_ != before && !WatchWindow(connection_, owner_)) owner_ = 0;
  if ((owner_ != 0) != (before != 0) && Changed) Changed();
}

void XEmbedTray::LookUpLater() {
  QMetaObject::invokeMethod(this, [this] { LookUp(); }, Qt::QueuedConnection);
}

bool XEmbedTray::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  const int type = event->response_type & ~kSentByAClient;
  if (type == XCB_CLIENT_MESSAGE) {
    // A new tray presents itself to all.
    const auto* told = reinterpret_cast<const xcb_client_message_event_t*>(event);
    if (told->type == manager_ && told->data.data32[1] == selection_) LookUpLater();
  } else if (type == XCB_DESTROY_NOTIFY) {
    const auto* gone = reinterpret_cast<const xcb_destroy_notify_event_t*>(event);
    if (owner_ != 0 && gone->window == owner_) LookUpLater();
  }
  return false;
}

}  // namespace parlorwire
