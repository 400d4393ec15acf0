#include "display/smiles.h"

#include <gtest/gtest.h>

#include "support/resource_file.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

struct LoadSmilesTest : testing::Test {
  void Load() {
    platform.files.files["smiles.dll"] = file.Bytes();
    LoadSmiles(client);
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  AppState& app = client.app;
  ResourceFile file;
};

TEST_F(LoadSmilesTest, EachLineStandsBehindALineBreak) {
  file.String(101, u"3");
  file.String(102, u":) :-)");
  file.String(104, u" роза ");
  file.String(105, u"not counted");
  Load();
  EXPECT_EQ(app.SmileTable, "\r\n:) :-)\r\n\r\n роза "_w);
  EXPECT_EQ(app.SmileCount, 3);
}

TEST_F(LoadSmilesTest, WithoutTheFileThereAreNoneAndNobodyIsTold) {
  LoadSmiles(client);
  EXPECT_EQ(app.SmileTable, "");
  EXPECT_EQ(app.SmileCount, 0);
  EXPECT_TRUE(platform.files.files.empty());
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

TEST_F(LoadSmilesTest, AnUnreadableLibraryIsOneEntryInTheLogAndNoMessage) {
  platform.files.files["smiles.dll"] = "no library";
  LoadSmiles(client);
  EXPECT_EQ(app.SmileTable, "");
  EXPECT_EQ(platform.files.files["error.log"],
            "[21.11.2026 12:00:00] Error 48 193 while trying to load the file 'smiles.dll'. "
            "Function: LoadSmiles\r\n");
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

TEST_F(LoadSmilesTest, ACountThatIsNoNumberIsAnEntryInTheLog) {
  file.String(101, u"many");
  file.String(102, u":)");
  Load();
  EXPECT_EQ(app.SmileTable, "");
  EXPECT_EQ(app.SmileCount, 0);
  EXPECT_TRUE(Contains(platform.files.files["error.log"], "Error 13 Type mismatch"));
}

TEST_F(LoadSmilesTest, ANegativeCountIsNone) {
  file.String(101, u"-1");
  file.String(102, u":)");
  Load();
  EXPECT_EQ(app.SmileTable, "");
}

TEST_F(LoadSmilesTest, ASecondLoadReplacesTheFirst) {
  file.String(101, u"1");
  file.String(102, u":)");
  Load();
  file.String(102, u":(");
  Load();
  EXPECT_EQ(app.SmileTable, "\r\n:(");
}

TEST_F(LoadSmilesTest, AllLinesThatACountCanNameAreRead) {
  file.String(101, u"32767");
  file.String(101 + 32767, u"last");
  Load();
  EXPECT_EQ(app.SmileCount, 32767);
  EXPECT_TRUE(app.SmileTable.ends_with("\r\nlast"));
  EXPECT_EQ(std::ssize(Split(app.SmileTable, "\r\n")), 32768);
}

}  // namespace
}  // namespace parlorwire
