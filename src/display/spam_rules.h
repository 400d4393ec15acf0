// The two spam rules, SpamHostRules: hosts that nobody may advertise on a channel.
#pragma once

#include <string_view>

#include "session/app_state.h"

namespace parlorwire {

// How many of the two rules a text fires, each on its own; case does not matter.
// - Rule one: the text holds SpamHost behind "http://", with or without "www.".
// - Rule two: the text holds SpamDomain, and SpamDomainAllowed nowhere.
// A rule with an empty host never fires.
int SpamRulesFired(const AppState& app, std::string_view text);

}  // namespace parlorwire
