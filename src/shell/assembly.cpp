#include "shell/assembly.h"

#include "bot/autokick.h"
#include "bot/bot_queue.h"
#include "bot/join_highlight.h"
#include "bot/join_report.h"
#include "bot/reactions.h"
#include "display/chat_log.h"
#include "display/mention_notice.h"
#include "display/parse_chat_line.h"
#include "personal/pers_frm.h"
#include "session/answer_deadline.h"
#include "session/client.h"
#include "session/connect.h"
#include "session/event_entry.h"
#include "session/frame_end.h"
#include "session/leaving.h"
#include "shell/tray.h"
#include "users/nick_menu.h"
#include "users/posting.h"
#include "users/user_frame.h"
#include "users/users_mouse.h"

namespace parlorwire {
namespace {

void FillHooks(Client& client) {
  Hooks& hooks = client.hooks;
  hooks.ParseChatLine = [&client](const Text& line, int tab) { ParseChatLine(client, line, tab); };
  hooks.LogChatLine = [&client](const Text& piece, const Text& channel) {
    LogChatLine(client, piece, channel);
  };
  hooks.UpdateUsersFrame = [&client](int tab) { FetchUsersInTime(client, tab); };
  hooks.ShowNickMenu = [&client](int tab, const Text& nick) { ShowNickMenu(client, tab, nick); };
  hooks.SayBot = [&client](const Text& text, int tab) { SayBot(client, text, tab); };
  hooks.ClientAction = [&client](const Text& line, int tab) { ClientAction(client, line, tab); };
  hooks.FindAutoKick = [&client](const Text& who, const Text& channel, bool is_nick,
                                 const Text& nick) {
    return FindAutoKick(client, who, channel, is_nick, nick);
  };
  hooks.SayBotFunction = [&client](int tab) { SayBotFunction(client, tab); };
  hooks.ShowBalloon = [&client](const Text& title, const Text& text, int info_flags,
                                const BalloonAbout& about) {
    ShowBalloon(client, title, text, info_flags, about);
  };
  hooks.SetTrayBlink = [&client](int mode) { SetTrayBlink(client, mode); };
  hooks.SetTabTitle = [&client](const Text& caption) { SetTabTitle(client, caption); };
  hooks.StartWaitingHighlight = [&client](int tab) { StartWaitingHighlight(client, tab); };
  hooks.pers = [&client](int tab) { pers_Click(client, tab); };
}

void WireTimers(Client& client) {
  const auto tick = [&client](const char* name, auto procedure) {
    return [&client, name, procedure] { OnEvent(client, name, [&] { procedure(client); }); };
  };
  client.app.Timer17->Tick = tick("Timer17_Timer", Timer17_Timer);
  client.app.Timer20->Tick = tick("Timer20_Timer", Timer20_Timer);
  client.app.Timer21->Tick = tick("Timer21_Timer", Timer21_Timer);
  client.app.Timer23->Tick = tick("Timer23_Timer", Timer23_Timer);
  client.app.Timer24->Tick = tick("Timer24_Timer", Timer24_Timer);
  client.app.Timer25->Tick = tick("Timer25_Timer", Timer25_Timer);
}

void WireEvents(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  // An event becomes a call of procedure(client, tab, the event's own arguments).
  const auto event = [&client, tab](const char* name, auto procedure) {
    return [&client, tab, name, procedure](const auto&... arguments) {
      OnEvent(client, name, [&] { procedure(client, tab, arguments...); });
    };
  };
  const auto winsock4_error = [](Client& c, int t, int number, const Text&) {
    Winsock4_Error(c, t, number);
  };
  session.Winsock1->events = {event("Winsock1_Connect", Winsock1_Connect),
                              event("Winsock1_DataArrival", Winsock1_DataArrival),
                              event("Winsock1_Close", Winsock1_Close),
                              event("Winsock1_Error", Winsock1_Error)};
  session.Winsock2->events = {event("Winsock2_Connect", Winsock2_Connect),
                              event("Winsock2_DataArrival", Winsock2_DataArrival),
                              event("Winsock2_Close", Winsock2_Close), nullptr};
  session.Winsock3->events = {event("Winsock3_Connect", Winsock3_Connect),
                              event("Winsock3_DataArrival", Winsock3_DataArrival),
                              event("Winsock3_Close", Winsock3_Close), nullptr};
  session.Winsock4->events = {event("Winsock4_Connect", Winsock4_Connect), nullptr,
                              event("Winsock4_Close", Winsock4_Close),
                              event("Winsock4_Error", winsock4_error)};
  session.Winsock5->events = {event("Winsock5_Connect", Winsock5_Connect),
                              event("Winsock5_DataArrival", Winsock5_DataArrival),
                              event("Winsock5_Close", Winsock5_Close), nullptr};
  session.Timer1->Tick = event("Timer1_Timer", Timer1_Timer);
  session.Timer2->Tick = event("Timer2_Timer", Timer2_Timer);
  session.Timer3->Tick = event("Timer3_Timer", Timer3_Timer);
  session.Timer6->Tick = event("Timer6_Timer", Timer6_Timer);
  session.Timer26->Tick = event("Timer26_Timer", Timer26_Timer);
  session.Reconnects.Wait->Tick = event("Reconnects_Wait", Reconnects_Wait);
  session.Fetches.Wait->Tick = event("Fetches_Wait", Fetches_Wait);
  session.FlagRepairs.Wait->Tick = event("FlagRepairs_Wait", FlagRepairs_Wait);
  session.BotRepairs.Wait->Tick = event("BotRepairs_Wait", BotRepairs_Wait);
  session.MentionSecond->Tick = event("MentionSecond_Timer", MentionSecond_Timer);

  // All answers are finite but the frame of a channel, which the watchdog watches. A channel that
  // is being left counts as one, too, though its tab shows the list of channels.
  const auto sockets = session.Sockets();
  for (std::size_t i = 0; i < sockets.size(); ++i)
    WatchAnswers(**sockets[i], *session.AnswerTimers[i], [&session, is_first = i == 0] {
      return !is_first || !session.Authorized || (session.IsChannelList && !session.Connected);
    });
}

}  // namespace

void Assemble(Client& client) {
  FillHooks(client);
  WireTimers(client);
  for (int tab = 0; tab < kTabCount; ++tab)
    WireEvents(client, tab);
}

}  // namespace parlorwire
