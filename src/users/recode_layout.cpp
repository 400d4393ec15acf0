#include "users/recode_layout.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kLatinLayout =
    "qwertyuiop[]asdfghjkl;'zxcvbnm,./?"
    "QWERTYUIOP{}ASDFGHJKL:\"ZXCVBNM<>";
constexpr std::string_view kRussianLayout =
    W<"йцукенгшщзхъфывапролджэячсмитьбю.,"
      "ЙЦУКЕНГШЩЗХЪФЫВАПРОЛДЖЭЯЧСМИТЬБЮ">;
static_assert(kLatinLayout.size() == 66 && kRussianLayout.size() == 66);

consteval std::array<char, 256> MakeOtherLayout() {
  std::array<char, 256> other{};
  for (std::size_t i = 0; i < other.size(); ++i)
    other[i] = static_cast<char>(i);
  const auto map = [&other](std::string_view from, std::string_view to) {
    for (std::size_t i = 0; i < from.size(); ++i)
      other[static_cast<std::uint8_t>(from[i])] = to[i];
  };
  map(kRussianLayout, kLatinLayout);
  map(kLatinLayout, kRussianLayout);
  return other;
}

constexpr std::array<char, 256> kOtherLayout = MakeOtherLayout();

bool IsListed(const UserRecords& users, std::string_view nick) {
  if (nick.empty()) return false;
  for (const std::string_view record : Split(users.text(), "\r\n"))
    if (EqualsNoCase(record.substr(0, record.find('\n')), nick)) return true;
  return false;
}

// How many characters at the start of the text say whom it is for.
std::size_t NickPrefix(const Client& client, std::string_view text) {
  const std::size_t blank = text.find(' ');
  if (blank == std::string_view::npos || blank == 0 || text[blank - 1] != ':') return 0;
  const UserRecords& users = client.tab(client.platform.desktop.ActiveTab()).UsersText;
  return IsListed(users, text.substr(0, blank - 1)) ? blank : 0;
}

}  // namespace

Text RecodeLayout(const Client& client, std::string_view text) {
  Text recoded(text);
  const auto behind_nick = recoded.begin() + static_cast<std::ptrdiff_t>(NickPrefix(client, text));
  std::transform(behind_nick, recoded.end(), behind_nick,
                 [](char c) { return kOtherLayout[static_cast<std::uint8_t>(c)]; });
  return recoded;
}

void perecodirovka_label(Client& client) {
  Desktop& desktop = client.platform.desktop;
  const int tab = desktop.ActiveTab();
  desktop.SetMsgText(tab, RecodeLayout(client, desktop.MsgText(tab)));
  desktop.FocusMsg(tab);
}

void text_perecodirovka(Client& client) {
  RichTextBox& pane = client.tab(client.platform.desktop.ActiveTab()).Rich;
  pane.ReplaceSel(RecodeLayout(client, pane.SelText()));
}

}  // namespace parlorwire
