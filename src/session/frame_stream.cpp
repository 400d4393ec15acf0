#include "session/frame_stream.h"

#include <cstdint>

#include "session/client.h"
#include "session/fault_trap.h"
#include "session/frame_style.h"
#include "session/http_answer.h"
#include "session/line_carry.h"
#include "session/personal_notice.h"
#include "session/status.h"
#include "text/cut.h"
#include "text/entities.h"

namespace parlorwire {
namespace {

constexpr std::string_view kInCacheMessages = ". Function: CacheMessages";
constexpr std::string_view kEjectLine = W<"<hr>----- Аварийное катапультирование ----<hr>">;
constexpr std::string_view kScriptEnd = "</script>";

enum class AfterPiece { kReadOn, kDropChunk };

AfterPiece ReadPiece(Client& client, std::string_view piece, int tab) {
  TabSession& session = client.tab(tab);
  for (;;) {
    const std::string_view trimmed = TrimView(piece);
    if (trimmed.empty() || trimmed == "<!-- -->" || piece == "<pre>") return AfterPiece::kReadOn;

    if (StartsWithNoCase(piece, "<b><font color=")) {
      StatusOut(client, "Обнаружена смена стиля. Установка s9..."_w, tab);
      client.hooks.SayBot("/set s 9", tab);
      return AfterPiece::kDropChunk;
    }
    if (StartsWithNoCase(piece, "<script")) {
      session.InScript = true;
      if (EqualsNoCase(piece, "<script language=\"javascript\">")) {
        session.FixingFlagR = true;
        StatusOut(client, "Обнаружен недопустимый флаг +R. Установка -R..."_w, tab);
        client.hooks.SayBot("/mo -R", tab);
        return AfterPiece::kDropChunk;
      }
      NoticePersonalMessage(client, tab);
    }
    if (!StartsWithNoCase(piece, kScriptEnd)) break;
    session.InScript = false;
    piece.remove_prefix(kScriptEnd.size());
  }
  if (!session.InScript) client.hooks.ParseChatLine(DecodeEntities(piece), tab);
  return AfterPiece::kReadOn;
}

// Reads the whole lines of a chunk and keeps the rest for the next one.
void ReadLines(Client& client, std::string_view data, int tab) {
  TabSession& session = client.tab(tab);
  const std::uint32_t session_number = session.SessionNumber;
  session.ChannelListPage.clear();
  const std::size_t rest = data.rfind('\n') + 1;
  CarryOn(client, session.LineCarry, session.LineCut, data.substr(rest));
  for (std::string_view left = data.substr(0, rest); !left.empty();) {
    const std::size_t line_end = left.find('\n');
    AfterPiece after = AfterPiece::kReadOn;
    GoOnAfterFault(client, kInCacheMessages,
                   [&] { after = ReadPiece(client, left.substr(0, line_end), tab); });
    if (after == AfterPiece::kDropChunk || session.SessionNumber != session_number) return;
    left.remove_prefix(line_end + 1);
  }
}

}  // namespace

void CacheMessages(Client& client, const Text& chunk, int tab) {
  TabSession& session = client.tab(tab);
  Text data = session.Connected ? chunk : WithoutHeader(chunk);
  if (session.IgnoreStream) return;
  if (data == kEjectLine) {
    session.EjectSeen = true;
    return;
  }
  DropRestOfCutLine(data, session.LineCut);
  if (!Contains(data, "\n") || data == "\n") {
    CarryOn(client, session.LineCarry, session.LineCut, data);
    return;
  }
  if (!session.LineCarry.empty()) {
    data.insert(0, session.LineCarry);
    session.LineCarry.clear();
  }
  if (!session.Connected) {
    const FrameStyle style = CheckFrameStyle(client, data, tab);
    if (style != FrameStyle::kRobots) return;
  }
  ReadLines(client, data, tab);
}

}  // namespace parlorwire
