// Links and address masks in the text of a pane.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "pane/units.h"

namespace parlorwire {

struct Client;

// What a link begins with behind a blank, in lower case. A scheme with nothing behind it is none.
struct LinkMarker {
  std::string_view text;
  bool is_scheme = true;
};
inline constexpr std::array<LinkMarker, 4> kLinkMarkers{
    {{"http://"}, {"https://"}, {"ftp://"}, {"www.", false}}};

// A word behind a blank, without the punctuation at its end.
struct MarkedWord {
  std::size_t blank = 0;  // 0-based, in the text
  std::string_view word;
  const LinkMarker* marker = nullptr;  // null for an address mask
};

// The first word that begins with a marker and whose blank stands at `from` or behind it. It need
// not be a link: what is left of it may be the marker alone, or less.
std::optional<MarkedWord> NextMarkedWord(std::string_view text, std::size_t from);

// The first link, or address mask, whose blank stands at `from` or behind it. A mask is four groups
// of one to three digits, "*" or "?", with dots between: so the service hides parts of an address.
std::optional<MarkedWord> NextLink(std::string_view text, std::size_t from);
std::optional<MarkedWord> NextAddressMask(std::string_view text, std::size_t from);

// Makes what is a link or an address mask in `piece` red, bold and underlined in Rich. With
// `hover_only` it sets nothing but HoverLink to the first link, or else HoverIP to the first mask,
// and the pointer to the hand. If it does not find one, or has made them, the pointer is the arrow.
// `piece` begins with a blank; `base` is one more than the position of that blank in the pane.
void WriteLinks(Client& client, std::string_view piece, PanePosition base, int tab,
                bool hover_only);

}  // namespace parlorwire
