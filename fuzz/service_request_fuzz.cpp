// The service's request reader: any bytes, in any cuts, give the same request or the same refusal,
// and never more than the limits allow.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "service/form.h"
#include "service/request_reader.h"

namespace {

using parlorwire::service::DecodeForm;
using parlorwire::service::DecodeUnrecoded;
using parlorwire::service::EncodedValue;
using parlorwire::service::Feed;
using parlorwire::service::Form;
using parlorwire::service::FormBytes;
using parlorwire::service::RequestReader;

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireSane(const RequestReader& reader) {
  Require(reader.buffer.size() <= reader.limits.head + 1);
  Require(reader.request.body.size() <= reader.limits.body);
  if (reader.state == RequestReader::State::kFailed)
    Require(reader.error >= 400 && reader.error < 600);
  if (reader.state == RequestReader::State::kDone) {
    Require(!reader.request.path.empty() && reader.request.path[0] == '/');
    Require(reader.request.body.size() == reader.body_length);
  }
}

// No field is longer than what it was read from, and they are not many.
void RequireSane(const Form& form, std::string_view encoded) {
  Require(form.fields.size() <= 64);
  std::size_t length = 0;
  for (const auto& [name, value] : form.fields)
    length += name.size() + value.size();
  Require(length <= encoded.size());
}

}  // namespace

// The first byte tells how long the cuts are; the others are the stream.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t cut = std::size_t{data[0]} + 1;
  const std::string_view stream(reinterpret_cast<const char*>(data) + 1, size - 1);
  RequestReader whole;
  whole.limits = {512, 256};
  RequestReader pieces = whole;
  Feed(whole, stream);
  for (std::size_t at = 0; at < stream.size(); at += cut)
    Feed(pieces, stream.substr(at, cut));
  RequireSane(whole);
  RequireSane(pieces);
  Require(whole.state == pieces.state && whole.error == pieces.error);
  Require(whole.request.method == pieces.request.method);
  Require(whole.request.path == pieces.request.path);
  Require(whole.request.query == pieces.request.query);
  Require(whole.request.host == pieces.request.host);
  Require(whole.request.forwarded_for == pieces.request.forwarded_for);
  Require(whole.request.body == pieces.request.body);
  RequireSane(DecodeForm(whole.request.body, FormBytes::kKoi), whole.request.body);
  const std::string_view value = EncodedValue(whole.request.body, "xtouser");
  Require(DecodeUnrecoded(value).size() <= value.size());
  RequireSane(DecodeForm(whole.request.query, FormBytes::kKoiOrUtf8), whole.request.query);
  return 0;
}
