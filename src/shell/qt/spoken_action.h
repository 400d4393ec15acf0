// An item of a menu that a screen reader hears by another name than the one it shows.
#pragma once

#include <QString>

class QAction;

namespace parlorwire {

// To be called before anybody asks for the item; may be called again with another name. "" stands
// for what the item shows.
void SpeakAction(QAction* action, const QString& spoken);

}  // namespace parlorwire
