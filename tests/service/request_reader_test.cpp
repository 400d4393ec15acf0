#include "service/request_reader.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

namespace parlorwire::service {
namespace {

using State = RequestReader::State;

constexpr std::string_view kLogin =
    "POST / HTTP/1.0\r\nHost: chat:8080\r\nReferer: Localhost\r\nUser-Agent: Parlorwire SE\r\n"
    "Content-Type: application/x-www-form-urlencoded\r\nContent-Length: 18\r\n\r\n"
    "username=a&passwd=";

RequestReader After(std::string_view bytes) {
  RequestReader reader;
  Feed(reader, bytes);
  return reader;
}

TEST(RequestReader, ReadsAFormPost) {
  const RequestReader reader = After(kLogin);
  ASSERT_EQ(reader.state, State::kDone);
  EXPECT_EQ(reader.request.method, "POST");
  EXPECT_EQ(reader.request.path, "/");
  EXPECT_EQ(reader.request.query, "");
  EXPECT_EQ(reader.request.host, "chat:8080");
  EXPECT_EQ(reader.request.body, "username=a&passwd=");
}

TEST(RequestReader, GivesTheSameHoweverTheBytesAreCut) {
  for (std::size_t cut = 1; cut < kLogin.size(); ++cut) {
    RequestReader reader;
    for (std::size_t at = 0; at < kLogin.size(); at += cut) {
      EXPECT_NE(reader.state, State::kDone) << cut;
      Feed(reader, kLogin.substr(at, cut));
    }
    ASSERT_EQ(reader.state, State::kDone) << cut;
    EXPECT_EQ(reader.request.body, "username=a&passwd=") << cut;
  }
}

TEST(RequestReader, ReadsTheFormThatProxiesAreSent) {
  const RequestReader reader = After("GET http://localhost:8080/banlist?a=b%20c HTTP/1.0\r\n\r\n");
  ASSERT_EQ(reader.state, State::kDone);
  EXPECT_EQ(reader.request.path, "/banlist");
  EXPECT_EQ(reader.request.query, "a=b%20c");
  EXPECT_EQ(reader.request.host, "localhost:8080");
}

TEST(RequestReader, AProxyFormWithoutAPathIsTheRoot) {
  EXPECT_EQ(After("GET http://localhost HTTP/1.0\r\n\r\n").request.path, "/");
  EXPECT_EQ(After("GET http://localhost?x=1 HTTP/1.0\r\n\r\n").request.query, "x=1");
}

TEST(RequestReader, AcceptsBareLineFeedsAndLineEndsAhead) {
  const RequestReader reader = After("\r\n\nGET / HTTP/1.1\nHost: h\n\n");
  ASSERT_EQ(reader.state, State::kDone);
  EXPECT_EQ(reader.request.host, "h");
}

TEST(RequestReader, DropsWhatComesBehindTheBody) {
  RequestReader reader = After("POST / HTTP/1.0\r\nContent-Length: 2\r\n\r\nabcd");
  Feed(reader, "more");
  ASSERT_EQ(reader.state, State::kDone);
  EXPECT_EQ(reader.request.body, "ab");
}

TEST(RequestReader, WaitsForTheRestOfTheBody) {
  RequestReader reader = After("POST / HTTP/1.0\r\nContent-Length: 4\r\n\r\nab");
  EXPECT_EQ(reader.state, State::kBody);
  Feed(reader, "cd");
  EXPECT_EQ(reader.state, State::kDone);
}

TEST(RequestReader, KeepsTheForwardedAddress) {
  EXPECT_EQ(After("GET / HTTP/1.0\r\nx-forwarded-for:  10.0.0.7 \r\n\r\n").request.forwarded_for,
            "10.0.0.7");
}

struct BadRequest {
  std::string bytes;
  int status;
};

void PrintTo(const BadRequest& bad, std::ostream* out) {
  *out << testing::PrintToString(bad.bytes.substr(0, 40));
}

class RequestReaderRefuses : public testing::TestWithParam<BadRequest> {};

TEST_P(RequestReaderRefuses, WithItsStatus) {
  const RequestReader reader = After(GetParam().bytes);
  EXPECT_EQ(reader.state, State::kFailed);
  EXPECT_EQ(reader.error, GetParam().status);
}

INSTANTIATE_TEST_SUITE_P(
    All, RequestReaderRefuses,
    testing::Values(
        BadRequest{"hello\r\n\r\n", 400}, BadRequest{"GET /\r\n\r\n", 400},
        BadRequest{"GET x HTTP/1.0\r\n\r\n", 400}, BadRequest{"GET http:// HTTP/1.0\r\n\r\n", 400},
        BadRequest{"GET / FTP/1.0\r\n\r\n", 400}, BadRequest{"GET / HTTP/2.0\r\n\r\n", 505},
        BadRequest{"PUT / HTTP/1.0\r\n\r\n", 405}, BadRequest{"POST / HTTP/1.0\r\n\r\n", 411},
        BadRequest{"GET / HTTP/1.0\r\nno colon\r\n\r\n", 400},
        BadRequest{"GET / HTTP/1.0\r\n: empty\r\n\r\n", 400},
        BadRequest{"GET / HTTP/1.0\r\nA : b\r\n\r\n", 400},
        BadRequest{std::string("GET / HTTP/1.0\r\nA: \0\r\n\r\n", 24), 400},
        BadRequest{"POST / HTTP/1.0\r\nContent-Length: -1\r\n\r\n", 400},
        BadRequest{"POST / HTTP/1.0\r\nContent-Length: 1\r\nContent-Length: 2\r\n\r\n", 400},
        BadRequest{"POST / HTTP/1.0\r\nContent-Length: 65537\r\n\r\n", 413},
        BadRequest{"POST / HTTP/1.0\r\nContent-Length: 99999999999999999999999\r\n\r\n", 413},
        BadRequest{"POST / HTTP/1.0\r\nTransfer-Encoding: chunked\r\n\r\n", 501},
        BadRequest{"GET / HTTP/1.0\r\nX: " + std::string(20000, 'y') + "\r\n\r\n", 431},
        BadRequest{std::string(20000, 'y'), 431}));

TEST(RequestReader, HoldsNoMoreThanItsLimits) {
  RequestReader reader;
  for (int i = 0; i < 1000; ++i) {
    Feed(reader, std::string(100, 'y'));
    ASSERT_LE(reader.buffer.size(), reader.limits.head + 1);
  }
  EXPECT_EQ(reader.state, State::kFailed);
  EXPECT_TRUE(reader.buffer.empty());
}

}  // namespace
}  // namespace parlorwire::service
