#include "session/both_languages.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

constexpr BothLanguages kYes{W<"да">, "yes"};

TEST(BothLanguages, HasAFormForEach) {
  EXPECT_EQ(kYes.In(UiLanguage::kRussian), "да"_w);
  EXPECT_EQ(kYes.In(UiLanguage::kEnglish), "yes");
}

TEST(BothLanguages, IsSaidInTheLanguageOfTheClient) {
  SimulatedPlatform platform;
  Client client(platform.Ports());
  EXPECT_EQ(InLanguage(client, kYes), "да"_w);
  client.app.Language = UiLanguage::kEnglish;
  EXPECT_EQ(InLanguage(client, kYes), "yes");
}

}  // namespace
}  // namespace parlorwire
