#include "personal/pers_pane.h"

#include <memory>
#include <utility>

#include "display/smiles.h"
#include "personal/personal_window.h"
#include "session/client.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr PaneColour kPersLinkColour = 255;

void MarkWord(RichTextBox& pane, const MarkedWord& found, PanePosition base) {
  const PanePosition start = base + static_cast<PanePosition>(found.blank) + 1;
  SelectUnseen(pane, start, start + Len(found.word));
  pane.SelColor(kPersLinkColour);
  pane.SelUnderline(true);
}

// The smile that a word stands for; null if it is none.
const SmileName* SmileBetweenStars(const AppState& app, std::string_view word) {
  if (word.size() < 3 || word.front() != '*' || word.back() != '*') return nullptr;
  return app.smile_names.Find(word.substr(1, word.size() - 2));
}

const std::shared_ptr<const PanePicture>& PersPicture(PersonalWindow& window, std::string_view code,
                                                      std::shared_ptr<const Picture> image) {
  auto& picture = window.Smiles[Text(code)];
  if (picture == nullptr || picture->image != image)
    picture = std::make_shared<const PanePicture>(PanePicture{Text(code), std::move(image)});
  return picture;
}

}  // namespace

void SelectUnseen(RichTextBox& pane, PanePosition start, PanePosition end) {
  pane.HideSelection(true);
  pane.ExSetSel(start, end);
}

void WriteAtEnd(RichTextBox& pane, std::string_view text, const PaneFormat& format) {
  SelectUnseen(pane, pane.Length(), pane.Length());
  pane.SelFormat(format);
  pane.ReplaceSel(text);
}

std::optional<MarkedWord> NextPersLink(std::string_view text, std::size_t from) {
  auto found = NextMarkedWord(text, from);
  while (found && !Contains(found->word, "."))
    found = NextMarkedWord(text, found->blank + 1);
  return found;
}

void PersWriteLinks(PersonalWindow& window, std::string_view text, PanePosition base) {
  for (auto link = NextPersLink(text, 0); link; link = NextPersLink(text, link->blank + 1))
    MarkWord(window.Rich, *link, base);
  for (auto mask = NextAddressMask(text, 0); mask; mask = NextAddressMask(text, mask->blank + 1))
    MarkWord(window.Rich, *mask, base);
}

void PersPasteSmiles(Client& client, PersonalWindow& window, std::string_view text,
                     PanePosition base) {
  RichTextBox& pane = window.Rich;
  client.app.smile_names.Take(client.app.SmileTable);
  PanePosition start = base;  // of the word, in the pane
  for (const std::string_view word : Split(text, " ")) {
    PanePosition length = Len(word);
    if (const SmileName* name = SmileBetweenStars(client.app, word)) {
      auto image = SmileImage(client.app, *name);
      if (image == nullptr) return;
      pane.Locked(false);
      SelectUnseen(pane, start, start + length);
      pane.PastePicture(PersPicture(window, word, std::move(image)));
      pane.Locked(true);
      length = 1;
    }
    start += length + 1;
  }
}

}  // namespace parlorwire
