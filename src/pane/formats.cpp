#include "pane/formats.h"

#include <algorithm>
#include <functional>

namespace parlorwire {

namespace {

constexpr PaneLookId kNoLook = ~PaneLookId{0};

std::size_t ContentHash(const PanePicture& picture) {
  const std::size_t pixels = picture.image == nullptr ? 0 : picture.image->pixels.size();
  return std::hash<std::string>()(picture.code) * 31 + pixels;
}

bool AreEqual(const PanePicture& a, const PanePicture& b) {
  if (a.code != b.code) return false;
  return a.image == b.image || (a.image != nullptr && b.image != nullptr && *a.image == *b.image);
}

}  // namespace

PaneLook PaneLookChange::AppliedTo(PaneLook look) const {
  if ((members & kFont) != 0) look.font = value.font;
  if ((members & kFontSize) != 0) look.font_size = value.font_size;
  if ((members & kColour) != 0) look.colour = value.colour;
  if ((members & kBackColour) != 0) {
    look.has_back_colour = value.has_back_colour;
    look.back_colour = value.back_colour;
  }
  if ((members & kBold) != 0) look.bold = value.bold;
  if ((members & kItalic) != 0) look.italic = value.italic;
  if ((members & kUnderline) != 0) look.underline = value.underline;
  if ((members & kAlignment) != 0) look.alignment = value.alignment;
  return look;
}

std::size_t PaneFormats::Hash::operator()(const PaneLook& look) const noexcept {
  const auto flags = static_cast<std::uint64_t>(
      (look.has_back_colour ? 1U : 0U) | (look.bold ? 2U : 0U) | (look.italic ? 4U : 0U) |
      (look.underline ? 8U : 0U) | (static_cast<unsigned>(look.alignment) << 4U));
  std::uint64_t hash = look.colour | (std::uint64_t{look.back_colour} << 32U);
  hash = (hash ^ (hash >> 29U)) * 0xBF58476D1CE4E5B9U;
  hash ^= static_cast<std::uint32_t>(look.font_size) | (std::uint64_t{look.picture} << 32U);
  hash = (hash ^ (hash >> 31U)) * 0x94D049BB133111EBU;
  hash ^= look.font | (flags << 32U);
  hash = (hash ^ (hash >> 30U)) * 0xBF58476D1CE4E5B9U;
  return static_cast<std::size_t>(hash ^ (hash >> 32U));
}

PaneFormats::PaneFormats() : pictures_(1) {
  recent_.fill(kNoLook);
}

PaneLookId PaneFormats::Intern(const PaneLook& look) {
  const std::size_t hash = Hash()(look);
  PaneLookId& recent = recent_[hash % recent_.size()];
  if (recent != kNoLook && Look(recent) == look) return recent;
  const PaneLookId fresh =
      static_cast<PaneLookId>(looks_.size()) | (look.picture != 0 ? kPictureLook : 0);
  const auto [known, added] = ids_.try_emplace(look, fresh);
  if (added) looks_.push_back(look);
  return recent = known->second;
}

std::uint32_t PaneFormats::InternFont(std::string_view name) {
  const auto known = std::ranges::find(fonts_, name);
  const auto number = static_cast<std::uint32_t>(known - fonts_.begin());
  if (known == fonts_.end()) fonts_.emplace_back(name);
  return number;
}

std::uint32_t PaneFormats::InternPicture(const std::shared_ptr<const PanePicture>& picture) {
  if (const auto known = pictures_by_address_.find(picture.get());
      known != pictures_by_address_.end())
    return known->second;
  const std::size_t hash = ContentHash(*picture);
  const auto [begin, end] = pictures_by_content_.equal_range(hash);
  for (auto known = begin; known != end; ++known) {
    if (AreEqual(*pictures_[known->second], *picture)) return known->second;
  }
  const auto number = static_cast<std::uint32_t>(pictures_.size());
  pictures_.push_back(picture);
  pictures_by_content_.emplace(hash, number);
  pictures_by_address_.emplace(picture.get(), number);
  return number;
}

PaneLook PaneFormats::Pack(const PaneFormat& format) {
  PaneLook look;
  look.font = InternFont(format.font_name);
  look.font_size = format.font_size;
  look.colour = format.colour;
  look.has_back_colour = format.back_colour.has_value();
  look.back_colour = format.back_colour.value_or(0);
  look.bold = format.bold;
  look.italic = format.italic;
  look.underline = format.underline;
  look.alignment = format.alignment;
  return look;
}

PaneFormat PaneFormats::Unpack(const PaneLook& look) const {
  PaneFormat format;
  format.font_name = fonts_[look.font];
  format.font_size = look.font_size;
  format.colour = look.colour;
  if (look.has_back_colour) format.back_colour = look.back_colour;
  format.bold = look.bold;
  format.italic = look.italic;
  format.underline = look.underline;
  format.alignment = look.alignment;
  return format;
}

const std::shared_ptr<const PanePicture>& PaneFormats::Picture(const PaneLook& look) const {
  return pictures_[look.picture];
}

void PaneFormats::ForgetLooks() {
  looks_.clear();
  ids_.clear();
  recent_.fill(kNoLook);
  pictures_.resize(1);
  pictures_by_content_.clear();
  pictures_by_address_.clear();
}

std::size_t PaneFormats::MemoryUsed() const {
  constexpr std::size_t kNode = 32;  // of a hash map, without its value
  return fonts_.capacity() * sizeof(std::string) + looks_.capacity() * sizeof(PaneLook) +
         ids_.size() * (kNode + sizeof(PaneLook) + sizeof(PaneLookId)) +
         ids_.bucket_count() * sizeof(void*) +
         pictures_.capacity() * (sizeof(pictures_[0]) + 2 * kNode + 32);
}

}  // namespace parlorwire
