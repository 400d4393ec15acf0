#include "users/posting.h"

#include <algorithm>

#include "display/fonts.h"
#include "session/fault_trap.h"
#include "session/http_answer.h"
#include "session/http_request.h"
#include "session/personal_notice.h"
#include "session/proxy_dialog.h"
#include "session/wire_encoding.h"
#include "text/charset.h"
#include "text/cut.h"
#include "users/input_history.h"

namespace parlorwire {
namespace {

constexpr int kLeftButton = 1;
constexpr PaneColour kGreen = 0xFF00;

// The sentence in the first font of size 1 of the answer, as it came.
std::string_view AnswerSentence(std::string_view answer) {
  auto pieces = Split(answer, "size=1>");
  if (pieces.size() == 1) pieces = Split(answer, "size=\"1\">");
  return ElementAt(Split(ElementAt(pieces, 1), "</font>"), 0);
}

Text DecodeSentence(std::string_view sentence) {
  Text text = DecodeKoi(Text(sentence));
  text = Replace(text, "&lt;", "<");
  text = Replace(text, "&gt;", ">");
  text = Replace(text, "&amp;", "&");
  return Replace(text, "&quot;", "\"");
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

void button_say_MouseUp(Client& client, int tab, int button) {
  if (button != kLeftButton) return;
  TabSession& session = client.tab(tab);
  Desktop& desktop = client.platform.desktop;
  desktop.FocusMsg(tab);
  desktop.SetStopScroll(tab, false);
  session.Winsock2->Close();
  PassOverFault([&] { ConnectToService(client, *session.Winsock2); });
  const Text text = desktop.MsgText(tab);
  if (!TrimView(text).empty()) InputHistoryStep(client, HistoryDirection::kNone, text, false, tab);
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
  session.Winsock2->SendData(BuildRequest(client, url));
}

void Winsock2_DataArrival(Client& client, int tab, std::size_t bytes_total) {
  if (bytes_total == 0) return;
  TabSession& session = client.tab(tab);
  TakeAnswer(session.SendBuffer, session.Winsock2->GetData());
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
