#include "display/parse_chat_line.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/fault_of.h"
#include "support/pane_runs.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct Cut {
  const char* name;
  Text line;
  Text time;
  Text nick;
  Text text;
  LineKind kind;
};

void PrintTo(const Cut& cut, std::ostream* out) {
  *out << cut.name;
}

class CutChatLineTest : public testing::TestWithParam<Cut> {};

TEST_P(CutChatLineTest, IsCut) {
  const Cut& want = GetParam();
  const ChatLine cut = CutChatLine(want.line);
  EXPECT_EQ(cut.time, want.time);
  EXPECT_EQ(cut.nick, want.nick);
  EXPECT_EQ(ToUtf8(cut.text), ToUtf8(want.text));
  EXPECT_EQ(cut.kind, want.kind);
}

constexpr LineKind kAction = LineKind::kAction;
constexpr LineKind kEcho = LineKind::kEcho;
constexpr LineKind kSystem = LineKind::kSystem;
constexpr LineKind kMessage = LineKind::kMessage;

INSTANTIATE_TEST_SUITE_P(
    WorkedCuts, CutChatLineTest,
    testing::Values(
        Cut{"Message", "..[16:45:57]alice:() hello", "[16:45:57]", "alice:", "hello", kMessage},
        Cut{"Intonation", "..[16:45:57]alice:(quietly)   hello", "[16:45:57]",
            "alice:", "(quietly) hello", kMessage},
        Cut{"Action", "..[16:45:57]alice:() *** waves", "[16:45:57]", "alice:", "waves", kAction},
        Cut{"Echo", "..[16:45:57] ### alice:() hello", "[16:45:57]", "alice:", "hello", kEcho},
        Cut{"System", "..[16:45:57]bob приходит на канал"_w, "[16:45:57]", "",
            "bob приходит на канал"_w, kSystem},
        Cut{"NoTime", "..hello world", "", "", "hello world", kSystem}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Edges, CutChatLineTest,
    testing::Values(
        Cut{"FullDate", "..[05/04/2004 23:02:38]alice:() hi", "[05/04/2004 23:02:38]",
            "alice:", "hi", kMessage},
        Cut{"TheTwoCharactersAheadAreNotLookedAt", "[]x:() y", "", "x:", "y", kMessage},
        Cut{"TheFirstClosingBracketOfTheLineEndsTheTime", ".][x]a:() b", "", "[x]a:", "b",
            kMessage},
        Cut{"TimeAlone", "..[1]", "[1]", "", "", kSystem},
        Cut{"Nothing", "..", "", "", "", kSystem}, Cut{"LessThanNothing", "", "", "", "", kSystem},
        Cut{"OneWord", "..[1]hello", "[1]", "", "hello", kSystem},
        Cut{"BlankBehindTheTimeAndNoColon", "..[1] abcd bob left", "[1]", "", " bob left", kSystem},
        Cut{"BlankBehindTheTimeAndLittleElse", "..[1] ab", "[1]", "", "", kSystem},
        Cut{"BlankBeforeColon", "..[1]bob said: this", "[1]", "", "bob said: this", kSystem},
        Cut{"EchoOfAnActionIsAnAction", "..[1] ### alice:() *** waves", "[1]", "alice:", "waves",
            kAction},
        Cut{"ActionWithOtherBrackets", "..[1]alice:xx *** waves", "[1]", "alice:", "waves",
            kAction},
        Cut{"ActionWithNothing", "..[1]alice:() ***", "[1]", "alice:", "", kAction},
        Cut{"ActionKeepsItsBlanks", "..[1]alice:() ***   waves ", "[1]", "alice:", "  waves ",
            kAction},
        Cut{"ActionOfAnIntonationIsAMessage", "..[1]alice:(quietly) *** x", "[1]",
            "alice:", "(quietly) *** x", kMessage},
        Cut{"NoClosingBracket", "..[1]alice:quietly", "[1]", "alice:", " quietly", kMessage},
        Cut{"NothingSaid", "..[1]alice:", "[1]", "alice:", " ", kMessage},
        Cut{"BlanksSaid", "..[1]alice:()    ", "[1]", "alice:", "", kMessage},
        Cut{"BlanksAreTrimmedAtBothSides", "..[1]alice:()   a  b  ", "[1]", "alice:", "a  b",
            kMessage},
        Cut{"BracketInTheText", "..[1]alice:(quietly) a) b", "[1]", "alice:", "(quietly) a) b",
            kMessage},
        Cut{"ACarriageReturnStays", "..[1]alice:() hi \r", "[1]", "alice:", "hi \r", kMessage},
        Cut{"ColonFirst", "..[1]:() hi", "[1]", ":", "hi", kMessage}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(CutChatLineFault, ATimeThatIsNeverClosed) {
  EXPECT_EQ(FaultOf([] { CutChatLine("..[16:45:57 alice:() hello"); }), 5);
}

TEST(CutChatLineFault, AClosingBracketAheadOfTheTime) {
  EXPECT_EQ(FaultOf([] { CutChatLine("].[x]a:() b"); }), 5);
}

struct ParseChatLineTest : testing::Test {
  ParseChatLineTest() {
    for (TabSession& session : client.tabs)
      session.Login = "me";
  }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(ParseChatLineTest, TellsClientActionOfASystemLineOnceAndBeforeItIsWritten) {
  std::vector<Text> told;
  client.hooks.ClientAction = [&](const Text& line, int tab) {
    told.push_back(line);
    EXPECT_EQ(tab, 3);
    EXPECT_EQ(client.tab(3).Rich.Length(), 0);
  };
  ParseChatLine(client, "..[1]bob goes away", 3);
  EXPECT_EQ(told, std::vector<Text>{"bob goes away"});
  EXPECT_EQ(client.tab(3).Rich.Text(), "[1] bob goes away\r\n");
}

TEST_F(ParseChatLineTest, TellsClientActionOfNoOtherKind) {
  client.hooks.ClientAction = [](const Text&, int) { ADD_FAILURE(); };
  ParseChatLine(client, "..[1]a:() b", 0);
  ParseChatLine(client, "..[1] ### a:() b", 0);
  ParseChatLine(client, "..[1]a:() *** b", 0);
  EXPECT_EQ(client.tab(0).Rich.Text(), "[1] a: b\r\n[1] ### a: b\r\n[1] *** b\r\n");
}

TEST_F(ParseChatLineTest, AnUnclosedTimeIsTheCallersFaultAndLosesTheLine) {
  EXPECT_THROW(ParseChatLine(client, "..[1 a:() b", 0), Fault);
  EXPECT_EQ(client.tab(0).Rich.Length(), 0);
  EXPECT_TRUE(platform.files.files.empty());
}

}  // namespace
}  // namespace parlorwire
