// The HTML in which a personal message comes.
#pragma once

#include <array>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

// A picture that the service sends, and the smile that it is.
struct SmileSource {
  std::string_view source;  // the name of the picture's file, without its ending
  std::string_view name;
};

// One test after the other on one value, in this order; so 22 becomes "hi", and that ":)".
inline constexpr std::array<SmileSource, 40> kSmileSources = {{
    {"157", "sweet"},      {"148", "eyes"}, {"152", "heart2"},     {"142", "coffe"},
    {"76", "!"},           {"105", "?("},   {"100", "champ"},      {"127", "b2"},
    {"128", "b1"},         {"129", "r4"},   {"130", "r2"},         {"132", "rom"},
    {"133", "rom2"},       {"134", "rom3"}, {"135", "vasilek"},    {"141", "smoke"},
    {"144", "dedmoroz"},   {"154", "sneg"}, {"kruto", "fingers"},  {"22", "hi"},
    {"icon_solo", "solo"}, {"s36", ":))"},  {"s12", ":o)"},        {"p12", "wg"},
    {"be-be-be", ":P"},    {"dura", ":b"},  {"kiss1", "kiss"},     {"lachen", ":D"},
    {"s08", ":p"},         {"s44", ";)"},   {"rose3", "r"},        {"rose_t", "rose"},
    {"s04", ":["},         {"s21", "%|"},   {"s03", "8("},         {"p06", "skel"},
    {"19", "hnik"},        {"hi", ":)"},    {"icon_beer", "beer"}, {"5", "c"},
}};

// A message with each link reduced to its address, and each picture to a word such as "*:)*".
// - A link is `<a href="/redirect?msgtext=`, the address, a quote, anything, and "</a>". One that
//   lacks its quote or its end stays as it is.
// - A picture is `<img src`, a quote, the source, and ">" or else the text's end. Of a source with
//   a "." in it, but not as its first character, counts what stands between its first character and
//   the first such dot. One without a quote in it stays as it is.
// Never longer than `text`.
Text PersHtmlToText(std::string_view text);

}  // namespace parlorwire
