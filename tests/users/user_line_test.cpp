#include "users/user_line.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/fault_of.h"

namespace parlorwire {

void PrintTo(const UserRecord& user, std::ostream* out) {
  *out << user.nick << '|' << user.IP << '|' << user.flags << '|' << user.status;
}

namespace {

constexpr UserFrameForm kA = UserFrameForm::kA;
constexpr UserFrameForm kB = UserFrameForm::kB;

struct Cut {
  const char* name;
  UserFrameForm form;
  const char* line;
  UserRecord user;
};

void PrintTo(const Cut& cut, std::ostream* out) {
  *out << cut.name;
}

class CutUserLineTest : public testing::TestWithParam<Cut> {};

TEST_P(CutUserLineTest, IsCut) {
  EXPECT_EQ(CutUserLine(GetParam().line, GetParam().form), GetParam().user);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, CutUserLineTest,
    testing::Values(
        Cut{"Sample", kA, "Nick|[+o][10.0.0.7:]'at work'", {"Nick", "10.0.0.7", "[+o]", "at work"}},
        Cut{"NothingKnown", kA, "Nick|[][]''", {"Nick", "", "", ""}},
        Cut{"NoStatusAtAll", kA, "Nick|[][]", {"Nick", "", "", ""}},
        Cut{"AllApostrophesGo", kA, "Nick|[][]'it's'", {"Nick", "", "", "its"}},
        Cut{"AllColonsOfTheAddressGo", kA, "Nick|[][:1:2:]''", {"Nick", "12", "", ""}},
        Cut{"AddressOfOneCharacter", kA, "Nick|[][x]''", {"Nick", "x", "", ""}},
        Cut{"NoNick", kA, "|[+o][1]''", {"", "1", "[+o]", ""}},
        Cut{"BarsBehindTheFirstBelongToOthers", kA, "a|[b|c][1]'d|e'", {"a", "1", "[b|c]", "d|e"}},
        Cut{"BracketsInTheNick", kA, "a]b|[+o][1]''", {"a]b", "1", "[+o]", ""}},
        Cut{"BracketsInTheStatus", kA, "a|[+o][1]'x]y'", {"a", "1", "[+o]", "x]y"}},
        Cut{"TheSearchBeginsBehindTheOpeningBracket", kA, "a|][]x]y", {"a", "", "][]", "y"}},
        Cut{"OlderSample", kB, "10.0.0.7:[+o]Nick rest", {"Nick", "10.0.0.7", "[+o]", ""}},
        Cut{"OlderNothingKnown", kB, ":[]Nick", {"Nick", "", "", ""}},
        Cut{"OlderWithoutColon", kB, "[+o]Nick", {"Nick", "", "[+o]", ""}},
        Cut{"OlderNothingBehindTheFlags", kB, "1:[+o]", {"", "1", "[+o]", ""}},
        Cut{"OlderBlankDirectlyBehindTheFlags", kB, "1:[+o] Nick", {"", "1", "[+o]", ""}},
        Cut{"OlderBlankWithinTheFlags", kB, "1:[+o -t]Nick rest", {"Nick", "1", "[+o -t]", ""}}),
    [](const auto& test) { return std::string(test.param.name); });

struct Broken {
  const char* name;
  UserFrameForm form;
  const char* line;
};

void PrintTo(const Broken& broken, std::ostream* out) {
  *out << broken.name;
}

class BrokenUserLineTest : public testing::TestWithParam<Broken> {};

TEST_P(BrokenUserLineTest, IsAFault) {
  EXPECT_EQ(FaultOf([] { CutUserLine(GetParam().line, GetParam().form); }), 5);
}

INSTANTIATE_TEST_SUITE_P(Forms, BrokenUserLineTest,
                         testing::Values(Broken{"NoBar", kA, "Nick[+o][1]''"},
                                         Broken{"NoBracket", kA, "Nick|"},
                                         Broken{"OneBracket", kA, "Nick|[+o]"},
                                         Broken{"NoSecondClosing", kA, "Nick|[+o][1''"},
                                         Broken{"Nothing", kA, ""},
                                         Broken{"OlderNoBracket", kB, "10.0.0.7:Nick"},
                                         Broken{"OlderNoBracketNoColon", kB, "Nick"},
                                         Broken{"OlderBracketAheadOfTheColon", kB, "[+o]1:Nick"},
                                         Broken{"OlderNothing", kB, ""}),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace parlorwire
