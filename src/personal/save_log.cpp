#include "personal/save_log.h"

#include <memory>

#include "pane/rich_text_box.h"
#include "personal/personal_window.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "text/cut.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

Text TextWithCodes(const RichTextBox& pane) {
  Text text;
  for (const PaneRun& run : pane.Runs())
    text += run.picture ? run.picture->code : pane.TextBetween(run.start, run.start + run.length);
  return text;
}

}  // namespace

Text LogOf(const RichTextBox& pane) {
  Text lines = Replace(TextWithCodes(pane), "\r\n", "\n");
  lines = Replace(lines, "\r", "\n");
  return Replace(lines, "\n", "\r\n");
}

void save_log(Client& client, PersonalWindow& window) {
  const RunningEvent running(window);  // the question and the box let others run
  const auto folder = window.hooks.BrowseForFolder(Text(kSaveLogQuestion));
  if (folder == nullptr || window.Closed) return;
  try {
    folder->Replace("log.txt", LogOf(window.Rich));
  } catch (const Fault& fault) {
    window.hooks.MessageBox(
        InLanguage(client, {W<"Лог не сохранен: ">, "The log was not saved: "}) + fault.description,
        BoxIcon::kExclamation);
    return;
  }
  window.hooks.MessageBox("Лог сохранен"_w, BoxIcon::kInformation);
}

}  // namespace parlorwire
