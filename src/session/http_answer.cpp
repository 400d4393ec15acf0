#include "session/http_answer.h"

#include <algorithm>

#include "text/cut.h"

namespace parlorwire {

void TakeAnswer(Text& answer, std::string_view arrived) {
  answer += arrived.substr(0, kLargestAnswer - std::min(kLargestAnswer, answer.size()));
}

Text WithoutHeader(Text answer) {
  if (!answer.starts_with("HTTP/1.0 200") && !answer.starts_with("HTTP/1.1 200")) return answer;
  Position blank_line = InStr(answer, "\r\n\r\n");
  if (blank_line == 0) blank_line = InStr(answer, "\n\n") - 2;
  return Mid(answer, blank_line + 3);
}

}  // namespace parlorwire
