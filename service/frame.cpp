#include "service/frame.h"

#include "text/charset.h"

namespace parlorwire::service {
namespace {

void Touch(Frames& frames, Frame& frame) {
  if (!frame.touched) frames.touched.push_back(frame.id);
  frame.touched = true;
}

}  // namespace

Frame& OpenFrame(Frames& frames, const Text& account) {
  const FrameId id = frames.next++;
  Frame& frame = frames.open[id];
  frame.id = id;
  frame.account = account;
  return frame;
}

void Write(Frames& frames, Frame& frame, std::string_view text, const Moment& now) {
  WriteWire(frames, frame, ConvertCharset(Text(text), Charset::kWindows1251, Charset::kKoi), now);
}

void WriteWire(Frames& frames, Frame& frame, std::string_view bytes, const Moment& now) {
  if (frame.end != FrameEnd::kNone) return;
  frame.out += bytes;
  frame.wrote_ms = now.ms;
  Touch(frames, frame);
}

void End(Frames& frames, Frame& frame, FrameEnd end) {
  if (frame.end != FrameEnd::kNone) return;
  frame.end = end;
  Touch(frames, frame);
}

}  // namespace parlorwire::service
