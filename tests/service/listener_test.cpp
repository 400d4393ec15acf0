#include "service/listener.h"

#include <gtest/gtest.h>

#include <system_error>

#include "running_server.h"

namespace parlorwire::service {
namespace {

TEST(Listener, TakesAFreePortAndTellsWhoComes) {
  Listener listener("127.0.0.1", 0);
  EXPECT_NE(listener.port(), 0);
  EXPECT_FALSE(listener.Accept().has_value());
  const Peer peer(listener.port());
  const auto accepted = listener.Accept();
  ASSERT_TRUE(accepted.has_value());
  EXPECT_EQ(accepted->address, "127.0.0.1");
  close(accepted->fd);
}

TEST(Listener, APortThatIsTakenIsAnError) {
  const Listener listener("127.0.0.1", 0);
  EXPECT_THROW(Listener("127.0.0.1", listener.port()), std::system_error);
}

TEST(Listener, AnAddressThatIsNoneIsAnError) {
  EXPECT_THROW(Listener("localhost", 0), std::system_error);
  EXPECT_THROW(Listener("", 0), std::system_error);
}

}  // namespace
}  // namespace parlorwire::service
