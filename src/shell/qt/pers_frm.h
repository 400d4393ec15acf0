// A personal window on the screen.
#pragma once

#include <QDeadlineTimer>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "personal/personal_window.h"
#include "platform/desktop.h"

class QCheckBox;
class QLabel;

namespace parlorwire {

struct Client;
class CaretRest;
class GraphicButton;
class LinkLabel;
class MsgBox;
class PersonalPane;
class RichTextView;
class TextField;

// Shows a record, and writes into it what is typed and ticked. It has no owner: the user puts it
// where he likes, also behind the main window. The captions of the window, of `ActivateWhenMess`
// and of `save_log` are Russian in both languages; in English they have tool tips and spoken names.
class pers_frm : public QWidget {
  Q_OBJECT

 public:
  // Fills the record's hooks, until it is destroyed.
  pers_frm(Client& client, std::shared_ptr<PersonalWindow> record, CaretRest& caret_rest);
  ~pers_frm() override;

  // The window has been closed, and the record with it: it is to be deleted when the event is over.
  std::function<void()> Closed;

  void SetLanguage(UiLanguage language);
  // Shown, restored, in front, and active as far as the desktop lets it.
  void Raise();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void Wire();
  void FillHooks();
  void ShowRestored();
  void ComeUp();
  void Focus(PersonalField field);
  void ShowFields();
  std::unique_ptr<Files> BrowseForFolder(const Text& title);
  bool TakesEnter(const QEvent& event);

  Client& client_;
  std::shared_ptr<PersonalWindow> record_;
  RichTextView* Rich_ = nullptr;
  PersonalPane* pane_ = nullptr;
  QLabel* l_send_nick_ = nullptr;
  TextField* send_nick_ = nullptr;
  MsgBox* msg_ = nullptr;
  GraphicButton* button_say_ = nullptr;
  GraphicButton* button_clear_ = nullptr;
  QCheckBox* ActivateWhenMess_ = nullptr;
  LinkLabel* save_log_ = nullptr;
  QString log_folder_;    // chosen last
  bool came_up_ = false;  // by itself, and no hand has been at the input box since
  // It was restored by itself: the window that the desktop must not take the focus from.
  QPointer<QWidget> gives_back_to_;
  QDeadlineTimer gives_back_until_;
  bool gave_back_ = false;  // a moment ago; it asks for attention once more
};

}  // namespace parlorwire
