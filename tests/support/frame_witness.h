// Sees what a client is sent on a frame and tells, without the client's own reader, which lines it
// is bound to show: for tests that send it through all kinds of trouble.
#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace parlorwire {

// The text of a numbered line that somebody says, for FrameWitness and CountNumbered to know again.
Text NumberedLine(int number);

// How often each line stands somewhere, by its whole text: "[time] nick: #00000001 ...".
using LineCounts = std::map<Text, int>;

// The numbered lines that stand in a pane or a day log.
LineCounts CountNumbered(std::string_view text);

// Adds the counts of one to those of the other.
void Add(const LineCounts& counts, LineCounts& sum);

// What is missing and what is too much, a line each; "" if the two are the same.
Text Difference(const LineCounts& expected, const LineCounts& found);

class FrameWitness {
 public:
  // A connection for a frame stands.
  void Begin();

  // One chunk of it, in the wire's bytes. The result: the numbered lines that are whole with it and
  // are not dropped by the rules of the frame, as they shall stand in a pane.
  std::vector<Text> Chunk(std::string_view bytes);

 private:
  std::vector<Text> ReadLines(std::string_view data);

  bool deaf_ = false;  // the frame is in no style that is read
  bool reading_ = false;
  bool in_script_ = false;
  Text carry_;
};

}  // namespace parlorwire
