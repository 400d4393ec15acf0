// A day log, read from its file.
#pragma once

#include <QDialog>
#include <cstdint>
#include <memory>

#include "display/log_search.h"
#include "pane/rich_text_box.h"

namespace parlorwire {

class BackgroundWork;
class RichTextView;
struct Client;

// Shows the whole day, with the line of the hit selected and in view. It is read off the event
// thread, and shown as it comes. Escape closes it.
class log_day_form : public QDialog {
  Q_OBJECT

 public:
  log_day_form(const Client& client, LogHit hit, QWidget* owner);
  ~log_day_form() override;

 private:
  void Append(const Text& bytes);
  void ShowLine();

  const LogHit hit_;
  RichTextBox box_;
  RichTextView* Rich_;
  std::int64_t read_ = 0;                    // bytes of the log that are in the box
  bool line_waits_ = true;                   // the hit's line is not shown yet
  std::unique_ptr<BackgroundWork> reading_;  // goes ahead of what it tells
};

}  // namespace parlorwire
