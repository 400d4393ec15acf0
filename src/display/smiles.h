// Smiles: words of a chat line that are shown as pictures.
#pragma once

#include <memory>
#include <string_view>

#include "pane/units.h"
#include "platform/picture.h"

namespace parlorwire {

struct AppState;
struct Client;
struct SmileName;

// Fills SmileTable and SmileCount from "smiles.dll". Without that file there are no smiles; one
// that cannot be read is an entry in error.log. Never fails.
void LoadSmiles(Client& client);

// The picture of a name out of SmileTable; null if it cannot be had.
std::shared_ptr<const Picture> SmileImage(AppState& app, const SmileName& name);

// Puts pictures in the place of the smile codes of a text that stands in Rich, its first character
// at `base`. A code is "*" and a name out of SmileTable, with blanks around it or the text's ends,
// and counts upper and lower case; the picture takes one position. Once a picture cannot be had,
// its codes and those of all later lines of the table stay text. Faults end in error.log.
void PastePicture(Client& client, std::string_view text, PanePosition base, int tab);

}  // namespace parlorwire
