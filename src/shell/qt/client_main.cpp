#include "shell/qt/client_main.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QMouseEvent>
#include <QScreen>
#include <QStatusBar>
#include <algorithm>
#include <optional>

#include "pane/qt/rich_text_view.h"
#include "platform/qt/text_conversion.h"
#include "session/event_entry.h"
#include "session/fault_trap.h"
#include "session/leaving.h"
#include "shell/client_main_layout.h"
#include "shell/login_dialog.h"
#include "shell/page_links.h"
#include "shell/qt/bot_autokick.h"
#include "shell/qt/caret_rest.h"
#include "shell/qt/command_menus.h"
#include "shell/qt/connection_form.h"
#include "shell/qt/control_names.h"
#include "shell/qt/disable_kick_channels_form.h"
#include "shell/qt/form_tray.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/ground.h"
#include "shell/qt/link_label.h"
#include "shell/qt/log_search_form.h"
#include "shell/qt/main_menu.h"
#include "shell/qt/main_shortcuts.h"
#include "shell/qt/menu_smiles_show.h"
#include "shell/qt/message_pane.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/nick_menu_popup.h"
#include "shell/qt/open_url.h"
#include "shell/qt/pers_windows.h"
#include "shell/qt/qt_desktop.h"
#include "shell/qt/reading_hold.h"
#include "shell/qt/search_form.h"
#include "shell/qt/smiles_menu.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/text_input.h"
#include "shell/qt/tone_box.h"
#include "shell/qt/twips.h"
#include "shell/qt/typing_forward.h"
#include "shell/qt/users_list.h"
#include "shell/qt/window_room.h"
#include "shell/qt/wire_hint.h"
#include "shell/qt/zastavka.h"
#include "shell/shut_down.h"
#include "shell/start_up.h"
#include "shell/tabs.h"
#include "shell/tray.h"
#include "users/input_history.h"
#include "users/posting.h"
#include "users/recode_layout.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

constexpr int kTimer4Interval = 100;  // ms
constexpr int kTimer5Interval = 10;
constexpr int kSplashWithoutFocus = 3000;  // ms; a window that the desktop never activates

int ClampedPixels(double twips, int least, int most) {
  return static_cast<int>(
      std::clamp(twips / kTwipsPerPixel, static_cast<double>(least), static_cast<double>(most)));
}

}  // namespace

client_main::client_main(Client& client, QtDesktop& desktop)
    : controls(NewMainControls(client, this, statusBar())),
      client_(client),
      desktop_(desktop),
      layout_(controls, client) {
  NameControl(this, "client_main");
  SayControl(this, "Parlorwire");
  setWindowIcon(QIcon(QStringLiteral(":/parlorwire/parlorwire.svg")));
  setPalette(PaletteOn(palette(), kMainBackColor));
  setCentralWidget(controls.ground);
  menu_ = new MainMenu(client, this, [this] { Leave(); });
  nick_menus_ = new NickMenuPopup(client, this);
  caret_rest_ = new CaretRest(this);
  pers_windows_ = new PersWindows(client, *caret_rest_, this);
  room_ = new WindowRoom(this);
  typing_forward_ =
      new TypingForward(this, [this] { return controls.tab(desktop_.ActiveTab()).msg; });
  typing_forward_->Watch(controls.SayUseOp);
  OrderMainControls(controls);
  ShowSlot(controls, -1);
  desktop_.Attach(this);
  Timer5_.setSingleShot(true);
  Timer5_.setInterval(kTimer5Interval);
  connect(&Timer5_, &QTimer::timeout, this, [this] { desktop_.FocusMsg(desktop_.ActiveTab()); });
  new CommandMenus(client_, *this, [this] { Timer5_.start(); });
  MakeMainShortcuts(*this, client_, [this] { Timer5_.start(); });
  qApp->installEventFilter(this);
  FillHooks();
  FillMenu();
  WireShared();
  WireLinks();
  WireSmiles();
  for (int slot = 0; slot < kTabCount; ++slot)
    WireTab(slot);
}

client_main::~client_main() {
  desktop_.Attach(nullptr);
  client_.hooks.ShowLoginDialog = std::function<void(int)>();
  client_.hooks.ShowSearchDialog = std::function<void()>();
  client_.hooks.PopUpMenuCopy = std::function<void(int)>();
  client_.hooks.UsersListToBeDrawn = std::function<void(int)>();
  client_.hooks.UsersListDrawn = std::function<void(int)>();
  client_.hooks.ShowTextInput = std::function<void(const Text&, const Text&)>();
}

void client_main::FillHooks() {
  client_.hooks.OpenUrl = [](const Text& url) { OpenUrl(url); };
  client_.hooks.ShowLoginDialog = [this](int) { ShowLoginDialog(); };
  client_.hooks.ShowSearchDialog = [this] { ShowSearchDialog(); };
  client_.hooks.ShowTextInput = [this](const Text& prompt, const Text& title) {
    text_input(client_, ToQString(prompt), ToQString(title), this).exec();
  };
  client_.hooks.PopUpMenuCopy = [this](int tab) {
    message_panes_[static_cast<std::size_t>(tab)]->ShowMenuCopy();
  };
  client_.hooks.UsersListToBeDrawn = [this](int tab) {
    users_lists_[static_cast<std::size_t>(tab)]->ToBeDrawn();
  };
  client_.hooks.UsersListDrawn = [this](int tab) {
    users_lists_[static_cast<std::size_t>(tab)]->Drawn();
  };
}

void client_main::FillMenu() {
  menu_->akick_modify = [this] {
    if (!bot_autokick_) bot_autokick_ = std::make_unique<bot_autokick>(client_, this);
    bot_autokick_->ShowList();
  };
  menu_->channel_modif = [this] { DisableKickChannels_form(client_, this).exec(); };
  menu_->search_logs = [this] { ShowLogSearch(); };
  menu_->log_folder = [this] {
    PassOverFault([&] { client_.platform.files.MakeFolder("Logs"); });
    OpenFolder(client_.platform.day_logs.Folder());
  };
}

void client_main::WireShared() {
  controls.ground->Resized = [this] { PlaceControls(); };
  controls.button_connect_main->Busy = [this] {
    return client_.tab(desktop_.ActiveTab()).Connecting;
  };
  connect(controls.button_connect_main, &QAbstractButton::clicked, this, [this] {
    OnEvent(client_, "button_connect_main", [&] {
      if (ConnectMainAddsTab(client_)) {
        AddTab(client_);
      } else {
        ShowLoginDialog();
      }
    });
  });
  controls.SSTab->Click = [this](int previous) {
    OnEvent(client_, "SSTab_Click", [&] {
      ShowActiveSlot();
      SSTab_Click(client_, previous);
      // Who walks along the strip with the arrow keys stays on it.
      if (!controls.SSTab->WalkedAlong()) Timer5_.start();
    });
  };
  connect(controls.SayUseOp, &QCheckBox::clicked, this, [this](bool ticked) {
    OnEvent(client_, "SayUseOp_Click", [&] { SayUseOp_Click(client_, ticked); });
  });
}

void client_main::WireLinks() {
  const auto act = [this](LinkLabel* link, std::function<void()> action) {
    link->SetAction([this, link, action = std::move(action)] {
      OnEvent(client_, FromQString(link->objectName()), action);
    });
  };
  act(controls.AddTab, [this] { AddTab(client_); });
  act(controls.logoff, [this] { LogoffChat(client_, desktop_.ActiveTab()); });
  act(controls.close_tab, [this] { CloseTab(); });
  act(controls.sp_bans, [this] { sp_bans(client_); });
  act(controls.sp_opers, [this] { sp_opers(client_); });
  act(controls.hist_topic, [this] { hist_topic(client_); });
  act(controls.logout, [this] { LeaveChannel(client_, desktop_.ActiveTab()); });
  act(controls.search_label, [this] { ShowSearchDialog(); });
  act(controls.perecodirovka_label, [this] { perecodirovka_label(client_); });
}

void client_main::WireSmiles() {
  smiles_menu_ = new SmilesMenu(client_, this);
  smiles_menu_->Insert = [this](const Text& code) {
    controls.tab(desktop_.ActiveTab()).msg->InsertBehindCaret(ToQString(code));
  };
  GraphicButton* button = controls.button_smiles;
  connect(button, &QAbstractButton::clicked, this, [this] {
    OnEvent(client_, "button_smiles", [&] {
      if (!MenuSmilesShow_) MenuSmilesShow_ = std::make_unique<MenuSmilesShow>(client_, this);
      const QWidget* at = controls.button_smiles;
      MenuSmilesShow_->Float({at->mapToGlobal(QPoint()), at->size()});
    });
  });
  button->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(button, &QWidget::customContextMenuRequested, this,
          [this, button](QPoint at) { smiles_menu_->PopUp(button->mapToGlobal(at)); });
}

void client_main::WireTab(int slot) {
  const TabControls& tab = controls.tab(slot);
  tab.msg->Send = [this, slot] {
    OnEvent(client_, "msg_KeyPress", [&] { button_say_MouseUp(client_, slot); });
  };
  tab.msg->Browse = [this, slot](bool up) {
    OnEvent(client_, "msg_KeyDown", [&] {
      BrowseInputHistory(client_, up ? HistoryDirection::kUp : HistoryDirection::kDown, slot);
    });
  };
  tab.msg->Command = [this, slot](MsgCommand command) {
    bool taken = false;
    OnEvent(client_, "msg_KeyPress", [&] { taken = SayMsgCommand(client_, command, slot); });
    return taken;
  };
  tab.msg->ScrollPane = [view = tab.Rich](PaneStep step) {
    switch (step) {
      case PaneStep::kPageUp:
        return view->ScrollPages(-1);
      case PaneStep::kPageDown:
        return view->ScrollPages(1);
      case PaneStep::kStart:
        return view->ScrollToStart();
      case PaneStep::kEnd:
        return view->ScrollToEnd();
    }
  };
  connect(tab.button_say, &QAbstractButton::clicked, this, [this, slot] {
    OnEvent(client_, "button_say", [&] { button_say_MouseUp(client_, slot); });
  });
  connect(tab.button_clear, &QAbstractButton::clicked, this, [this, slot] {
    desktop_.SetMsgText(slot, "");
    desktop_.FocusMsg(slot);
  });
  connect(tab.button_update, &QAbstractButton::clicked, this, [this, slot] {
    OnEvent(client_, "button_update", [&] { UpdateUsersFrame(client_, slot); });
  });
  tab.pers->SetAction(
      [this, slot] { OnEvent(client_, "pers_Click", [&] { client_.hooks.pers(slot); }); });
  connect(tab.StopScroll, &QAbstractButton::clicked, this,
          [this, slot] { desktop_.FocusMsg(slot); });
  caret_rest_->Watch(tab.msg);
  tab.msg->FurtherMenu = [this] {
    smiles_menu_->ShowTitle();
    return smiles_menu_->menu();
  };
  const auto index = static_cast<std::size_t>(slot);
  message_panes_[index] = new MessagePane(client_, tab.Rich, slot, *nick_menus_);
  users_lists_[index] = new UsersList(client_, tab.Rich_Users, slot, *nick_menus_);
  WireReading(slot);
}

// What helps who reads, and then types without a look where the focus is.
void client_main::WireReading(int slot) {
  const TabControls& tab = controls.tab(slot);
  new WireHint(client_, tab.msg);
  new ReadingHold(client_.app, tab.Rich, tab.StopScroll);
  tab.intonacia->Chosen = [this, slot] { desktop_.FocusMsg(slot); };
  for (QWidget* control : std::initializer_list<QWidget*>{tab.Rich, tab.Rich_Users, tab.Rich_Server,
                                                          tab.StopScroll, tab.intonacia})
    typing_forward_->Watch(control);
}

void client_main::Load() {
  zastavka_ = std::make_unique<zastavka>();
  zastavka_->show();

  WindowMeasures measures;
  measures.Screen_Width = Twips(QGuiApplication::primaryScreen()->size().width());
  measures.Screen_Height = Twips(QGuiApplication::primaryScreen()->size().height());
  measures.TabSplitPercent = kDesignedSplitPercent;
  const WindowPlace place = LoadStep(client_, measures);
  menu_->ShowChecks();
  controls.button_smiles->setEnabled(!client_.app.SmileTable.empty());
  if (!client_.app.LetografUrl.empty())
    controls.letogr->SetAction([this] { OnEvent(client_, "letogr", [&] { letogr(client_); }); });
  ShowPanels(controls, client_);
  for (int slot = 0; slot < kTabCount; ++slot)
    PaintFrame(controls.tab(slot), client_.tab(slot).Rich.BackColor());

  // What the file says is taken as it is, and then fitted to the screens that there are. What no
  // window can have is cut first.
  constexpr int kLargest = 8000;
  constexpr int kFarthest = 32000;
  resize(ClampedPixels(place.Width, 1, kLargest), ClampedPixels(place.Height, 1, kLargest));
  move(ClampedPixels(place.Left, -kFarthest, kFarthest),
       ClampedPixels(place.Top, -kFarthest, kFarthest));
  room_->Fit();
  QTimer::singleShot(kSplashWithoutFocus, this, [this] { FirstActivation(); });
}

void client_main::Unload() {
  if (unloaded_) return;
  unloaded_ = true;
  Timer5_.stop();
  std::optional<WindowPlace> place;
  if (!isMinimized())
    place = {static_cast<double>(Twips(x())), static_cast<double>(Twips(y())),
             static_cast<double>(Twips(width())), static_cast<double>(Twips(height()))};
  for (QWidget* window : QApplication::topLevelWidgets())
    window->hide();
  UnloadStep(client_, place);
}

void client_main::Timer4() {
  QTimer::singleShot(kTimer4Interval, this, [this] { Leave(); });
}

void client_main::CloseTab() {
  if (close_tab(client_)) Timer4();
}

void client_main::ShowActiveSlot() {
  PlaceControls();
  ShowSlot(controls, controls.SSTab->AnyVisible() ? controls.SSTab->Tab() : -1);
  ShowPanels(controls, client_);
  nick_menus_->CloseUnlessOfActiveTab();
  ShowTabCaption();
}

void client_main::ShowTabCaption() {
  if (bot_autokick_) bot_autokick_->ShowTitle();
}

void client_main::ShowLanguage(UiLanguage language) {
  const bool russian = language == UiLanguage::kRussian;
  SetMainLanguage(controls, language);
  menu_->SetLanguage(language);
  if (bot_autokick_) bot_autokick_->ShowLanguage();
  if (search_form_) search_form_->SetLanguage(language);
  if (log_search_form_) log_search_form_->SetLanguage(language);
  pers_windows_->SetLanguage(language);
  smiles_menu_->ShowTitle();
  if (MenuSmilesShow_) MenuSmilesShow_->ShowTitle();
  if (form_tray != nullptr) form_tray->ShowMenu();
  ShowPanels(controls, client_);
  PlaceControls();
  QCoreApplication::removeTranslator(&toolkit_russian_);
  if (russian && toolkit_russian_.load(QLocale(QLocale::Russian), "qtbase", "_",
                                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&toolkit_russian_);
}

void client_main::ShowLoginDialog() {
  if (!connection_form_) {
    connection_form_ = std::make_unique<connection_form>(client_, this);
    connection_form_->Timer4 = [this] { Timer4(); };
  }
  connection_form_->ShowLoginDialog();
}

void client_main::ShowSearchDialog() {
  if (!search_form_)
    search_form_ = std::make_unique<search_form>(
        client_, this, [this](SearchDirection direction) { FindOn(direction); });
  search_form_->ComeUp();
}

void client_main::FindOn(SearchDirection direction) {
  if (client_.app.search_form.txt_to_search.empty()) return ShowSearchDialog();
  OnEvent(client_, "button_next", [&] {
    // What the reader has selected is where the first search starts.
    controls.tab(desktop_.ActiveTab()).Rich->GiveSelection();
    FindNext(client_, direction);
  });
}

void client_main::ShowLogSearch() {
  if (!log_search_form_) log_search_form_ = std::make_unique<log_search_form>(client_, this);
  log_search_form_->ComeUp();
}

void client_main::PlaceControls() {
  // Sizes that the window never really had must not move the splitters.
  if (!testAttribute(Qt::WA_Resized) || unloaded_) return;
  layout_.PlaceAll();
}

void client_main::closeEvent(QCloseEvent* event) {
  event->accept();
  Leave();
}

void client_main::Leave() {
  Unload();
  QCoreApplication::exit(0);
}

void client_main::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) TellState();
  if (event->type() != QEvent::ActivationChange || !isActiveWindow() || unloaded_) return;
  OnEvent(client_, "client_main_Activate", [&] { client_main_Activate(client_); });
  FirstActivation();
}

void client_main::FirstActivation() {
  if (activated_ || unloaded_) return;
  activated_ = true;
  AddTrayIcon(client_);
  EndSplash();
}

void client_main::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  TellState();
}

void client_main::TellState() {
  // The states and sizes that a window has before it is shown, and once it is hidden, are not its
  // user's.
  if (!isVisible() || unloaded_) return;
  const WindowState state = isMinimized()   ? WindowState::kMinimized
                            : isMaximized() ? WindowState::kMaximized
                                            : WindowState::kNormal;
  OnEvent(client_, "client_main_Resize", [&] { client_main_Resize(client_, state); });
}

void client_main::Restore(WindowState state) {
  if (unloaded_) return;
  const auto wanted = state == WindowState::kMaximized ? Qt::WindowMaximized : Qt::WindowNoState;
  setWindowState(wanted | Qt::WindowActive);
  show();
  raise();
  activateWindow();
  if (controls.tab(desktop_.ActiveTab()).Rich->height() > 0) Timer5_.start();
}

// Notes which pane was clicked last.
bool client_main::eventFilter(QObject* watched, QEvent* event) {
  const auto* clicked = qobject_cast<QWidget*>(watched);
  if (clicked == nullptr || event->type() != QEvent::MouseButtonPress ||
      static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
    return QMainWindow::eventFilter(watched, event);
  ClickedPane& last = client_.app.LastClickedWindow;
  last = {};
  for (int slot = 0; slot < kTabCount; ++slot) {
    const TabControls& tab = controls.tab(slot);
    if (tab.Rich->isAncestorOf(clicked)) last = {ClickedPane::Kind::kRich, slot};
    if (tab.Rich_Users->isAncestorOf(clicked)) last = {ClickedPane::Kind::kRich_Users, slot};
  }
  return QMainWindow::eventFilter(watched, event);
}

void client_main::EndSplash() {
  if (!zastavka_) return;
  zastavka_->hide();
  // It may take part in the very event that ends it.
  zastavka_.release()->deleteLater();
}

}  // namespace parlorwire
