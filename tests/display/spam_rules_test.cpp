#include "display/spam_rules.h"

#include <gtest/gtest.h>

#include <ostream>

#include "text/text.h"

namespace parlorwire {
namespace {

struct Case {
  const char* name;
  Text text;
  int fired;
};

void PrintTo(const Case& spam, std::ostream* out) {
  *out << spam.name;
}

class SpamRulesTest : public testing::TestWithParam<Case> {};

TEST_P(SpamRulesTest, Fires) {
  EXPECT_EQ(SpamRulesFired(AppState(), GetParam().text), GetParam().fired);
}

INSTANTIATE_TEST_SUITE_P(
    Rules, SpamRulesTest,
    testing::Values(Case{"PlainTalk", "hello", 0}, Case{"Nothing", "", 0},
                    Case{"HostWithItsScheme", "go http://spam.example/x", 1},
                    Case{"HostWithSchemeAndWww", "http://www.spam.example", 1},
                    Case{"HostInOtherCase", "HTTP://WWW.SPAM.EXAMPLE", 1},
                    Case{"HostWithoutScheme", "spam.example www.spam.example", 0},
                    Case{"HostWithAnotherScheme", "ftp://spam.example", 0},
                    Case{"Domain", "see flood.example", 1},
                    Case{"DomainInOtherCase", "FLOOD.Example", 1},
                    Case{"AnySubdomain", "http://www.x.flood.example", 1},
                    Case{"TheAllowedSubdomain", "rules.flood.example", 0},
                    Case{"TheAllowedSubdomainWithWww", "www.rules.flood.example", 0},
                    Case{"TheAllowedSubdomainWithScheme", "http://rules.flood.example", 0},
                    Case{"TheAllowedSubdomainWithBoth", "http://www.Rules.flood.example", 0},
                    Case{"DomainBesideTheAllowedOne", "flood.example rules.flood.example", 0},
                    Case{"BothRules", "http://spam.example flood.example", 2}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(SpamRules, ARuleWithoutAHostNeverFires) {
  AppState app;
  app.SpamHost.clear();
  app.SpamDomain.clear();
  EXPECT_EQ(SpamRulesFired(app, "http://www.anything"), 0);
}

TEST(SpamRules, WithoutAnExceptionTheWholeDomainFires) {
  AppState app;
  app.SpamDomainAllowed.clear();
  EXPECT_EQ(SpamRulesFired(app, "rules.flood.example"), 1);
}

}  // namespace
}  // namespace parlorwire
