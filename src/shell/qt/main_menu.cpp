#include "shell/qt/main_menu.h"
#include "session/event_entry.h"

#include <QAction>
#include <QActionGroup>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <string>
#include <utility>

#include "bot/bot_menu.h"
#include "display/fonts.h"
#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "shell/qt/control_names.h"
#include "shell/qt/font_and_color.h"
#include "shell/qt/spoken_action.h"
#include "shell/start_up.h"
#include "shell/tray.h"

namespace parlorwire {

struct MainMenu::Caption {
  const char* name;
  BothLanguages text;
};

namespace {

constexpr const char* kRussian = "russian";  // properties of an item: its captions
constexpr const char* kEnglish = "english";
constexpr const char* kMeaning = "meaning";  // of a caption that is Russian in both languages

}  // namespace

void KeepCaptions(QObject* item, const BothLanguages& text) {
  item->setProperty(kRussian, ToQString(text.russian));
  item->setProperty(kEnglish, ToQString(text.english));
}

MainMenu::MainMenu(Client& client, QMainWindow* window, std::function<void()> leave)
    : QObject(window), client_(client), window_(window) {
  QMenu* file = Menu(nullptr, {"menu_file", {W<"&Файл">, "&File"}});
  // The key itself is a shortcut of the window, in both layouts.
  Item(file,
       {"search_logs", {W<"Поиск в &логах...\tCtrl+Shift+F">, "Search the &logs...\tCtrl+Shift+F"}},
       [this] { search_logs(); });
  Item(file, {"log_folder", {W<"&Папка логов">, "&Folder of the logs"}}, [this] { log_folder(); });
  file->addSeparator();
  Item(file, {"put_in_tray", {W<"&Убрать в трей\tCtrl+H">, "&Put in tray\tCtrl+H"}},
       [this] { put_in_tray(client_); });
  file->addSeparator();
  Item(file, {"exit", kExitCaption}, std::move(leave));
  QMenu* settings = Menu(nullptr, {"menu_settings", {W<"&Настройки">, "&Settings"}});
  BuildLanguage(Menu(settings, {"menu_language", {W<"&Язык">, "&Language"}}));
  BuildFonts(Menu(settings, {"menu_fonts", {W<"&Шрифты">, "&Fonts"}}));
  BuildColours(Menu(settings, {"menu_colors", {W<"&Цвета">, "&Colours"}}));
  BuildBot(Menu(nullptr, {"menu_bot", {W<"&Бот">, "&Bot"}}));
}

QMenu* MainMenu::Menu(QMenu* above, const Caption& caption) {
  QMenu* menu =
      above != nullptr ? above->addMenu(QString()) : window_->menuBar()->addMenu(QString());
  NameControl(menu, QString::fromLatin1(caption.name));
  menu->menuAction()->setObjectName(QString::fromLatin1(caption.name) + "_action");
  KeepCaptions(menu->menuAction(), caption.text);
  return menu;
}

QAction* MainMenu::Item(QMenu* menu, const Caption& caption, std::function<void()> action,
                        bool checkable) {
  QAction* item = menu->addAction(QString());
  item->setObjectName(QString::fromLatin1(caption.name));
  item->setCheckable(checkable);
  KeepCaptions(item, caption.text);
  connect(item, &QAction::triggered, this,
          [this, name = Text(caption.name), action = std::move(action)] {
            OnEvent(client_, name, [&] {
              action();
              ShowChecks();
            });
          });
  return item;
}

void MainMenu::BuildLanguage(QMenu* menu) {
  auto* group = new QActionGroup(this);
  group->addAction(
      Item(menu, {"rus", {W<"&Русский">, W<"&Русский">}}, [this] { rus(client_); }, true));
  group->addAction(Item(menu, {"eng", {"&English", "&English"}}, [this] { eng(client_); }, true));
}

// Of a dialog behind an item: what it chooses, and for what.
QString MainMenu::TitleOf(const BothLanguages& kind, const BothLanguages& caption) const {
  QString of = ToQString(InLanguage(client_, caption));
  of.remove(QLatin1Char('&')).remove(QLatin1Char('.'));
  return ToQString(InLanguage(client_, kind)) + ": " + of;
}

void MainMenu::BuildFonts(QMenu* menu) {
  const auto font = [this, menu](const Caption& caption, FontCommand command) {
    Item(menu, caption, [this, command, text = caption.text] {
      const QString title = TitleOf({W<"Шрифт">, "Font"}, text);
      const auto chosen = ChooseFontDialog(FontOf(client_.app, command), title, window_);
      if (chosen) ChooseFont(client_.app, command, *chosen);
    });
  };
  font({"font_main", {W<"&Сообщения...">, "&Messages..."}}, FontCommand::font_main);
  font({"font_system", {W<"С&истемные строки...">, "&System lines..."}}, FontCommand::font_system);
  font({"font_client", {W<"Сообщения &клиента...">, "Messages of the &client..."}},
       FontCommand::font_client);
  menu->addSeparator();
  Item(
      menu, {"bold_nicks", {W<"Жирные &ники">, "Bold &nicks"}}, [this] { bold_nicks(client_.app); },
      true);
  Item(
      menu, {"bold_time", {W<"Жирное &время">, "Bold &time"}}, [this] { bold_time(client_.app); },
      true);
}

void MainMenu::BuildColours(QMenu* menu) {
  const auto colour = [this, menu](const Caption& caption, ColourCommand command) {
    Item(menu, caption, [this, command, text = caption.text] {
      const QString title = TitleOf({W<"Цвет">, "Colour"}, text);
      const auto chosen = ChooseColorDialog(ColourOf(client_.app, command), title, window_);
      if (chosen) ColourOf(client_.app, command) = *chosen;
    });
  };
  using enum ColourCommand;
  colour({"color_my_nick", {W<"&Свой ник...">, "&Own nick..."}}, color_my_nick);
  colour({"color_myself", {W<"Свои с&ообщения...">, "Own &messages..."}}, color_myself);
  colour({"color_nicks", {W<"&Ники...">, "&Nicks..."}}, color_nicks);
  colour({"color_choose_nicks", {W<"Ник под &мышью...">, "Nick under the mo&use..."}},
         color_choose_nicks);
  colour({"color_symbols", {W<"&Знаки...">, "Mar&ks..."}}, color_symbols);
  colour({"color_time", {W<"&Время...">, "&Time..."}}, color_time);
  menu->addSeparator();
  colour({"color_system", {W<"С&истемные строки...">, "&System lines..."}}, color_system);
  colour({"color_client", {W<"Сообщения &клиента...">, "Messages of the &client..."}},
         color_client);
}

void MainMenu::BuildBot(QMenu* menu) {
  connect(menu, &QMenu::aboutToShow, this, [this] { ShowBot(); });
  Item(
      menu, {"akick_enabled", {W<"&Автокик">, "&Auto-kick"}}, [this] { akick_enabled(client_); },
      true);
  BuildLists(Menu(menu, {"akick", {W<"Автокик-&лист">, "Auto-kick &list"}}));
  menu->addSeparator();
  BuildReports(menu);
}

void MainMenu::BuildLists(QMenu* menu) {
  menu->setToolTipsVisible(true);
  const auto item = [this, menu](const char* name, std::string_view caption, const char* meaning,
                                 const std::function<void()>& open) {
    Explain(Item(menu, {name, {caption, caption}}, [&open] { open(); }), meaning);
  };
  item("akick_modify", W<"Редактирование автокик-листа">, "Edit the auto-kick list", akick_modify);
  item("channel_modif", W<"Редактирование каналов">, "Choose the channels", channel_modif);
}

void MainMenu::BuildReports(QMenu* menu) {
  Item(
      menu, {"say_ip_and_flags", {W<"&Говорить адреса и флаги">, "&Say addresses and flags"}},
      [this] { say_ip_and_flags(client_); }, true);
  auto* where = new QActionGroup(this);
  where->addAction(Item(
      menu, {"say_in_chat", {W<"&Операторам в чат">, "To the &operators in the chat"}},
      [this] { say_in_chat(client_); }, true));
  where->addAction(Item(
      menu, {"say_in_client", {W<"Только &себе">, "To &me only"}},
      [this] { say_in_client(client_); }, true));
  section_ = menu->addSection(QString());
  KeepCaptions(section_, {W<"На каналах">, "On the channels"});
  for (int tab = 0; tab < kTabCount; ++tab) {
    const std::string name = "channel_" + std::to_string(tab + 1);
    channels_[static_cast<std::size_t>(tab)] =
        Item(menu, {name.c_str(), {}}, [this, tab] { channel_Click(client_, tab); }, true);
  }
}

// An item of one form says in English what it means by a tool tip, and to a screen reader.
void MainMenu::Explain(QAction* item, const char* meaning) {
  item->setProperty(kMeaning, QString::fromLatin1(meaning));
  SpeakAction(item, QString());
}

void MainMenu::SetLanguage(UiLanguage language) {
  const char* caption = language == UiLanguage::kRussian ? kRussian : kEnglish;
  for (auto* item : window_->findChildren<QAction*>()) {
    const QVariant text = item->property(caption);
    if (text.isValid()) item->setText(text.toString());
    const QVariant meaning = item->property(kMeaning);
    if (!meaning.isValid()) continue;
    const QString said = language == UiLanguage::kEnglish ? meaning.toString() : QString();
    item->setToolTip(said);
    SpeakAction(item, said);
  }
  for (auto* menu : window_->menuBar()->findChildren<QMenu*>())
    SayControl(menu, menu->title());
  ShowChecks();
}

void MainMenu::ShowChecks() {
  const AppState& app = client_.app;
  const auto check = [this](const char* name, bool checked) {
    if (auto* item = window_->findChild<QAction*>(QString::fromLatin1(name)))
      item->setChecked(checked);
  };
  check("rus", app.Language == UiLanguage::kRussian);
  check("eng", app.Language == UiLanguage::kEnglish);
  check("bold_nicks", app.rFontMain.Bold);
  check("bold_time", app.rFontMain.TimeBold);
  ShowBot();
}

void MainMenu::ShowBot() {
  const BotMenu state = StateOfBotMenu(client_);
  const auto item = [this](const char* name) {
    return window_->findChild<QAction*>(QString::fromLatin1(name));
  };
  item("akick_enabled")->setChecked(state.akick_enabled);
  item("say_ip_and_flags")->setChecked(state.say_ip_and_flags);
  item("say_in_chat")->setEnabled(state.say_in_enabled);
  item("say_in_client")->setEnabled(state.say_in_enabled);
  item(state.say_in_chat ? "say_in_chat" : "say_in_client")->setChecked(true);
  bool any = false;
  for (std::size_t tab = 0; tab < state.channels.size(); ++tab) {
    const ChannelItem& channel = state.channels[tab];
    channels_[tab]->setText(
        ToQString(channel.caption).replace(QLatin1Char('&'), QLatin1String("&&")));
    channels_[tab]->setVisible(channel.visible);
    channels_[tab]->setChecked(channel.checked);
    any = any || channel.visible;
  }
  section_->setVisible(any);
}

}  // namespace parlorwire
