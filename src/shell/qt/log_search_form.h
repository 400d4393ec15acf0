// The search through all day logs.
#pragma once

#include <QDialog>
#include <memory>

#include "display/log_search.h"
#include "platform/desktop.h"

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace parlorwire {

class BackgroundWork;
class LogHits;
struct Client;

// Modeless, and hidden rather than closed. The logs are searched off the event thread; what is
// found appears meanwhile, and the search is over at once when it is asked to stop or the window is
// closed. Enter or a double click on a line shows its day.
class log_search_form : public QDialog {
  Q_OBJECT

 public:
  log_search_form(Client& client, QWidget* owner);
  ~log_search_form() override;

  // Brings it up with the text selected and in focus. Channels and days are those of now.
  void ComeUp();
  void SetLanguage(UiLanguage language);

 protected:
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct News;

  void Build();
  void Wire();
  void TakeList(const std::vector<DayLog>& logs);
  LogQuery Query() const;
  void Find();
  void Stop();
  void Hear(News news);
  void ShowState();
  void ShowDay(int row);

  Client& client_;
  QLabel* l_log_text_ = nullptr;
  QLineEdit* log_text_ = nullptr;
  QLabel* l_log_channel_ = nullptr;
  QComboBox* log_channel_ = nullptr;
  QLabel* l_log_first_ = nullptr;
  QDateEdit* log_first_ = nullptr;
  QLabel* l_log_last_ = nullptr;
  QDateEdit* log_last_ = nullptr;
  QCheckBox* log_case_ = nullptr;
  QCheckBox* log_words_ = nullptr;
  QPushButton* button_find_ = nullptr;
  QPushButton* button_stop_ = nullptr;
  QTreeView* log_hits_ = nullptr;
  QLabel* log_state_ = nullptr;
  LogHits* hits_;

  enum class State { kFresh, kSearching, kStopped, kFull, kDone };
  State state_ = State::kFresh;
  LogProgress progress_;
  std::unique_ptr<BackgroundWork> listing_;
  std::unique_ptr<BackgroundWork> searching_;
};

}  // namespace parlorwire
