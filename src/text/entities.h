// The entities that the service writes for characters that mean something in HTML.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Entity {
  std::string_view name;
  std::string_view character;
};

// In the order in which they are replaced.
inline constexpr std::array<Entity, 5> kEntities = {
    {{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}, {"&quot;", "\""}, {"&nbsp;", " "}}};

// The text with one entity after the other replaced, each in the whole text; so "&amp;lt;" ends as
// "&lt;", and "&amp;quot;" as a quote. What is in no entity stays.
Text DecodeEntities(std::string_view text, std::span<const Entity> entities = kEntities);

// The same for entities in any case.
Text DecodeEntitiesNoCase(std::string_view text, std::span<const Entity> entities = kEntities);

}  // namespace parlorwire
