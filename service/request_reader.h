// Reads one HTTP/1.0 request from a stream of bytes, however it is cut. It knows no sockets.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace parlorwire::service {

// A request as it came: nothing decoded.
struct Request {
  std::string method;         // "GET", "POST" or "HEAD"
  std::string path;           // begins with "/"; no scheme, host or query
  std::string query;          // what stood behind "?" in the request line
  std::string host;           // of the header "Host", else of the request line; "" if there is none
  std::string forwarded_for;  // of the header "X-Forwarded-For"
  std::string body;
};

struct RequestLimits {
  std::size_t head = 16 * 1024;  // bytes up to the blank line, inclusive
  std::size_t body = 64 * 1024;
};

struct RequestReader {
  enum class State { kHead, kBody, kDone, kFailed };

  RequestLimits limits;
  State state = State::kHead;
  Request request;     // whole when state is kDone
  int error = 0;       // the status to answer with when state is kFailed: 400, 405, 411, 413, ...
  std::string buffer;  // bytes of the head that are not yet read
  std::size_t searched = 0;
  std::size_t body_length = 0;
};

// Takes the next bytes. In kDone and kFailed further bytes are dropped. It holds no more than the
// limits allow, and its work is linear in the bytes fed.
RequestReader::State Feed(RequestReader& reader, std::string_view bytes);

// "Not Found" for 404, and so on; "Error" for a number it doesn't know.
std::string_view ReasonPhrase(int status);

}  // namespace parlorwire::service
