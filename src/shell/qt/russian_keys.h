// The letters that stand on one key of a keyboard in the Latin and in the Russian layout.
#pragma once

#include <Qt>

namespace parlorwire {

// Keys are numbers of Qt::Key; that of a Russian letter is the Unicode number of the capital.

// The Russian letter on the key of a Latin one, A to Z.
Qt::Key RussianKey(Qt::Key latin);

// The Latin letter on the key of a Russian one; of any other key, that key.
Qt::Key LatinKey(int key);

}  // namespace parlorwire
