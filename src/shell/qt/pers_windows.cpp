#include "shell/qt/pers_windows.h"

#include <algorithm>
#include <functional>

#include "personal/personal_window.h"
#include "session/client.h"
#include "shell/qt/pers_frm.h"

namespace parlorwire {

PersWindows::PersWindows(Client& client, CaretRest& caret_rest, QObject* owner)
    : QObject(owner), client_(client), caret_rest_(caret_rest) {
  client_.hooks.ShowPersWindow = [this](std::int32_t handle) { Show(handle); };
}

PersWindows::~PersWindows() {
  client_.hooks.ShowPersWindow = std::function<void(std::int32_t)>();
}

void PersWindows::SetLanguage(UiLanguage language) {
  for (const auto& window : windows_)
    window->SetLanguage(language);
}

void PersWindows::Show(std::int32_t handle) {
  const auto& records = client_.app.PersWindows;
  const auto record = std::ranges::find(records, handle, &PersonalWindow::Handle);
  if (record == records.end()) return;
  pers_frm& window =
      *windows_.emplace_back(std::make_unique<pers_frm>(client_, *record, caret_rest_));
  window.Closed = [this, closed = &window] { Drop(closed); };
  window.Raise();
}

// It may be closed from inside an event of its own.
void PersWindows::Drop(const pers_frm* window) {
  const auto closed = std::ranges::find(windows_, window, &std::unique_ptr<pers_frm>::get);
  if (closed == windows_.end()) return;
  closed->release()->deleteLater();
  windows_.erase(closed);
}

}  // namespace parlorwire
