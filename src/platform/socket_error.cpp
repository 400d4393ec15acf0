#include "platform/socket_error.h"

namespace parlorwire {

Text SocketErrorDescription(int) {
  return "x";
}

}  // namespace parlorwire
