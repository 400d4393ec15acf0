#include "session/service_address.h"

#include "session/app_state.h"

namespace parlorwire {

Text ServiceAddress(const AppState& app) {
  return "http://" + app.ChatHost + (app.ChatPort == "80" ? "" : ":" + app.ChatPort);
}

}  // namespace parlorwire
