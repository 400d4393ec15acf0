#include "service/misbehaviour.h"

#include <algorithm>
#include <array>

namespace parlorwire::service {
namespace {

struct Kind {
  std::string_view name;
  Fault fault;
  std::int64_t usual;
};

constexpr std::array<Kind, 8> kKinds = {{
    {"none", Fault::kNone, 0},
    {"stall", Fault::kStall, 2000},
    {"cut", Fault::kCut, 2000},
    {"reset", Fault::kReset, 2000},
    {"garbage", Fault::kGarbage, 2000},
    {"drip", Fault::kDrip, 5},
    {"drop", Fault::kDrop, 10},
    {"random", Fault::kRandom, 10},
}};

}  // namespace

std::optional<Misbehaviour> ParseMisbehaviour(std::string_view text) {
  std::string path;
  if (const auto at = text.find('@'); at != std::string_view::npos) {
    path = text.substr(at + 1);
    text = text.substr(0, at);
    if (!path.starts_with('/')) return std::nullopt;
  }
  const auto colon = std::min(text.find(':'), text.size());
  const auto kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& each) {
    return each.name == text.substr(0, colon);
  });
  if (kind == kKinds.end()) return std::nullopt;
  if (colon == text.size()) return Misbehaviour{kind->fault, kind->usual, path};
  const std::string_view digits = text.substr(colon + 1);
  if (digits.empty() || digits.size() > 9) return std::nullopt;
  std::int64_t number = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + (digit - '0');
  }
  if (number == 0 || (kind->fault == Fault::kRandom && number > 100)) return std::nullopt;
  return Misbehaviour{kind->fault, number, path};
}

std::string MisbehaviourText(const Misbehaviour& misbehaviour) {
  for (const Kind& kind : kKinds) {
    if (kind.fault != misbehaviour.fault) continue;
    std::string text(kind.name);
    if (kind.fault != Fault::kNone) text += ":" + std::to_string(misbehaviour.number);
    if (!misbehaviour.path.empty()) text += "@" + misbehaviour.path;
    return text;
  }
  return {};
}

Misbehaviour RandomFault(std::int64_t percent, const std::function<std::uint64_t()>& random) {
  constexpr std::uint64_t kFurthest = 4000;
  constexpr std::uint64_t kSlowestDrip = 10;
  if (static_cast<std::int64_t>(random() % 100) >= percent) return {};
  const Fault fault = kKinds.at(1 + random() % 6).fault;
  const std::uint64_t most = fault == Fault::kDrip ? kSlowestDrip : kFurthest;
  return {fault, static_cast<std::int64_t>(1 + random() % most), {}};
}

}  // namespace parlorwire::service
