#include "service/request_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "service/ascii.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using State = RequestReader::State;

constexpr std::size_t kMostLengthDigits = 18;

State Fail(RequestReader& reader, int status) {
  reader.state = State::kFailed;
  reader.error = status;
  reader.buffer = std::string();
  return reader.state;
}

std::string_view TrimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The end of the head: the place behind its blank line.
std::optional<std::size_t> EndOfHead(RequestReader& reader) {
  const std::string& bytes = reader.buffer;
  for (std::size_t at = bytes.find('\n', reader.searched); at != std::string::npos;
       at = bytes.find('\n', at + 1)) {
    if (at + 1 < bytes.size() && bytes[at + 1] == '\n') return at + 2;
    if (at + 2 < bytes.size() && bytes[at + 1] == '\r' && bytes[at + 2] == '\n') return at + 3;
  }
  // A line end at the very end may turn out to be the first of two.
  reader.searched = bytes.size() < 2 ? 0 : bytes.size() - 2;
  return std::nullopt;
}

// Cuts "http://host:port" off a target in the form that proxies are sent.
bool CutAuthority(std::string& target, std::string& host) {
  constexpr std::string_view kScheme = "http://";
  if (!StartsWithNoCase(target, kScheme)) return !target.empty() && target[0] == '/';
  const auto end = target.find_first_of("/?", kScheme.size());
  host = target.substr(kScheme.size(),
                       end == std::string::npos ? std::string::npos : end - kScheme.size());
  target = end == std::string::npos ? "" : target.substr(end);
  if (target.empty() || target[0] == '?') target.insert(0, "/");
  return !host.empty();
}

// 0 or the status of the failure.
int ReadRequestLine(Request& request, std::string_view line) {
  const auto first = line.find(' ');
  const auto last = line.rfind(' ');
  if (first == std::string_view::npos || last == first) return 400;
  const std::string_view version = line.substr(last + 1);
  if (version.substr(0, 5) != "HTTP/") return 400;
  if (version != "HTTP/1.0" && version != "HTTP/1.1") return 505;
  request.method = line.substr(0, first);
  std::string target(line.substr(first + 1, last - first - 1));
  if (!CutAuthority(target, request.host)) return 400;
  if (const auto question = target.find('?'); question != std::string::npos) {
    request.query = target.substr(question + 1);
    target.resize(question);
  }
  request.path = std::move(target);
  if (request.method == "GET" || request.method == "POST" || request.method == "HEAD") return 0;
  return 405;
}

struct HeadFacts {
  std::optional<std::size_t> length;
};

int ReadLength(HeadFacts& facts, std::string_view value, std::size_t limit) {
  if (!IsNumber(value)) return 400;
  value.remove_prefix(std::min(value.find_first_not_of('0'), value.size() - 1));
  const auto number = ReadNumber(value, kMostLengthDigits);
  if (!number || static_cast<std::size_t>(*number) > limit) return 413;
  const auto length = static_cast<std::size_t>(*number);
  if (facts.length && *facts.length != length) return 400;
  facts.length = length;
  return 0;
}

int ReadHeader(RequestReader& reader, HeadFacts& facts, std::string_view line) {
  const auto colon = line.find(':');
  if (colon == std::string_view::npos || colon == 0) return 400;
  const std::string_view name = line.substr(0, colon);
  if (name.find_first_of(" \t") != std::string_view::npos) return 400;
  const std::string_view value = TrimBlanks(line.substr(colon + 1));
  if (EqualsNoCase(name, "Content-Length")) return ReadLength(facts, value, reader.limits.body);
  if (EqualsNoCase(name, "Transfer-Encoding")) return 501;
  if (EqualsNoCase(name, "Host")) reader.request.host = value;
  if (EqualsNoCase(name, "X-Forwarded-For")) reader.request.forwarded_for = value;
  return 0;
}

int ReadHead(RequestReader& reader, std::string_view head) {
  HeadFacts facts;
  bool first = true;
  int error = 0;
  while (!head.empty() && error == 0) {
    const auto end = head.find('\n');
    std::string_view line = head.substr(0, end);
    head.remove_prefix(end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.find('\0') != std::string_view::npos) return 400;
    if (line.empty()) break;
    error = first ? ReadRequestLine(reader.request, line) : ReadHeader(reader, facts, line);
    first = false;
  }
  if (error != 0) return error;
  if (reader.request.method == "POST" && !facts.length) return 411;
  reader.body_length = facts.length.value_or(0);
  return 0;
}

State TakeBody(RequestReader& reader, std::string_view bytes) {
  std::string& body = reader.request.body;
  body.append(bytes.substr(0, reader.body_length - body.size()));
  if (body.size() == reader.body_length) reader.state = State::kDone;
  return reader.state;
}

}  // namespace

State Feed(RequestReader& reader, std::string_view bytes) {
  if (reader.state == State::kBody) return TakeBody(reader, bytes);
  if (reader.state != State::kHead) return reader.state;
  if (reader.buffer.empty()) {
    // Line ends ahead of a request are passed over.
    const auto first = bytes.find_first_not_of("\r\n");
    bytes.remove_prefix(first == std::string_view::npos ? bytes.size() : first);
  }
  const std::size_t room = reader.limits.head + 1 - reader.buffer.size();
  const std::string_view taken = bytes.substr(0, room);
  reader.buffer.append(taken);
  const auto end = EndOfHead(reader);
  if (!end) {
    return reader.buffer.size() > reader.limits.head ? Fail(reader, 431) : State::kHead;
  }
  if (*end > reader.limits.head) return Fail(reader, 431);
  if (const int error = ReadHead(reader, std::string_view(reader.buffer).substr(0, *end)))
    return Fail(reader, error);
  const std::string rest = reader.buffer.substr(*end);
  reader.buffer = std::string();
  reader.state = State::kBody;
  TakeBody(reader, rest);
  return TakeBody(reader, bytes.substr(taken.size()));
}

std::string_view ReasonPhrase(int status) {
  switch (status) {
    case 200:
      return "OK";
    case 302:
      return "Found";
    case 400:
      return "Bad Request";
    case 403:
      return "Forbidden";
    case 404:
      return "Not Found";
    case 405:
      return "Method Not Allowed";
    case 408:
      return "Request Timeout";
    case 411:
      return "Length Required";
    case 413:
      return "Payload Too Large";
    case 431:
      return "Request Header Fields Too Large";
    case 500:
      return "Internal Server Error";
    case 501:
      return "Not Implemented";
    case 503:
      return "Service Unavailable";
    case 505:
      return "HTTP Version Not Supported";
    default:
      return "Error";
  }
}

}  // namespace parlorwire::service
