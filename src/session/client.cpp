#include "session/client.h"

namespace parlorwire {

namespace {

constexpr int kConnectAgain = 5000;  // ms
constexpr int kPersBlink = 300;      // ms
constexpr int kTrayBlink = 500;      // ms

}  // namespace

Client::Client(const Platform& ports) : platform(ports) {
  for (auto* timer : {&app.Timer17, &app.Timer21}) {
    *timer = platform.NewTimer();
    (*timer)->Interval(10);
  }
  for (auto* timer : {&app.Timer20, &app.Timer24, &app.Timer25}) {
    *timer = platform.NewTimer();
    (*timer)->Interval(kTrayBlink);
  }
  app.Timer23 = platform.NewTimer();
  app.Timer23->Interval(kBalloonTime);
  for (TabSession& tab : tabs) {
    for (auto* socket : tab.Sockets())
      *socket = platform.NewWinsock();
    for (auto* timer : tab.Timers())
      *timer = platform.NewTimer();
    tab.Timer1->Interval(kConnectAgain);
    tab.Timer2->Interval(kPersBlink);
    tab.MentionSecond->Interval(1000);
    // A channel with much coming and going is no attack; its list is fetched once a second.
    tab.Fetches.SoonAfter = kFirstWait;
    tab.Fetches.LongestWait = kFirstWait;
  }
}

}  // namespace parlorwire
