#include "bot/ip_log.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

struct IpLog : testing::Test {
  SeenBefore Log(const Text& nick, const Text& address) {
    return LogNickAtAddress(client, nick, address);
  }
  void Load(const Text& content) {
    file() = content;
    LoadIpLog(client);
  }
  Text& log() { return client.app.IpLogText; }
  Text& file() { return platform.files.files["IPlog.log"]; }
  Text ErrorLog() { return platform.files.files["error.log"]; }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

// ---- the text ----

TEST_F(IpLog, TheFirstEntryStandsBehindALineEnd) {
  const SeenBefore seen = Log("Alpha", "10.0.0.7");
  EXPECT_FALSE(seen.address);
  EXPECT_EQ(log(), "\r\n10.0.0.7 Alpha");
  EXPECT_EQ(file(), "\r\n10.0.0.7 Alpha");
}

TEST_F(IpLog, ANewAddressGetsALineAtTheEnd) {
  Load("\r\n10.0.0.7 Alpha");
  Log("Beta", "10.0.0.8");
  EXPECT_EQ(log(), "\r\n10.0.0.7 Alpha\r\n10.0.0.8 Beta");
  EXPECT_EQ(file(), log());
}

TEST_F(IpLog, ANewNickStandsBehindTheOthersOfItsAddress) {
  Load("\r\n10.0.0.7 Alpha Beta\r\n10.0.0.8 Delta");
  const SeenBefore seen = Log("Gamma", "10.0.0.7");
  EXPECT_TRUE(seen.address);
  EXPECT_FALSE(seen.nick);
  EXPECT_EQ(seen.others, "Alpha Beta");
  EXPECT_EQ(log(), "\r\n10.0.0.7 Alpha Beta Gamma\r\n10.0.0.8 Delta");
  EXPECT_EQ(file(), log());
}

TEST_F(IpLog, TheLastLineEndsWithTheText) {
  Load("\r\n10.0.0.7 Alpha\r\n10.0.0.8 Delta");
  EXPECT_EQ(Log("Beta", "10.0.0.8").others, "Delta");
  EXPECT_EQ(log(), "\r\n10.0.0.7 Alpha\r\n10.0.0.8 Delta Beta");
  EXPECT_EQ(file(), log());
}

TEST_F(IpLog, ANickThatStandsThereInAnyCaseChangesNothing) {
  const Text text = "\r\n10.0.0.7 Alpha Beta Gamma\r\n10.0.0.8 Beta";
  Load(text);
  for (const auto& [nick, others] :
       {std::pair{"BETA", "Alpha Gamma"}, {"alpha", "Beta Gamma"}, {"Gamma", "Alpha Beta"}}) {
    const SeenBefore seen = Log(nick, "10.0.0.7");
    EXPECT_TRUE(seen.nick) << nick;
    EXPECT_EQ(seen.others, others);
  }
  EXPECT_EQ(Log("beta", "10.0.0.8").others, "");
  EXPECT_EQ(log(), text);
  EXPECT_EQ(platform.files.writes, 0);
}

TEST_F(IpLog, APartOfANickIsAnother) {
  Load("\r\n10.0.0.7 Alphabet");
  EXPECT_FALSE(Log("Alpha", "10.0.0.7").nick);
  EXPECT_EQ(log(), "\r\n10.0.0.7 Alphabet Alpha");
}

TEST_F(IpLog, AnAddressIsAlsoFoundInsideALongerOne) {
  Load("\r\n110.0.0.77 Alpha");
  EXPECT_EQ(Log("Beta", "10.0.0.7").others, "Alpha");
  EXPECT_EQ(log(), "\r\n110.0.0.77 Alpha Beta");
}

TEST_F(IpLog, AnAddressThatStandsAloneHasNoNicks) {
  Load("10.0.0.7\r\n10.0.0.8 Beta\r\n10.0.0.9");
  const SeenBefore seen = Log("Alpha", "10.0.0.7");
  EXPECT_TRUE(seen.address);
  EXPECT_EQ(seen.others, "");
  Log("Gamma", "10.0.0.9");
  EXPECT_EQ(log(), "10.0.0.7 Alpha\r\n10.0.0.8 Beta\r\n10.0.0.9 Gamma");
  EXPECT_EQ(file(), log());
}

// ---- the file ----

TEST_F(IpLog, WithoutAFileTheLogIsEmpty) {
  log() = "old";
  LoadIpLog(client);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(platform.files.files.size(), 0U);
}

TEST_F(IpLog, AfterARestartTheLogGoesOn) {
  Log("Alpha", "10.0.0.7");
  Log("Beta", "10.0.0.8");
  Client later(platform.Ports());
  LoadIpLog(later);
  EXPECT_EQ(LogNickAtAddress(later, "Gamma", "10.0.0.7").others, "Alpha");
  EXPECT_EQ(file(), "\r\n10.0.0.7 Alpha Gamma\r\n10.0.0.8 Beta");
}

TEST_F(IpLog, AFileThatWasDeletedMeanwhileComesBackWhole) {
  Load("\r\n10.0.0.7 Alpha");
  platform.files.files.erase("IPlog.log");
  Log("Beta", "10.0.0.8");
  EXPECT_EQ(file(), "\r\n10.0.0.7 Alpha\r\n10.0.0.8 Beta");
}

TEST_F(IpLog, AFileThatWasChangedMeanwhileIsWrittenWhole) {
  Load("\r\n10.0.0.7 Alpha");
  file() += "junk";
  Log("Beta", "10.0.0.8");
  EXPECT_EQ(file(), "\r\n10.0.0.7 Alpha\r\n10.0.0.8 Beta");
}

TEST_F(IpLog, AFileThatWasCutWhereTheNickBelongsIsWrittenWhole) {
  Load("\r\n10.0.0.7 Alpha\r\n10.0.0.8 Delta");
  file() = "\r\n10.0.0.7 Alpha";
  Log("Beta", "10.0.0.7");
  EXPECT_EQ(file(), "\r\n10.0.0.7 Alpha Beta\r\n10.0.0.8 Delta");
}

TEST_F(IpLog, OnAFullDiskTheTextStaysInMemoryAndTheNextChangeWritesAllOfIt) {
  Load("\r\n10.0.0.7 Alpha");
  platform.files.write_fault = fault::kDiskFull;
  Log("Beta", "10.0.0.8");
  Log("Gamma", "10.0.0.7");
  EXPECT_EQ(log(), "\r\n10.0.0.7 Alpha Gamma\r\n10.0.0.8 Beta");
  EXPECT_EQ(file(), "\r\n10.0.0.7 Alpha");
  platform.files.write_fault.reset();
  Log("Delta", "10.0.0.9");
  EXPECT_EQ(file(), "\r\n10.0.0.7 Alpha Gamma\r\n10.0.0.8 Beta\r\n10.0.0.9 Delta");
  EXPECT_EQ(file(), log());
}

TEST_F(IpLog, AnAdditionThatWasCutShortIsWrittenWholeNextTime) {
  struct Torn : SimulatedFiles {
    void Append(const Text& name, const Text& bytes) override {
      files[name] += bytes.substr(0, 3);
      throw Fault(fault::kDiskFull);
    }
  } torn;
  Client other(platform.Ports(torn));
  torn.files["IPlog.log"] = "\r\n10.0.0.7 Alpha";
  LoadIpLog(other);
  LogNickAtAddress(other, "Beta", "10.0.0.8");
  EXPECT_EQ(torn.files["IPlog.log"], "\r\n10.0.0.7 Alpha\r\n1");
  LogNickAtAddress(other, "Gamma", "10.0.0.8");
  EXPECT_EQ(torn.files["IPlog.log"], "\r\n10.0.0.7 Alpha\r\n10.0.0.8 Beta Gamma");
}

TEST_F(IpLog, AnAdditionAtTheEndIsWrittenAloneAndAnyOtherChangeInAFileThatTakesThePlace) {
  struct Watched : SimulatedFiles {
    void Append(const Text& name, const Text& bytes) override {
      appended += bytes;
      SimulatedFiles::Append(name, bytes);
    }
    void ReplaceUnflushed(const Text& name, const Text& content) override {
      ++replaced;
      SimulatedFiles::ReplaceUnflushed(name, content);
    }
    Text appended;
    int replaced = 0;
  } watched;
  Client other(platform.Ports(watched));
  watched.files["IPlog.log"] = "\r\n10.0.0.7 Alpha";
  LoadIpLog(other);
  LogNickAtAddress(other, "Beta", "10.0.0.8");
  LogNickAtAddress(other, "Gamma", "10.0.0.8");
  EXPECT_EQ(watched.appended, "\r\n10.0.0.8 Beta Gamma");
  EXPECT_EQ(watched.replaced, 0);
  LogNickAtAddress(other, "Delta", "10.0.0.7");
  EXPECT_EQ(watched.replaced, 1);
  EXPECT_EQ(watched.files["IPlog.log"], "\r\n10.0.0.7 Alpha Delta\r\n10.0.0.8 Beta Gamma");
}

TEST_F(IpLog, AFailureIsNotedInErrorLog) {
  struct ReadOnly : SimulatedFiles {
    void ReplaceUnflushed(const Text&, const Text&) override {
      throw Fault(fault::kPermissionDenied);
    }
  } read_only;
  Client other(platform.Ports(read_only));
  LogNickAtAddress(other, "Beta", "10.0.0.8");
  EXPECT_TRUE(read_only.files["error.log"].ends_with(
      "Error 70 Permission denied. Function: SayBotFunction.\r\n"));
}

TEST_F(IpLog, AFileThatCouldNotBeReadIsNeverWritten) {
  platform.files.unreadable.insert("IPlog.log");
  Load("precious");
  EXPECT_EQ(log(), "");
  Log("Alpha", "10.0.0.7");
  EXPECT_EQ(Log("Beta", "10.0.0.7").others, "Alpha");
  EXPECT_EQ(file(), "precious");
  EXPECT_EQ(ErrorLog(), "");
}

TEST_F(IpLog, AFileTooLargeForALogCountsAsUnreadable) {
  Load(Text(64 * 1024 * 1024 + 1, 'x'));
  EXPECT_EQ(log(), "");
  Log("Alpha", "10.0.0.7");
  EXPECT_EQ(file().size(), 64U * 1024 * 1024 + 1);
}

TEST_F(IpLog, GarbageOfAnySizeStaysAsItIs) {
  Text garbage;
  for (int i = 0; i < 200000; ++i)
    garbage += static_cast<char>(i * 31 + i / 251);
  for (const Text& content : {garbage, Text(20'000'000, '\0'), Text(20'000'000, ' '),
                              Text("\n\n\r\r"), Text("10.0.0.7")}) {
    Load(content);
    Log("Alpha", "10.0.0.7");
    EXPECT_TRUE(log().starts_with(content));
    EXPECT_EQ(file(), log());
  }
}

}  // namespace
}  // namespace parlorwire
