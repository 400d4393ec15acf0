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

constexpr std::array<Kind, 7> kKinds = {{
    {"none", Fault::kNone, 0},
    {"stall", Fault::kStall, 2000},
    {"cut", Fault::kCut, 2000},
    {"reset", Fault::kReset, 2000},
    {"garbage", Fault::kGarbage, 2000},
    {"drip", Fault::kDrip, 5},
    {"drop", Fault::kDrop, 10},
}};

}  // namespace

std::optional<Misbehaviour> ParseMisbehaviour(std::string_view text) {
  const auto colon = std::min(text.find(':'), text.size());
  const auto kind = std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& each) {
    return each.name == text.substr(0, colon);
  });
  if (kind == kKinds.end()) return std::nullopt;
  if (colon == text.size()) return Misbehaviour{kind->fault, kind->usual};
  const std::string_view digits = text.substr(colon + 1);
  if (digits.empty() || digits.size() > 9) return std::nullopt;
  std::int64_t number = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + (digit - '0');
  }
  if (number == 0) return std::nullopt;
  return Misbehaviour{kind->fault, number};
}

std::string MisbehaviourText(const Misbehaviour& misbehaviour) {
  for (const Kind& kind : kKinds) {
    if (kind.fault != misbehaviour.fault) continue;
    const std::string name(kind.name);
    return kind.fault == Fault::kNone ? name : name + ":" + std::to_string(misbehaviour.number);
  }
  return {};
}

}  // namespace parlorwire::service
