#include "session/both_languages.h"

#include "session/client.h"

namespace parlorwire {

Text InLanguage(const Client& client, const BothLanguages& text) {
  return Text(text.In(client.app.Language));
}

}  // namespace parlorwire
