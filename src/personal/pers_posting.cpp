#include "personal/pers_posting.h"

#include <algorithm>

#include "personal/pers_status.h"
#include "personal/personal_window.h"
#include "session/client.h"
#include "session/exchange.h"
#include "session/http_answer.h"
#include "session/http_request.h"
#include "session/wire_encoding.h"
#include "text/charset.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kNickWanted = W<"Укажите ник, которому следует отправить приват!">;
constexpr std::string_view kRefusal = W<"неверное имя или пароль">;
constexpr std::string_view kLoginIsOld =
    W<"Ваши уникальные данные (логин и/или тикет) изменились. Закройте перс и повторите попытку.">;

void SetMsg(PersonalWindow& window, const Text& text) {
  window.msg = text;
  window.hooks.ShowFields();
}

Text StepUpPers(PersonalWindow& window) {
  if (window.PersHistoryDir == "down") ++window.PersHistoryPos;
  Text entry = window.PersHistory.at(window.PersHistoryPos);
  if (window.PersHistoryPos < 2) {
    ++window.PersHistoryPos;
    window.PersHistoryDir = "up";
  } else {
    window.PersHistoryDir = "upoverflow";
  }
  return entry;
}

Text StepDownPers(PersonalWindow& window) {
  const Text& last = window.PersHistoryDir;
  if ((last == "upoverflow" || last == "up") && window.PersHistoryPos != 0) --window.PersHistoryPos;
  if (last == "none") window.PersHistoryPos = 0;
  window.PersHistoryDir = "down";
  return window.PersHistory.at(window.PersHistoryPos);
}

}  // namespace

void pers_frm_button_say_MouseUp(Client& client, PersonalWindow& window) {
  const RunningEvent running(window);  // the box lets others run
  if (TrimView(window.send_nick).empty()) {
    window.hooks.MessageBox(Text(kNickWanted), BoxIcon::kExclamation);
    if (!window.Closed) window.Timer1->Enabled(true);
    return;
  }
  window.PersOutText = window.msg;
  window.PersOutNick = window.send_nick;
  if (!TrimView(window.msg).empty()) PersHistoryStep(window, window.msg, "none", false);
  window.PersHistoryPos = 0;
  window.PersHistoryDir = "none";
  SetMsg(window, {});
  window.hooks.Focus(PersonalField::kMsg);
  ConnectAfresh(client, *window.W2);
}

void pers_frm_button_clear_MouseUp(PersonalWindow& window) {
  SetMsg(window, {});
  window.hooks.Focus(PersonalField::kMsg);
}

void W2_Connect(Client& client, PersonalWindow& window) {
  Text url = "/newmsg_pm?username=" + window.PersLogin + "&ticket=" + window.PersTicket;
  url += "&reqnum=" + EightDigitNumber(client);
  url += "&xtouser=" + Trim(Replace(window.PersOutNick, ":", ""));
  url += "&msgtext=" + UrlEncodeKoi(window.PersOutText);
  SendRequest(client, *window.W2, url);
}

void W2_DataArrival(Client& /*client*/, PersonalWindow& window, std::size_t bytes_total) {
  if (bytes_total == 0) return;
  Text& answer = window.PersPostAnswer;
  const std::size_t start = answer.size() - std::min(answer.size(), kRefusal.size() - 1);
  answer += DecodeKoi(window.W2->GetData());
  if (ContainsNoCase(std::string_view(answer).substr(start), kRefusal)) window.PersRefused = true;
  if (answer.size() > kLargestAnswer) answer.erase(0, answer.size() - kLargestAnswer);
}

void W2_Close(Client& client, PersonalWindow& window) {
  if (window.PersRefused) PersStatusOut(client, window, Text(kLoginIsOld), StatusMode::kLine);
}

Text PersHistoryStep(PersonalWindow& window, const Text& text, std::string_view direction,
                     bool browse) {
  if (!browse) {
    std::shift_right(window.PersHistory.begin(), window.PersHistory.end(), 1);
    window.PersHistory[0] = text;
    return {};
  }
  return direction == "up" ? StepUpPers(window) : StepDownPers(window);
}

void BrowsePersHistory(PersonalWindow& window, std::string_view direction) {
  const Text entry = PersHistoryStep(window, {}, direction, true);
  if (!TrimView(entry).empty()) SetMsg(window, entry);
}

}  // namespace parlorwire
