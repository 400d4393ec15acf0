#include "session/client.h"

namespace parlorwire {

Client::Client(const Platform& ports) : platform(ports) {
  for (TabSession& tab : tabs) {
    for (auto* socket : {&tab.Winsock1, &tab.Winsock2, &tab.Winsock3, &tab.Winsock4, &tab.Winsock5})
      *socket = platform.NewWinsock();
    for (auto* timer : {&tab.Timer1, &tab.Timer2, &tab.Timer3, &tab.Timer6, &tab.Timer26})
      *timer = platform.NewTimer();
    tab.Timer1->Interval(5000);
    tab.Timer2->Interval(300);
  }
}

}  // namespace parlorwire
