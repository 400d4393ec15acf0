#include "platform/socket_error.h"

#include <cerrno>

namespace parlorwire {

int SocketErrorFromErrno(int error) {
  switch (error) {
    case EACCES:
    case EPERM:
      return 10013;
    case EMFILE:
    case ENFILE:
      return 10024;
    case EADDRNOTAVAIL:
      return kSocketAddressNotAvailable;
    case ENETDOWN:
      return 10050;
    case ENETUNREACH:
      return 10051;
    // To write behind the peer's end is what the other system calls an aborted connection.
    case EPIPE:
    case ECONNABORTED:
      return kSocketConnectionAborted;
    case ECONNRESET:
      return kSocketConnectionReset;
    case ENOBUFS:
    case ENOMEM:
      return 10055;
    case ETIMEDOUT:
      return kSocketTimedOut;
    case ECONNREFUSED:
      return kSocketConnectionRefused;
    case EHOSTUNREACH:
      return kSocketHostUnreachable;
    default:
      return kSocketInvalidArgument;
  }
}

Text SocketErrorDescription(int number) {
  switch (number) {
    case 10013:
      return "Permission denied";
    case kSocketInvalidArgument:
      return "Invalid argument";
    case 10024:
      return "Too many open sockets";
    case kSocketAddressNotAvailable:
      return "Address not available from the local machine";
    case 10050:
      return "Network subsystem failed";
    case 10051:
      return "The network cannot be reached from this host at this time";
    case kSocketConnectionAborted:
      return "Connection is aborted due to timeout or other failure";
    case kSocketConnectionReset:
      return "The connection is reset by remote side";
    case 10055:
      return "No buffer space is available";
    case kSocketTimedOut:
      return "The attempt to connect timed out";
    case kSocketConnectionRefused:
      return "Connection is forcefully rejected";
    case kSocketHostUnreachable:
      return "No route to host";
    case kSocketHostNotFound:
      return "Authoritative answer: Host not found";
    case kSocketTryAgain:
      return "Non-Authoritative answer: Host not found";
    default:
      return "Unknown error";
  }
}

}  // namespace parlorwire
