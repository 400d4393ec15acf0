#include "session/user_records.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

UserRecords Three() {
  UserRecords users;
  users.Append("Malice", "10.0.0.1", "[+A]", "loves bob");
  users.Append("alice", "10.0.0.2", "[+o]", "");
  users.Append("bob", "", "", "");
  return users;
}

TEST(UserRecords, AreOneText) {
  UserRecords users = Three();
  EXPECT_EQ(users.text(),
            "\r\nMalice\n10.0.0.1\n[+A]\nloves bob\r\nalice\n10.0.0.2\n[+o]\n\r\nbob\n\n\n");
  users.Clear();
  EXPECT_EQ(users.text(), "");
  EXPECT_EQ(users.Find("bob"), 0);
}

TEST(UserRecords, TheFirstPlaceCountsWhateverItStandsIn) {
  const UserRecords users = Three();
  EXPECT_EQ(users.Find("ALICE"), 4);  // in another nick
  EXPECT_EQ(users.Find("bob"), 30);   // in a status
  EXPECT_EQ(users.Find("\r\nAlice\n"), 33);
  EXPECT_EQ(users.Find("carl"), 0);
}

TEST(UserRecords, APlaceIsFoundAnewInAnotherText) {
  UserRecords users = Three();
  EXPECT_EQ(users.Find("bob"), 30);
  EXPECT_EQ(users.Find("carl"), 0);
  users.Append("Carl", "", "", "");
  EXPECT_EQ(users.Find("carl"), Len(Three().text()) + 3);
  users.Clear();
  users.Append("Bob", "", "", "");
  EXPECT_EQ(users.Find("bob"), 3);
}

TEST(UserRecords, TheFlagsOfARecordAreFoundFromAnyPlaceInItsNick) {
  const UserRecords users = Three();
  for (Position at = 3; at <= 8; ++at)
    EXPECT_EQ(users.FlagsOfRecord(at), "[+A]") << at;
  EXPECT_EQ(users.FlagsOfRecord(users.Find("\r\nbob") + 2), "");
  EXPECT_EQ(UserRecords().FlagsOfRecord(1), "");
}

TEST(UserRecords, ChatLinesTakeTheAddressForTheFlagsUnlessTheNickEndsThere) {
  UserRecords users;
  users.Append("alice", "10.0.0.2", "[+o]", "busy");
  const auto flags = [&](std::string_view nick) {
    return users.FlagsBehind(users.Find(nick), Len(nick));
  };
  EXPECT_EQ(flags("alice"), "[+o]");
  EXPECT_EQ(flags("ice"), "[+o]");
  EXPECT_EQ(flags("alic"), "10.0.0.2");
  EXPECT_EQ(flags("ali"), "10.0.0.2");
  EXPECT_EQ(flags("busy"), "");
}

}  // namespace
}  // namespace parlorwire
