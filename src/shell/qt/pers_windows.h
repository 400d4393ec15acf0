// The personal windows on the screen.
#pragma once

#include <QObject>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/desktop.h"

namespace parlorwire {

struct Client;
class CaretRest;
class pers_frm;

// Shows a window for each record that the core opens, until the user closes it.
class PersWindows : public QObject {
  Q_OBJECT

 public:
  PersWindows(Client& client, CaretRest& caret_rest, QObject* owner);
  ~PersWindows() override;

  void SetLanguage(UiLanguage language);

 private:
  void Show(std::int32_t handle);
  void Drop(const pers_frm* window);

  Client& client_;
  CaretRest& caret_rest_;
  std::vector<std::unique_ptr<pers_frm>> windows_;
};

}  // namespace parlorwire
