#include "text/wildcard.h"

#include <gtest/gtest.h>

#include <string>

#include "text/letter_case.h"
#include "text/text.h"

namespace parlorwire {
namespace {

struct Case {
  std::string_view text;
  std::string_view mask;
  bool fits;
};

void Expect(std::initializer_list<Case> cases) {
  for (const auto& [text, mask, fits] : cases)
    EXPECT_EQ(MatchesMaskNoCase(text, mask), fits) << text << " / " << mask;
}

TEST(Wildcard, WithoutOneTheWholeTextMustBeTheMask) {
  Expect({{"bob", "bob", true},
          {"bob", "bo", false},
          {"bo", "bob", false},
          {"abob", "bob", false},
          {"", "", true},
          {"", "a", false},
          {"a", "", false}});
}

TEST(Wildcard, AStarIsAnyRunAlsoNone) {
  Expect({{"badguy", "bad*", true},
          {"bad", "bad*", true},
          {"ba", "bad*", false},
          {"badguy", "*guy", true},
          {"badguys", "*guy", false},
          {"badguy", "b*g*y", true},
          {"badguy", "*", true},
          {"", "*", true},
          {"", "**", true},
          {"ab", "a**b", true},
          {"badguy", "*dg*", true},
          {"badguy", "*x*", false}});
}

TEST(Wildcard, AStarGivesBackWhatItTookTooMuch) {
  Expect({{"aab", "*ab", true},
          {"abab", "*ab", true},
          {"abcabd", "*abd", true},
          {"aaab", "a*ab", true},
          {"mississippi", "m*iss*ip*i", true},
          {"mississippi", "m*iss*is*iss*", false}});
}

TEST(Wildcard, AQuestionMarkIsOneCharacter) {
  Expect({{"bob", "b?b", true},
          {"bb", "b?b", false},
          {"boob", "b?b", false},
          {"bob", "???", true},
          {"bob", "?*", true},
          {"", "?", false}});
}

TEST(Wildcard, ANumberSignIsOneDigit) {
  Expect({{"bob7", "bob#", true},
          {"bob0", "bob#", true},
          {"bob9", "bob#", true},
          {"bobx", "bob#", false},
          {"bob", "bob#", false},
          {"bob77", "bob#", false},
          {"bob77", "bob##", true},
          {"bob#", "bob#", false}});
}

TEST(Wildcard, ABracketIsItself) {
  Expect({{"[bob]", "[bob]", true},
          {"b", "[bob]", false},
          {"[a-z]", "[a-z]", true},
          {"c", "[a-z]", false},
          {"[x", "[?", true},
          {"]", "]", true},
          {"!bob", "[!b]*", false}});
}

TEST(Wildcard, WildcardsInTheTextAreNone) {
  Expect({{"*", "a", false}, {"?", "a", false}, {"*", "?", true}, {"a*b", "a?b", true}});
}

TEST(Wildcard, CaseDoesNotMatterForAnyCharacter) {
  Expect({{"BADGUY", "Bad*", true}, {W<"ЁЖИК">, W<"ёж?к">, true}});
  for (int byte = 0; byte < 256; ++byte) {
    if (byte == '#') continue;
    const char character = static_cast<char>(byte);
    EXPECT_TRUE(MatchesMaskNoCase(Text(1, character), Text(1, LowerCase(character)))) << byte;
  }
}

TEST(Wildcard, ATextAndAMaskOfMegabytesAreQuick) {
  const Text text(2'000'000, 'a');
  EXPECT_FALSE(MatchesMaskNoCase(text, "*b"));
  EXPECT_TRUE(MatchesMaskNoCase(text, Text(2'000'000, '?')));
  EXPECT_TRUE(MatchesMaskNoCase(text, Text(2'000'000, '*')));
}

}  // namespace
}  // namespace parlorwire
