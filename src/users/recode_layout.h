// Text that was typed with the wrong keyboard layout.
#pragma once

#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;

// The text as the same keys give it in the other layout, Latin for Russian and Russian for Latin in
// one pass; what no key of both gives stays. What stands in both layouts counts as Latin: a "."
// always becomes a "ю". A first word that is a nick in the list of users of the active tab and ":"
// stays, too.
Text RecodeLayout(const Client& client, std::string_view text);

// The label perecodirovka_label: recodes `msg` of the active tab, which gets the focus.
void perecodirovka_label(Client& client);

// The item text_perecodirovka: recodes what is selected in Rich of the active tab.
void text_perecodirovka(Client& client);

}  // namespace parlorwire
