#include "display/spam_rules.h"

#include "text/cut.h"

namespace parlorwire {
namespace {

bool Holds(std::string_view text, std::string_view host) {
  return !host.empty() && ContainsNoCase(text, host);
}

bool HostRuleFires(const AppState& app, std::string_view text) {
  return Holds(text, app.SpamHost) && (ContainsNoCase(text, "http://" + app.SpamHost) ||
                                       ContainsNoCase(text, "http://www." + app.SpamHost));
}

// The allowed subdomain with "www.", with a scheme and with both holds the bare one each time.
bool DomainRuleFires(const AppState& app, std::string_view text) {
  return Holds(text, app.SpamDomain) && !Holds(text, app.SpamDomainAllowed);
}

}  // namespace

int SpamRulesFired(const AppState& app, std::string_view text) {
  return HostRuleFires(app, text) + DomainRuleFires(app, text);
}

}  // namespace parlorwire
