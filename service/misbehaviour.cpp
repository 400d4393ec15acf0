#include "service/misbehaviour.h"

#include <algorithm>
#include <array>

#include "service/ascii.h"
#include "service/form.h"

namespace parlorwire::service {
namespace {

constexpr std::size_t kGarbageBytes = 64;
constexpr std::size_t kMostKindDigits = 9;

using Kind = MisbehaviourKind;

struct KindName {
  std::string_view name;
  Kind kind;
  std::int64_t usual;
};

constexpr std::array<KindName, 8> kKinds = {{
    {"none", Kind::kNone, 0},
    {"stall", Kind::kStall, 2000},
    {"cut", Kind::kCut, 2000},
    {"reset", Kind::kReset, 2000},
    {"garbage", Kind::kGarbage, 2000},
    {"drip", Kind::kDrip, 5},
    {"drop", Kind::kDrop, 10},
    {"random", Kind::kRandom, 10},
}};

// What befalls one request when misbehaviour comes at random: often nothing.
Misbehaviour Draw(Mischief& mischief) {
  constexpr std::uint64_t kFurthest = 4000;
  constexpr std::uint64_t kSlowestDrip = 10;
  const auto& random = mischief.random;
  if (static_cast<std::int64_t>(random() % 100) >= mischief.wanted.number) return {};
  const Kind kind = kKinds.at(1 + random() % 6).kind;
  const std::uint64_t most = kind == Kind::kDrip ? kSlowestDrip : kFurthest;
  return {kind, static_cast<std::int64_t>(1 + random() % most), {}};
}

bool IsForFramesAlone(const Misbehaviour& misbehaviour) {
  return misbehaviour.path.empty() && misbehaviour.kind != Kind::kRandom;
}

}  // namespace

std::optional<Misbehaviour> ParseMisbehaviour(std::string_view text) {
  std::string path;
  if (const auto at = text.find('@'); at != std::string_view::npos) {
    path = text.substr(at + 1);
    text = text.substr(0, at);
    if (!path.starts_with('/')) return std::nullopt;
  }
  const auto colon = std::min(text.find(':'), text.size());
  const auto found = std::find_if(kKinds.begin(), kKinds.end(), [&](const KindName& each) {
    return each.name == text.substr(0, colon);
  });
  if (found == kKinds.end()) return std::nullopt;
  if (colon == text.size()) return Misbehaviour{found->kind, found->usual, path};
  const auto number = ReadNumber(text.substr(colon + 1), kMostKindDigits);
  if (!number || *number == 0 || (found->kind == Kind::kRandom && *number > 100))
    return std::nullopt;
  return Misbehaviour{found->kind, *number, path};
}

std::string MisbehaviourText(const Misbehaviour& misbehaviour) {
  for (const KindName& each : kKinds) {
    if (each.kind != misbehaviour.kind) continue;
    std::string text(each.name);
    if (each.kind != Kind::kNone) text += ":" + std::to_string(misbehaviour.number);
    if (!misbehaviour.path.empty()) text += "@" + misbehaviour.path;
    return text;
  }
  return {};
}

bool IsControl(const Mischief& mischief, const Request& request, std::string_view address) {
  return mischief.may_change && request.path == "/misbehave" && address.starts_with("127.");
}

bool TakeControl(Mischief& mischief, const Request& request) {
  const Form form = DecodeForm(request.query, FormBytes::kKoi);
  const auto wanted = ParseMisbehaviour(form["fault"]);
  if (wanted) mischief.wanted = *wanted;
  return wanted.has_value();
}

Mishap BefallRequest(Mischief& mischief, const Request& request) {
  const Misbehaviour& wanted = mischief.wanted;
  if (!wanted.path.empty() && wanted.path != request.path) return {};
  Mishap mishap;
  if (wanted.kind == Kind::kRandom)
    mishap.misbehaviour = Draw(mischief);
  else if (wanted.kind != Kind::kDrop || ++mischief.requests % wanted.number == 0)
    mishap.misbehaviour = wanted;
  mishap.silent = mishap.misbehaviour.kind == Kind::kDrop;
  return mishap;
}

Mishap BefallAnswer(const Mischief& mischief, const Mishap& of_request) {
  return IsForFramesAlone(mischief.wanted) ? Mishap{} : of_request;
}

Mishap BefallOpen(const Mischief& mischief, const Mishap& before, bool is_frame) {
  Mishap mishap;
  mishap.silent = before.silent;
  if (is_frame && IsForFramesAlone(mischief.wanted) && mischief.wanted.kind != Kind::kDrop)
    mishap.misbehaviour = mischief.wanted;
  return mishap;
}

std::size_t MaySend(const Mishap& mishap, std::size_t rest) {
  if (mishap.misbehaviour.kind == Kind::kNone) return rest;
  if (mishap.misbehaviour.kind == Kind::kDrip) return 1;
  const std::int64_t until = std::max<std::int64_t>(1, mishap.misbehaviour.number - mishap.since);
  return std::min(rest, static_cast<std::size_t>(until));
}

Blow AfterSend(Mishap& mishap, std::size_t count, std::int64_t now_ms) {
  const Misbehaviour& misbehaviour = mishap.misbehaviour;
  if (misbehaviour.kind == Kind::kNone) return Blow::kNone;
  if (misbehaviour.kind == Kind::kDrip) {
    mishap.waits_until = now_ms + misbehaviour.number;
    return Blow::kPause;
  }
  mishap.since += static_cast<std::int64_t>(count);
  if (mishap.since < misbehaviour.number) return Blow::kNone;
  mishap.since = 0;
  switch (misbehaviour.kind) {
    case Kind::kStall:
      mishap.silent = true;
      return Blow::kSilence;
    case Kind::kCut:
      return Blow::kClose;
    case Kind::kReset:
      return Blow::kReset;
    case Kind::kGarbage:
      return Blow::kGarbage;
    default:
      return Blow::kNone;
  }
}

std::string Garbage(Mischief& mischief) {
  std::string garbage;
  for (std::size_t i = 0; i < kGarbageBytes; ++i)
    garbage += static_cast<char>(mischief.random() & 0xFF);
  return garbage;
}

}  // namespace parlorwire::service
