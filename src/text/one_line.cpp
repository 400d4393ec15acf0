#include "text/one_line.h"

namespace parlorwire {

Text OneLine(std::string_view text) {
  Text line(text);
  for (char& c : line)
    if (c == '\t' || c == '\r' || c == '\n') c = ' ';
  return line;
}

}  // namespace parlorwire
