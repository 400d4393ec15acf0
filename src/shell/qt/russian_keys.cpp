#include "shell/qt/russian_keys.h"

#include <string_view>

namespace parlorwire {
namespace {

// Key by key from Q to M; brackets and the like have no use here.
constexpr std::u16string_view kLatinLetters = u"QWERTYUIOPASDFGHJKLZXCVBNM";
constexpr std::u16string_view kRussianLetters = u"ЙЦУКЕНГШЩЗФЫВАПРОЛДЯЧСМИТЬ";
static_assert(kLatinLetters.size() == kRussianLetters.size());

// The letter that stands in `there` where `key` stands in `here`; 0 if it doesn't.
char16_t Counterpart(int key, std::u16string_view here, std::u16string_view there) {
  for (std::size_t i = 0; i < here.size(); ++i)
    if (here[i] == key) return there[i];
  return 0;
}

}  // namespace

Qt::Key RussianKey(Qt::Key latin) {
  return Qt::Key(Counterpart(latin, kLatinLetters, kRussianLetters));
}

Qt::Key LatinKey(int key) {
  const char16_t latin = Counterpart(key, kRussianLetters, kLatinLetters);
  return Qt::Key(latin != 0 ? latin : key);
}

}  // namespace parlorwire
