// The chooser of the channels on which auto-kick works.
#pragma once

#include <QDialog>
#include <vector>

#include "bot/kick_channels.h"

class QCheckBox;

namespace parlorwire {

struct Client;

// Modal. Enter and `button_ok` hand the ticks over; Escape, `button_cancel` and the window's own
// close change nothing.
class DisableKickChannels_form : public QDialog {
  Q_OBJECT

 public:
  DisableKickChannels_form(Client& client, QWidget* owner);

 private:
  QWidget* BuildFrame();
  void Confirm();

  Client& client_;
  std::vector<KickChannel> channels_;
  std::vector<QCheckBox*> boxes_;  // Ch, one for each of them
};

}  // namespace parlorwire
