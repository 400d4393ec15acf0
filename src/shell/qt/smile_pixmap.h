// A smile outside of a pane.
#pragma once

#include <QPixmap>
#include <memory>

#include "platform/picture.h"
#include "session/both_languages.h"

namespace parlorwire {

inline constexpr BothLanguages kSmilesText{W<"Смайлы">, "Smiles"};

// The picture as the panes show it, for the screen of a widget.
QPixmap SmilePixmap(const std::shared_ptr<const Picture>& picture, const QWidget* on);

}  // namespace parlorwire
