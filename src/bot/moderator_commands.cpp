#include "bot/moderator_commands.h"

#include <cstdint>
#include <string_view>

#include "bot/ask_reason.h"
#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

int ActiveTab(const Client& client) {
  return client.platform.desktop.ActiveTab();
}

// Asks for the reason of an act on `nick`, and says `line(reason)` to the tab that was active.
template <class Line>
void AskAndSay(Client& client, std::string_view prompt, const Text& title, const Line& line) {
  const int tab = ActiveTab(client);
  const TabSession& session = client.tab(tab);
  const std::uint32_t session_number = session.SessionNumber;
  const bool connected = session.Connected;
  const Text reason = AskReason(client, Text(prompt), title);
  if (client.app.PromptCancelled) return;
  if (session.SessionNumber != session_number || session.Connected != connected) return;
  client.hooks.SayBot(line(reason), tab);
}

// The command of a time, "/mu 240 nick reason".
void AskForATime(Client& client, const Text& command, const Text& title) {
  client.app.PromptWantsDuration = true;
  AskAndSay(client, kReason, title,
            [&client, command, nick = client.app.MenuNick](const Text& reason) {
              const Text& duration = client.app.PromptDuration;
              return command + (duration == kForGood ? "" : duration + " ") + nick + " " + reason;
            });
}

void AskForTheList(Client& client, const Text& command, const Text& title) {
  client.app.PromptWantsDuration = false;
  AskAndSay(client, kReasonForTheList, title,
            [command, nick = client.app.MenuNick](const Text& reason) {
              return command + nick + " " + reason;
            });
}

Text CommandText(MsgCommand command) {
  switch (command) {
    case MsgCommand::kKick:
      return "/k ";
    case MsgCommand::kBan:
      return "/mo +b ";
    case MsgCommand::kMute:
      return "/mu ";
    case MsgCommand::kLower:
      return "/l ";
  }
  return {};
}

}  // namespace

void kick(Client& client) {
  AskForTheList(client, "/k ", "Кикнуть "_w + client.app.MenuNick);
}

void ban(Client& client) {
  AskForTheList(client, "/mo +b ", "Забанить "_w + client.app.MenuNick);
}

void lower(Client& client) {
  AskForATime(client, "/l ", "Запретить писать большими буквами"_w);
}

void mute(Client& client) {
  AskForATime(client, "/mu ", "Лишить голоса "_w + client.app.MenuNick);
}

void unlower(Client& client) {
  client.hooks.SayBot("/l 0 " + client.app.MenuNick, ActiveTab(client));
}

void unmute(Client& client) {
  client.hooks.SayBot("/mu 0 " + client.app.MenuNick, ActiveTab(client));
}

bool SayMsgCommand(Client& client, MsgCommand command, int tab) {
  if (!client.tab(tab).IsOperator) return false;
  Desktop& desktop = client.platform.desktop;
  const Text typed = Trim(desktop.MsgText(tab));
  if (typed.empty()) return true;
  const std::size_t blank = typed.find(' ');
  const Text nick = Replace(typed.substr(0, blank), ":", "");
  const Text rest = blank == Text::npos ? Text() : typed.substr(blank);
  desktop.SetMsgText(tab, "");
  client.hooks.SayBot(CommandText(command) + nick + rest, tab);
  return true;
}

}  // namespace parlorwire
