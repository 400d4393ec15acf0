#include "bot/ask_reason.h"

#include "session/client.h"
#include "text/one_line.h"

namespace parlorwire {

Text AskReason(Client& client, const Text& prompt, const Text& title) {
  AppState& app = client.app;
  app.PromptText.clear();
  app.PromptDuration = kDurations[0];
  app.PromptCancelled = true;
  client.hooks.ShowTextInput(prompt, title);
  return app.PromptText;
}

void ConfirmTextInput(Client& client, const Text& reason, std::size_t duration) {
  AppState& app = client.app;
  app.PromptText = OneLine(reason);
  app.PromptDuration = kDurations.at(duration);
  app.PromptCancelled = false;
}

}  // namespace parlorwire
