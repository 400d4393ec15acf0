// Smiles: words of a chat line that are shown as pictures.
#pragma once

#include "text/text.h"

namespace parlorwire {

struct Client;

// Fills SmileTable and SmileCount from "smiles.dll". Without that file there are no smiles; one
// that cannot be read is an entry in error.log. Never fails.
void LoadSmiles(Client& client);

}  // namespace parlorwire
