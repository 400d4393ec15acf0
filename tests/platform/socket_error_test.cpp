#include "platform/socket_error.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <ostream>
#include <string>

namespace parlorwire {
namespace {

struct ErrnoRow {
  const char* name;
  int error;
  int number;
};

void PrintTo(const ErrnoRow& row, std::ostream* out) {
  *out << row.name << " is " << row.number;
}

class SocketErrorOfErrno : public testing::TestWithParam<ErrnoRow> {};

TEST_P(SocketErrorOfErrno, IsTheWindowsNumber) {
  EXPECT_EQ(SocketErrorFromErrno(GetParam().error), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    AllRows, SocketErrorOfErrno,
    testing::Values(
        ErrnoRow{"EACCES", EACCES, 10013}, ErrnoRow{"EPERM", EPERM, 10013},
        ErrnoRow{"EMFILE", EMFILE, 10024}, ErrnoRow{"ENFILE", ENFILE, 10024},
        ErrnoRow{"EADDRNOTAVAIL", EADDRNOTAVAIL, 10049}, ErrnoRow{"ENETDOWN", ENETDOWN, 10050},
        ErrnoRow{"ENETUNREACH", ENETUNREACH, 10051}, ErrnoRow{"EPIPE", EPIPE, 10053},
        ErrnoRow{"ECONNABORTED", ECONNABORTED, 10053}, ErrnoRow{"ECONNRESET", ECONNRESET, 10054},
        ErrnoRow{"ENOBUFS", ENOBUFS, 10055}, ErrnoRow{"ENOMEM", ENOMEM, 10055},
        ErrnoRow{"ETIMEDOUT", ETIMEDOUT, 10060}, ErrnoRow{"ECONNREFUSED", ECONNREFUSED, 10061},
        ErrnoRow{"EHOSTUNREACH", EHOSTUNREACH, 10065}, ErrnoRow{"EINVAL", EINVAL, 10022},
        ErrnoRow{"EAFNOSUPPORT", EAFNOSUPPORT, 10022}, ErrnoRow{"none", 0, 10022},
        ErrnoRow{"unheard", 99999, 10022}),
    [](const auto& row) { return std::string(row.param.name); });

struct DescriptionRow {
  int number;
  const char* description;
};

void PrintTo(const DescriptionRow& row, std::ostream* out) {
  *out << row.number;
}

class SocketErrorDescriptionOf : public testing::TestWithParam<DescriptionRow> {};

TEST_P(SocketErrorDescriptionOf, IsTheClassicText) {
  EXPECT_EQ(SocketErrorDescription(GetParam().number), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(
    AllNumbers, SocketErrorDescriptionOf,
    testing::Values(DescriptionRow{10013, "Permission denied"},
                    DescriptionRow{10022, "Invalid argument"},
                    DescriptionRow{10024, "Too many open sockets"},
                    DescriptionRow{10049, "Address not available from the local machine"},
                    DescriptionRow{10050, "Network subsystem failed"},
                    DescriptionRow{10051,
                                   "The network cannot be reached from this host at this time"},
                    DescriptionRow{10053, "Connection is aborted due to timeout or other failure"},
                    DescriptionRow{10054, "The connection is reset by remote side"},
                    DescriptionRow{10055, "No buffer space is available"},
                    DescriptionRow{10060, "The attempt to connect timed out"},
                    DescriptionRow{10061, "Connection is forcefully rejected"},
                    DescriptionRow{10065, "No route to host"},
                    DescriptionRow{11001, "Authoritative answer: Host not found"},
                    DescriptionRow{11002, "Non-Authoritative answer: Host not found"},
                    DescriptionRow{0, "Unknown error"}, DescriptionRow{12345, "Unknown error"}),
    [](const auto& row) { return "Number" + std::to_string(row.param.number); });

}  // namespace
}  // namespace parlorwire
