#include "session/error_log.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

struct ErrorLog : testing::Test {
  Text& file() { return platform.files.files["error.log"]; }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(ErrorLog, AFirstEntryCreatesTheFile) {
  platform.time.SetNow({2026, 1, 2, 3, 4, 5});
  WriteErrorLog(client, "Error 5");
  EXPECT_EQ(file(), "[02.01.2026 3:04:05] Error 5\r\n");
}

TEST_F(ErrorLog, FurtherEntriesAreAppended) {
  WriteErrorLog(client, "a");
  WriteErrorLog(client, "b\r\nc");
  EXPECT_EQ(file(), "[21.11.2026 12:00:00] a\r\n[21.11.2026 12:00:00] b\r\nc\r\n");
}

TEST_F(ErrorLog, AFileOf50999BytesIsAppendedToAndOneOf51000IsStartedAnew) {
  file() = Text(50999, 'x');
  WriteErrorLog(client, "a");
  EXPECT_EQ(file(), Text(50999, 'x') + "[21.11.2026 12:00:00] a\r\n");
  file() = Text(51000, 'x');
  WriteErrorLog(client, "a");
  EXPECT_EQ(file(), "[21.11.2026 12:00:00] a\r\n");
}

TEST_F(ErrorLog, ASizeThatCannotBeReadDoesNotEmptyTheFile) {
  struct Sizeless : SimulatedFiles {
    std::int64_t Size(const Text&) const override { throw Fault(fault::kPermissionDenied); }
  };
  Sizeless files;
  files.files["error.log"] = "old\r\n";
  Client other(platform.Ports(files));
  WriteErrorLog(other, "a");
  EXPECT_EQ(files.files["error.log"], "old\r\n[21.11.2026 12:00:00] a\r\n");
}

TEST_F(ErrorLog, AFailureOfTheFileLosesTheEntryAndNothingElse) {
  platform.files.write_fault = 61;
  WriteErrorLog(client, "a");
  platform.files.write_fault.reset();
  WriteErrorLog(client, "b");
  EXPECT_EQ(file(), "[21.11.2026 12:00:00] b\r\n");
}

}  // namespace
}  // namespace parlorwire
