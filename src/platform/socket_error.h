// Windows Sockets numbers, which all socket failures carry, whatever the system reports.
#pragma once

#include "text/text.h"

namespace parlorwire {

// The Windows Sockets number of a POSIX errno value; 10022 for one without a counterpart.
int SocketErrorFromErrno(int error);

// The classic English description of a Windows Sockets number; "Unknown error" for a number that
// SocketErrorFromErrno never gives and that no look-up of a name ends with.
Text SocketErrorDescription(int number);

inline constexpr int kSocketInvalidArgument = 10022;
inline constexpr int kSocketAddressNotAvailable = 10049;
inline constexpr int kSocketConnectionAborted = 10053;
inline constexpr int kSocketConnectionReset = 10054;
inline constexpr int kSocketTimedOut = 10060;
inline constexpr int kSocketConnectionRefused = 10061;
inline constexpr int kSocketHostUnreachable = 10065;
inline constexpr int kSocketHostNotFound = 11001;
inline constexpr int kSocketTryAgain = 11002;

}  // namespace parlorwire
