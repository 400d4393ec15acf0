#include "users/user_frame.h"

#include <utility>

#include "display/pane_output.h"
#include "display/rank_colour.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/exchange.h"
#include "session/fault_trap.h"
#include "session/http_answer.h"
#include "session/http_request.h"
#include "session/personal_notice.h"
#include "text/charset.h"
#include "text/cut.h"
#include "text/entities.h"
#include "users/user_line.h"
#include "users/users_out.h"

namespace parlorwire {
namespace {

constexpr std::string_view kBlankLines = "\r\n\r\n";

void AppendNote(Client& client, const BothLanguages& note, int tab) {
  const FontSystem& font = client.app.rFontSystem;
  PaneFormat format = PlainFormat(font.Name, font.Size, font.TextColor);
  format.underline = true;
  format.bold = font.Bold;
  format.italic = font.Italic;
  WriteAtUsersPaneEnd(client, Text(kBlankLines) + InLanguage(client, note), format, tab);
}

bool IsChannelListPage(std::string_view answer) {
  const Text start = DecodeKoi(Text(answer.substr(0, kRobotsMark.size())));
  return LCase(start) == kRobotsMark;
}

// A script in this frame would open the page of a personal message in a browser.
void CutScript(Client& client, Text& page, int tab) {
  const Position start = InStrNoCase(page, "<script");
  if (start == 0) return;
  const Position end = InStrNoCase(start, page, "</script>");
  page = Left(page, start - 1) + Right(page, Len(page) - end - 8);
  NoticePersonalMessage(client, tab);
}

void StartFetch(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  session.Fetches.Wait->Enabled(false);
  session.FlagRepairs.Wait->Enabled(false);
  client.platform.desktop.SetUsersNumCaption(tab, "");
  const SocketState state = session.Winsock3->State();
  if (state == SocketState::kClosing || state == SocketState::kClosed)
    AppendNote(client, {W<" Обновление фрейма...">, " Updating..."}, tab);
  ConnectAfresh(client, *session.Winsock3);
}

// The own record lacks the flag -t: it is asked for, and then looked at anew.
void RepairFlag(Client& client, int tab) {
  client.hooks.SayBot("/mo -t", tab);
  if (ConnectsNow(client.tab(tab).FlagRepairs, client.platform.clock)) StartFetch(client, tab);
}

void SeeOwnRecord(Client& client, const UserRecord& user, bool& repaired, int tab) {
  TabSession& session = client.tab(tab);
  if (!EqualsNoCase(user.nick, session.Login)) return;
  if (HasOperatorFlag(user.flags)) {
    Desktop& desktop = client.platform.desktop;
    session.IsOperator = true;
    if (desktop.ActiveTab() == tab) desktop.SetSayUseOp(desktop.SayUseOpChecked(), true);
  }
  if (repaired || Contains(user.flags, "-t")) return;
  repaired = true;
  RepairFlag(client, tab);
}

void ReadUsers(Client& client, std::string_view page, UserFrameForm form, int tab) {
  TabSession& session = client.tab(tab);
  session.UsersText.Clear();
  int users = 0;
  int operators = 0;
  bool repaired = false;  // once for a frame, however often it names the user
  for (const std::string_view piece : Split(page, "\n")) {
    const std::string_view line = TrimView(piece);
    if (line == "<tr>" || line.empty()) continue;
    const UserRecord user = CutUserLine(DecodeEntitiesNoCase(line), form);
    SeeOwnRecord(client, user, repaired, tab);
    UsersOut(client, user, tab);
    session.UsersText.Append(user.nick, user.IP, user.flags, user.status);
    ++users;
    if (HasOperatorFlag(user.flags)) ++operators;
  }
  client.platform.desktop.SetUsersNumCaption(
      tab, "Пользователей: "_w + std::to_string(operators) + "/" + std::to_string(users));
}

// False if it was no list, or if another session has begun meanwhile.
bool ReadFrame(Client& client, Text answer, int tab) {
  TabSession& session = client.tab(tab);
  answer = WithoutHeader(std::move(answer));
  if (IsChannelListPage(answer)) {
    session.Winsock1->Close();
    return false;
  }
  Text page = DecodeKoi(Mid(answer, InStr(answer, "\n\n") + 3));
  const UserFrameForm form = page.starts_with("<tr>") ? UserFrameForm::kB : UserFrameForm::kA;

  client.hooks.UsersListToBeDrawn(tab);
  session.Rich_Users.Text("");
  SelectUsersPaneEnd(client, 0, 0, tab);
  session.Rich_Users.ReplaceSel(kBlankLines);
  const std::uint32_t session_number = session.SessionNumber;
  client.platform.desktop.YieldToEvents();
  if (session.SessionNumber != session_number) return false;
  const PaintOnce paint_once(session.Rich_Users);
  CutScript(client, page, tab);
  ReadUsers(client, page, form, tab);
  return true;
}

// Behind a list that was read whole.
void ActOnNewList(Client& client, int tab) {
  client.hooks.UsersListDrawn(tab);
  client.hooks.SayBotFunction(tab);
  client.tab(tab).JoinLines.clear();
}

}  // namespace

void UpdateUsersFrame(Client& client, int tab) {
  StartAfresh(client.tab(tab).Fetches);
  StartAfresh(client.tab(tab).FlagRepairs);
  StartFetch(client, tab);
}

void FetchUsersInTime(Client& client, int tab) {
  if (ConnectsNow(client.tab(tab).Fetches, client.platform.clock)) StartFetch(client, tab);
}

void Fetches_Wait(Client& client, int tab) {
  NoteConnect(client.tab(tab).Fetches, client.platform.clock);
  StartFetch(client, tab);
}

void FlagRepairs_Wait(Client& client, int tab) {
  NoteConnect(client.tab(tab).FlagRepairs, client.platform.clock);
  StartFetch(client, tab);
}

void Winsock3_Connect(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const Text url = "/chl?" + SessionQuery(session);
  session.UsersBuffer.clear();
  SendRequest(client, *session.Winsock3, url);
}

void Winsock3_DataArrival(Client& client, int tab, std::size_t bytes_total) {
  TabSession& session = client.tab(tab);
  GatherAnswer(*session.Winsock3, bytes_total, session.UsersBuffer);
}

void Winsock3_Close(Client& client, int tab) {
  // Taken out at once: a new fetch may begin in the middle of this, and keeps what it receives.
  const Text answer = std::exchange(client.tab(tab).UsersBuffer, Text());
  if (answer.empty()) return;
  bool listed = false;
  try {
    listed = ReadFrame(client, answer, tab);
    if (listed) ActOnNewList(client, tab);
  } catch (const Fault& fault) {
    LogFault(client, fault,
             listed ? ". Function: SayBotFunction."
                    : ". Function: Winsock3_Close. Debug info:\r\n!" + DumpText(answer) + "!");
    AppendNote(client, {W<" Ошибка при обновлениии фрейма">, " Error updating"}, tab);
  }
}

}  // namespace parlorwire
