#include "service/whois.h"

#include <gtest/gtest.h>

#include "text/cut.h"

namespace parlorwire::service {
namespace {

TEST(AddressKind, EveryBlockOfSpecialAddressesBeginsAndEndsInItsPlace) {
  const struct {
    const char *ahead, *first, *last, *behind;
    Text block;
  } blocks[] = {
      {"", "0.0.0.0", "0.255.255.255", "1.0.0.0", "0.0.0.0/8"},
      {"9.255.255.255", "10.0.0.0", "10.255.255.255", "11.0.0.0", "10.0.0.0/8"},
      {"100.63.255.255", "100.64.0.0", "100.127.255.255", "100.128.0.0", "100.64.0.0/10"},
      {"126.255.255.255", "127.0.0.0", "127.255.255.255", "128.0.0.0", "127.0.0.0/8"},
      {"169.253.255.255", "169.254.0.0", "169.254.255.255", "169.255.0.0", "169.254.0.0/16"},
      {"172.15.255.255", "172.16.0.0", "172.31.255.255", "172.32.0.0", "172.16.0.0/12"},
      {"191.255.255.255", "192.0.0.0", "192.0.0.255", "192.0.1.0", "192.0.0.0/24"},
      {"192.0.1.255", "192.0.2.0", "192.0.2.255", "192.0.3.0", "192.0.2.0/24"},
      {"192.88.98.255", "192.88.99.0", "192.88.99.255", "192.88.100.0", "192.88.99.0/24"},
      {"192.167.255.255", "192.168.0.0", "192.168.255.255", "192.169.0.0", "192.168.0.0/16"},
      {"198.17.255.255", "198.18.0.0", "198.19.255.255", "198.20.0.0", "198.18.0.0/15"},
      {"198.51.99.255", "198.51.100.0", "198.51.100.255", "198.51.101.0", "198.51.100.0/24"},
      {"203.0.112.255", "203.0.113.0", "203.0.113.255", "203.0.114.0", "203.0.113.0/24"},
      {"223.255.255.255", "224.0.0.0", "239.255.255.255", "", "224.0.0.0/4"},
      {"", "240.0.0.0", "255.255.255.255", "", "240.0.0.0/4"},
  };
  for (const auto& each : blocks) {
    for (const char* inside : {each.first, each.last})
      EXPECT_TRUE(AddressKind(inside).ends_with("(" + each.block + ")")) << inside;
    for (const Text outside : {each.ahead, each.behind})
      EXPECT_TRUE(outside.empty() || AddressKind(outside) == "общедоступный адрес"_w) << outside;
  }
}

TEST(AddressKind, AMaskIsOfAKindIfAllItsAddressesAre) {
  EXPECT_EQ(AddressKind("10.*.*.*"), "частная сеть (10.0.0.0/8)"_w);
  EXPECT_EQ(AddressKind("192.168.1.?"), "частная сеть (192.168.0.0/16)"_w);
  EXPECT_EQ(AddressKind("172.2?.*.*"), "частная сеть (172.16.0.0/12)"_w);
  EXPECT_EQ(AddressKind("8.8.*.*"), "общедоступный адрес"_w);
}

TEST(AddressKind, AMaskThatFitsSeveralKindsNamesThem) {
  EXPECT_EQ(AddressKind("172.*.1.1"), "общедоступный адрес или частная сеть (172.16.0.0/12)"_w);
  EXPECT_EQ(AddressKind("192.0.?.1"),
            "общедоступный адрес или назначения протоколов (192.0.0.0/24)"
            " или для примеров (192.0.2.0/24)"_w);
}

TEST(AddressKind, OtherTextsAreNoAddress) {
  for (const char* text : {"", "x", "1.2.3", "1.2.3.4.5", "256.1.1.1", "1.2.3.3??", "1..2.3",
                           "1.2.3.4 ", "1.2.3.<b>", "****************"})
    EXPECT_EQ(AddressKind(text), "это не адрес IPv4"_w) << text;
}

TEST(WhoisPage, NamesTheAddressAndItsKindAndEscapesBoth) {
  const Text page = WhoisPage("10.1.2.3");
  EXPECT_TRUE(Contains(page, "<h1>10.1.2.3</h1>"));
  EXPECT_TRUE(Contains(page, "частная сеть (10.0.0.0/8)"_w));
  EXPECT_FALSE(Contains(WhoisPage("<script>"), "<script>"));
}

}  // namespace
}  // namespace parlorwire::service
