#include "users/posting.h"

#include <algorithm>
#include <span>

#include "display/fonts.h"
#include "session/client.h"
#include "session/exchange.h"
#include "session/fault_trap.h"
#include "session/http_request.h"
#include "session/personal_notice.h"
#include "session/wire_encoding.h"
#include "text/charset.h"
#include "text/cut.h"
#include "text/entities.h"
#include "users/input_history.h"

namespace parlorwire {
namespace {

constexpr PaneColour kGreen = 0xFF00;

// The sentence in the first font of size 1 of the answer, as it came.
std::string_view AnswerSentence(std::string_view answer) {
  auto pieces = Split(answer, "size=1>");
  if (pieces.size() == 1) pieces = Split(answer, "size=\"1\">");
  return ElementAt(Split(ElementAt(pieces, 1), "</font>"), 0);
}

// In a sentence "&nbsp;" stays as it is.
constexpr std::span kEntitiesOfSentences = std::span(kEntities).first(kEntities.size() - 1);
static_assert(kEntities.back().name == "&nbsp;");

Text DecodeSentence(std::string_view sentence) {
  return DecodeEntities(DecodeKoi(Text(sentence)), kEntitiesOfSentences);
}

void ShowSentence(RichTextBox& line, const Text& sentence) {
  line.Text(sentence);
  line.SelStart(0);
  line.SelLength(Len(sentence));
  line.SelColor(kGreen);
  line.SelFontName("verdana");
  line.SelFontSize(10);
}

}  // namespace

int ToneAction(std::string_view label) {
  const auto tone =
      std::find_if(kTones.begin(), kTones.end(), [&](const Tone& t) { return t.label == label; });
  return tone == kTones.end() ? 0 : tone->action;
}

void button_say_MouseUp(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  Desktop& desktop = client.platform.desktop;
  desktop.FocusMsg(tab);
  desktop.SetStopScroll(tab, false);
  ConnectAfresh(client, *session.Winsock2);
  const Text text = desktop.MsgText(tab);
  if (!TrimView(text).empty()) RememberInput(session, text);
  session.HistoryPos = 0;
  session.PostText = (desktop.SayUseOpChecked() ? "/op " : "") + text;
  desktop.SetMsgText(tab, "");
}

Text PostUrl(Client& client, const Text& text, int tab) {
  const Text message = UrlEncodeKoiCopy(text);
  Text url = "/newmsg_t?" + SessionQuery(client.tab(tab));
  url += "&reqnum=" + EightDigitNumber(client);
  url += "&msgtext=" + message;
  return url + "&msgtext0=" + message;
}

void Winsock2_Connect(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  const int action = ToneAction(client.platform.desktop.IntonaciaText(tab));
  client.platform.desktop.SelectIntonacia(tab, 0);
  const Text url = PostUrl(client, session.PostText, tab) + "&action=" + std::to_string(action);
  SendRequest(client, *session.Winsock2, url);
}

void Winsock2_DataArrival(Client& client, int tab, std::size_t bytes_total) {
  TabSession& session = client.tab(tab);
  GatherAnswer(*session.Winsock2, bytes_total, session.SendBuffer);
}

void Winsock2_Close(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  if (session.SendBuffer.empty()) return;
  if (StartsWithNoCase(session.SendBuffer, "<script")) {
    PassOverFault([&] { NoticePersonalMessage(client, tab); });
  } else {
    std::string_view sentence;
    PassOverFault([&] { sentence = AnswerSentence(session.SendBuffer); });
    ShowSentence(session.Rich_Server, DecodeSentence(sentence));
    Rich_Server_Change(client, tab);
  }
  session.SendBuffer.clear();
}

}  // namespace parlorwire
