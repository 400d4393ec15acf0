// A smile outside of a pane.
#pragma once

#include <QPalette>
#include <QPixmap>
#include <memory>

#include "platform/picture.h"
#include "session/both_languages.h"

namespace parlorwire {

inline constexpr BothLanguages kSmilesText{W<"Смайлы">, "Smiles"};

// The ground of a pane, on which the pictures are drawn, and light words.
QPalette SmilesPalette(const QPalette& palette);

// The picture as the panes show it, for the screen of a widget.
QPixmap SmilePixmap(const std::shared_ptr<const Picture>& picture, const QWidget* on);

}  // namespace parlorwire
