// The client is killed at random moments while it writes logs and settings: what the next start
// finds.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <random>
#include <string>

#include "display/chat_log.h"
#include "platform/posix/posix_files.h"
#include "session/error_log.h"
#include "session/ini.h"
#include "support/simulated_platform.h"
#include "support/temporary_folder.h"

namespace parlorwire {
namespace {

constexpr int kRounds = 40;

// Microseconds, in which a child writes some pieces or none.
int Moment(std::mt19937& random) {
  return static_cast<int>(random() % 2000);
}

// A number that a child and its parent share.
class Shared {
 public:
  Shared()
      : number_(static_cast<std::atomic<int>*>(mmap(nullptr, sizeof(std::atomic<int>),
                                                    PROT_READ | PROT_WRITE,
                                                    MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {}
  ~Shared() { munmap(number_, sizeof(std::atomic<int>)); }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;

  std::atomic<int>& operator*() const { return *number_; }

 private:
  std::atomic<int>* number_;
};

// A client whose files are real, and nothing else.
struct OnDisk {
  explicit OnDisk(const std::filesystem::path& folder) : files(folder) {}

  SimulatedPlatform rest;
  PosixFiles files;
  Client client{rest.Ports(files)};
};

// The pieces of a day: of each line the time, the nick and the text.
Text Piece(int number) {
  switch (number % 3) {
    case 0:
      return "[12:00:00] ";
    case 1:
      return "alice: ";
    default:
      return " line " + std::to_string(number / 3) + "\r\n";
  }
}

constexpr const char* kDayLog = "Logs\\talk\\21.11.2026.log";
constexpr const char* kDayLogOnDisk = "Logs/talk/21.11.2026.log";

TEST(KilledClient, ADayLogLacksNoPieceButTheLast) {
  const TemporaryFolder folder;
  const Shared written;
  std::mt19937 random(1);
  SimulatedPlatform expected;
  Client model(expected.Ports());
  for (int round = 0; round < kRounds; ++round) {
    const int before = *written;
    InChildThatIsKilled(Moment(random), [&] {
      static OnDisk child(folder.path());
      LogChatLine(child.client, Piece(*written), "talk");
      ++*written;
    });
    ASSERT_GT(*written, before);
    for (int number = before; number < *written; ++number)
      LogChatLine(model, Piece(number), "talk");
    const Text found =
        exists(folder.path() / kDayLogOnDisk) ? folder.Content(kDayLogOnDisk) : Text();
    const Text counted = expected.files.files[kDayLog];
    if (found != counted) {
      // It was killed in the write, of which the system may have done a part, or behind it.
      LogChatLine(model, Piece((*written)++), "talk");
      const Text& whole = expected.files.files[kDayLog];
      ASSERT_TRUE(whole.starts_with(found)) << "round " << round << "\n" << found;
      // A piece takes the place of the last byte of the one ahead.
      ASSERT_GE(found.size() + 1, counted.size()) << "round " << round;
      folder.Put(kDayLogOnDisk, whole);
    }
  }
}

TEST(KilledClient, SettingsAreThoseOfBeforeOrAfterAWrite) {
  const TemporaryFolder folder;
  Text settings = "; written by hand\r\n[Main]\r\n";
  for (int i = 0; i < 300; ++i)
    settings += "Key" + std::to_string(i) + "=value\r\n";
  folder.Put("config.ini", settings);
  const Shared written;
  std::mt19937 random(2);
  for (int round = 0; round < kRounds; ++round) {
    const int before = *written;
    InChildThatIsKilled(Moment(random), [&] {
      static OnDisk child(folder.path());
      WriteIni(child.client, "Main", "lastIndex", std::to_string(*written + 1));
      ++*written;
    });
    OnDisk restarted(folder.path());
    const Text index = ReadIni(restarted.client, "Main", "lastIndex");
    const int found = index.empty() ? 0 : std::stoi(index);
    ASSERT_TRUE(found == *written || found == *written + 1) << index << " of " << *written;
    ASSERT_GT(found, before);
    *written = found;
    Text whole = settings;
    if (found > 0) whole += "lastIndex=" + index + "\r\n";
    ASSERT_EQ(folder.Content("config.ini"), whole);
  }
}

TEST(KilledClient, AnErrorLogThatStartsAnewLacksNothingButOfItsLastEntry) {
  const TemporaryFolder folder;
  const Shared written;
  std::mt19937 random(3);
  SimulatedPlatform expected;
  Client model(expected.Ports());
  const auto entry = [](int number) { return Text(3000, 'e') + std::to_string(number); };
  for (int round = 0; round < kRounds; ++round) {
    const int before = *written;
    InChildThatIsKilled(Moment(random), [&] {
      static OnDisk child(folder.path());
      WriteErrorLog(child.client, entry(*written));
      ++*written;
    });
    ASSERT_GT(*written, before);
    for (int number = before; number < *written; ++number)
      WriteErrorLog(model, entry(number));
    const Text found = exists(folder.path() / "error.log") ? folder.Content("error.log") : Text();
    const Text counted = expected.files.files["error.log"];
    if (found != counted) {
      WriteErrorLog(model, entry((*written)++));
      const Text& whole = expected.files.files["error.log"];
      ASSERT_TRUE(whole.starts_with(found)) << "round " << round;
      const bool starts_anew = whole.size() < counted.size();
      ASSERT_TRUE(starts_anew || found.size() >= counted.size()) << "round " << round;
      folder.Put("error.log", whole);
    }
  }
}

}  // namespace
}  // namespace parlorwire
