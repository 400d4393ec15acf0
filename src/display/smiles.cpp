#include "display/smiles.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <utility>
#include <vector>

#include "session/client.h"
#include "session/fault_trap.h"
#include "session/writer_selection.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr int kSmileCountId = 101;  // the pictures and their names follow it
constexpr int kBufferSize = 256;

void ReadSmileTable(Client& client) {
  AppState& app = client.app;
  LoadResourceLibrary(app.resources, client.platform, "smiles.dll");
  if (!app.resources.library) return;
  app.SmileCount = ToInteger(LoadResourceString(app.resources, kSmileCountId, kBufferSize));
  for (int j = 1; j <= app.SmileCount; ++j)
    app.SmileTable += "\r\n" + LoadResourceString(app.resources, kSmileCountId + j, kBufferSize);
}

// A code in a text.
struct SmileCode {
  std::size_t at = 0;
  std::size_t length = 0;
  const SmileName* name = nullptr;
};

std::vector<SmileCode> FindSmileCodes(AppState& app, std::string_view text) {
  std::vector<SmileCode> codes;
  std::size_t at = text.find('*');
  if (at == text.npos) return codes;
  app.smile_names.Take(app.SmileTable);
  for (; at != text.npos; at = text.find('*', at + 1)) {
    if (at > 0 && text[at - 1] != ' ') continue;
    const std::string_view rest = text.substr(at + 1);
    const std::string_view word = rest.substr(0, rest.find(' '));
    if (const SmileName* name = app.smile_names.Find(word))
      codes.push_back({at, word.size() + 1, name});
  }
  return codes;
}

// Line by line of the table they would have their turns, and the first picture that cannot be had
// ends them all.
void LeaveOutFrom(AppState& app, std::vector<SmileCode>& codes) {
  int missing = INT_MAX;
  for (const SmileCode& code : codes)
    if (SmileImage(app, *code.name) == nullptr) missing = std::min(missing, code.name->line);
  std::erase_if(codes, [&](const SmileCode& code) { return code.name->line >= missing; });
}

const std::shared_ptr<const PanePicture>& PictureOf(AppState& app, const SmileName& name,
                                                    std::string_view code) {
  auto image = SmileImage(app, name);
  if (name.picture == nullptr || name.picture->image != image)
    name.picture = std::make_shared<const PanePicture>(PanePicture{Text(code), std::move(image)});
  return name.picture;
}

void PastePictures(Client& client, std::string_view text, PanePosition base, int tab) {
  std::vector<SmileCode> codes = FindSmileCodes(client.app, text);
  if (codes.empty()) return;
  LeaveOutFrom(client.app, codes);
  RichTextBox& pane = client.tab(tab).Rich;
  pane.Locked(false);
  for (const SmileCode& code : codes) {
    const PanePosition start = base + static_cast<PanePosition>(code.at);
    const auto length = static_cast<PanePosition>(code.length);
    SelectPaneEnd(client, start, start + length, tab);
    pane.PastePicture(PictureOf(client.app, *code.name, text.substr(code.at, code.length)));
    base -= length - 1;  // what follows has moved up
  }
  pane.Locked(true);
}

}  // namespace

std::shared_ptr<const Picture> SmileImage(AppState& app, const SmileName& name) {
  return LoadResourceBitmap(app.resources, kSmileCountId + name.line);
}

void PastePicture(Client& client, std::string_view text, PanePosition base, int tab) {
  GoOnAfterFault(client, ". Function: PastePicture",
                 [&] { PastePictures(client, text, base, tab); });
}

void LoadSmiles(Client& client) {
  client.app.SmileTable.clear();
  client.app.SmileCount = 0;
  GoOnAfterFault(client, ". Function: LoadSmiles", [&] { ReadSmileTable(client); });
}

}  // namespace parlorwire
