#include "service/command_line.h"

#include <gtest/gtest.h>

#include <vector>

#include "text/cut.h"

namespace parlorwire::service {
namespace {

ServerOptions Good(const std::vector<const char*>& arguments) {
  const auto line = ReadCommandLine(arguments);
  const auto* good = std::get_if<CommandLine>(&line);
  EXPECT_NE(good, nullptr) << std::get<std::string>(line);
  return good == nullptr ? ServerOptions{} : good->options;
}

std::string Bad(const std::vector<const char*>& arguments) {
  const auto line = ReadCommandLine(arguments);
  const auto* wrong = std::get_if<std::string>(&line);
  return wrong == nullptr ? "" : *wrong;
}

TEST(CommandLine, HasDefaults) {
  const ServerOptions options = Good({});
  EXPECT_EQ(options.address, "127.0.0.1");
  EXPECT_EQ(options.port, 0);
  EXPECT_TRUE(options.inhabitants.present);
  EXPECT_EQ(options.chat.keep_alive_ms, 30000);
  EXPECT_FALSE(options.control);
}

TEST(CommandLine, TakesEveryOption) {
  const ServerOptions options = Good({"--port",
                                      "8080",
                                      "--address=0.0.0.0",
                                      "--quiet",
                                      "--talk",
                                      "50",
                                      "--visits=20",
                                      "--talk-lines",
                                      "700",
                                      "--talk-frames=3",
                                      "--talk-length",
                                      "70",
                                      "--patient",
                                      "--keepalive",
                                      "5",
                                      "--history=7",
                                      "--grace",
                                      "2",
                                      "--kick-time",
                                      "9",
                                      "--max-frames",
                                      "11",
                                      "--max-connections",
                                      "12",
                                      "--channels",
                                      "Кухня, hall",
                                      "--ban",
                                      "10.*,troll",
                                      "--admin",
                                      "root",
                                      "--trusted-proxy=10.7.*",
                                      "--max-accounts=13",
                                      "--accounts-per-address=14",
                                      "--account-idle=15",
                                      "--frames-per-nick=16",
                                      "--frames-per-address=17",
                                      "--connections-per-address=18",
                                      "--history-kilobytes=19",
                                      "--personal-kilobytes=20",
                                      "--turn-kilobytes=21",
                                      "--login-rate=22",
                                      "--post-rate=23",
                                      "--personal-rate=24",
                                      "--guess-wait=25",
                                      "--post-rate-per-address=26",
                                      "--waiting-megabytes=27",
                                      "--seed",
                                      "3",
                                      "--form-b",
                                      "--misbehave",
                                      "cut:99"});
  EXPECT_EQ(options.port, 8080);
  EXPECT_EQ(options.address, "0.0.0.0");
  EXPECT_FALSE(options.inhabitants.present);
  EXPECT_EQ(options.inhabitants.visit_ms, 20000);
  EXPECT_EQ(options.inhabitants.talk, 50);
  EXPECT_EQ(options.inhabitants.talk_lines, 700);
  EXPECT_EQ(options.inhabitants.talk_frames, 3U);
  EXPECT_EQ(options.inhabitants.talk_length, 70);
  EXPECT_TRUE(options.inhabitants.patient);
  EXPECT_EQ(options.inhabitants.channels, (std::vector<Text>{"Кухня"_w, "hall"}));
  EXPECT_EQ(options.chat.keep_alive_ms, 5000);
  EXPECT_EQ(options.chat.history, 7);
  EXPECT_EQ(options.chat.grace_ms, 2000);
  EXPECT_EQ(options.chat.kick_ms, 9000);
  EXPECT_EQ(options.chat.most_frames, 11U);
  EXPECT_EQ(options.most_connections, 12U);
  EXPECT_EQ(options.chat.banned, (std::vector<Text>{"10.*", "troll"}));
  EXPECT_EQ(options.chat.admins, std::vector<Text>{"root"});
  EXPECT_EQ(options.chat.trusted_proxies, std::vector<Text>{"10.7.*"});
  EXPECT_EQ(options.chat.most_accounts, 13U);
  EXPECT_EQ(options.chat.limits.accounts_of_address, 14U);
  EXPECT_EQ(options.chat.limits.account_idle_ms, 15 * 3600 * 1000);
  EXPECT_EQ(options.chat.limits.frames_of_account, 16U);
  EXPECT_EQ(options.chat.limits.frames_of_address, 17U);
  EXPECT_EQ(options.connections_of_address, 18U);
  EXPECT_EQ(options.chat.limits.history_bytes, 19U * 1024);
  EXPECT_EQ(options.chat.limits.personal_bytes, 20U * 1024);
  EXPECT_EQ(options.bytes_a_turn, 21U * 1024);
  EXPECT_EQ(options.chat.limits.logins, 22);
  EXPECT_EQ(options.chat.limits.posts, 23);
  EXPECT_EQ(options.chat.limits.personal, 24);
  EXPECT_EQ(options.chat.limits.longest_guess_wait_ms, 25000);
  EXPECT_EQ(options.chat.limits.posts_of_address, 26);
  EXPECT_EQ(options.most_waiting_of_all, 27U * 1024 * 1024);
  EXPECT_EQ(options.seed, 3U);
  EXPECT_TRUE(options.chat.form_b);
  EXPECT_EQ(options.misbehaviour.kind, MisbehaviourKind::kCut);
  EXPECT_EQ(options.misbehaviour.number, 99);
  EXPECT_TRUE(options.control);
}

TEST(CommandLine, SaysWhatIsWrong) {
  EXPECT_EQ(Bad({"--nonsense"}), "unknown option: --nonsense");
  EXPECT_EQ(Bad({"--port"}), "--port needs a value");
  EXPECT_EQ(Bad({"--port", "65536"}), "bad value for --port: 65536");
  EXPECT_EQ(Bad({"--port", "-1"}), "bad value for --port: -1");
  EXPECT_EQ(Bad({"--keepalive", "0"}), "bad value for --keepalive: 0");
  EXPECT_EQ(Bad({"--history", "201"}), "bad value for --history: 201");
  EXPECT_EQ(Bad({"--turn-kilobytes", "0"}), "bad value for --turn-kilobytes: 0");
  EXPECT_EQ(Bad({"--form-b=1"}), "--form-b takes no value");
  EXPECT_EQ(Bad({"--channels", "a:b"}), "bad value for --channels: a:b");
  EXPECT_EQ(Bad({"--misbehave", "wild"}), "bad value for --misbehave: wild");
}

TEST(CommandLine, HelpNamesEveryOption) {
  const auto line = ReadCommandLine(std::vector<const char*>{"--help"});
  EXPECT_TRUE(std::get<CommandLine>(line).help);
  for (const char* option : {"--port",
                             "--address",
                             "--quiet",
                             "--no-inhabitants",
                             "--visits",
                             "--talk",
                             "--talk-lines",
                             "--talk-frames",
                             "--talk-length",
                             "--patient",
                             "--keepalive",
                             "--history",
                             "--grace",
                             "--kick-time",
                             "--max-frames",
                             "--max-connections",
                             "--channels",
                             "--ban",
                             "--admin",
                             "--seed",
                             "--form-b",
                             "--misbehave",
                             "--help",
                             "--trusted-proxy",
                             "--max-accounts",
                             "--accounts-per-address",
                             "--account-idle",
                             "--frames-per-nick",
                             "--frames-per-address",
                             "--connections-per-address",
                             "--history-kilobytes",
                             "--personal-kilobytes",
                             "--turn-kilobytes",
                             "--login-rate",
                             "--post-rate",
                             "--personal-rate",
                             "--guess-wait",
                             "--post-rate-per-address",
                             "--waiting-megabytes"})
    EXPECT_TRUE(Contains(HelpText(), option)) << option;
}

}  // namespace
}  // namespace parlorwire::service
