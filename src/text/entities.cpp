#include "text/entities.h"

#include "text/cut.h"

namespace parlorwire {
namespace {

template <class ReplaceOne>
Text Decode(std::string_view text, std::span<const Entity> entities, ReplaceOne replace) {
  Text decoded(text);
  if (!Contains(text, "&")) return decoded;
  for (const Entity& entity : entities)
    decoded = replace(decoded, entity.name, entity.character);
  return decoded;
}

}  // namespace

Text DecodeEntities(std::string_view text, std::span<const Entity> entities) {
  return Decode(text, entities, Replace);
}

Text DecodeEntitiesNoCase(std::string_view text, std::span<const Entity> entities) {
  return Decode(text, entities, ReplaceNoCase);
}

}  // namespace parlorwire
