#include "shell/qt/nick_menu_popup.h"

#include <QAction>
#include <QCursor>
#include <QFontMetrics>
#include <QMenu>
#include <algorithm>

#include "bot/autokick_adding.h"
#include "bot/moderator_commands.h"
#include "display/message_colours.h"
#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"
#include "shell/qt/font_and_color.h"
#include "shell/qt/spoken_action.h"
#include "users/nick_menu.h"

namespace parlorwire {
namespace {

constexpr int kWidestCaption = 400;  // pixels

QString LatinName(std::string_view name) {
  return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

// A caption as the toolkit wants it. What is cut off or can't be shown in one line is in the tool
// tip.
void SetCaption(QAction* item, const QMenu* menu, const Text& text) {
  const QString whole = ToQString(text);
  QString shown = whole.simplified();
  shown = menu->fontMetrics().elidedText(shown, Qt::ElideRight, kWidestCaption);
  item->setToolTip(shown == whole ? QString() : PlainToolTip(whole));
  item->setText(shown.replace(QLatin1Char('&'), QLatin1String("&&")));
}

}  // namespace

NickMenuPopup::NickMenuPopup(Client& client, QWidget* window)
    : QObject(window),
      client_(client),
      window_(window),
      nick_menu_(new QMenu(window)),
      menu_copy_users_(new QMenu(window)) {
  BuildNickMenu();
  BuildCopyMenu();
  client_.hooks.PopUpNickMenu = [this] { ShowNickMenu(); };
  client_.hooks.PopUpMenuCopyUsers = [this] { ShowCopyMenu(); };
}

NickMenuPopup::~NickMenuPopup() {
  client_.hooks.PopUpNickMenu = std::function<void()>();
  client_.hooks.PopUpMenuCopyUsers = std::function<void()>();
}

void NickMenuPopup::BuildNickMenu() {
  NameControl(nick_menu_, QStringLiteral("nick_menu"));
  nick_menu_->setToolTipsVisible(true);
  for (const NickMenuItem& item : kNickMenuTree) {
    QMenu* menu = item.parent.empty() ? nick_menu_ : items_.at(item.parent)->menu();
    QAction* action = menu->addAction(QString());
    action->setObjectName(LatinName(item.name));
    action->setSeparator(item.IsLine());
    items_[item.name] = action;
    const bool has_items = std::ranges::any_of(
        kNickMenuTree, [&](const NickMenuItem& other) { return other.parent == item.name; });
    if (has_items) {
      auto* below = new QMenu(menu);
      NameControl(below, LatinName(item.name));
      below->setToolTipsVisible(true);
      action->setMenu(below);
      action->setObjectName(LatinName(item.name) + QStringLiteral("_action"));
    } else if (!item.IsLine()) {
      connect(action, &QAction::triggered, this,
              [this, name = item.name] { OnEvent(client_, name, [&] { Act(name); }); });
    }
  }
}

void NickMenuPopup::BuildCopyMenu() {
  NameControl(menu_copy_users_, QStringLiteral("menu_copy_users"));
  QAction* copy = menu_copy_users_->addAction(QString());
  copy->setObjectName(QStringLiteral("text_copy_users"));
  connect(copy, &QAction::triggered, this,
          [this] { OnEvent(client_, "text_copy_users", [&] { text_copy_users(client_); }); });
}

void NickMenuPopup::At(QPoint place, const std::function<void()>& open) {
  place_ = place;
  open();
  place_.reset();
}

void NickMenuPopup::CloseUnlessOfActiveTab() {
  if (client_.app.nick_menu.tab != client_.platform.desktop.ActiveTab()) nick_menu_->close();
}

void NickMenuPopup::ShowNickMenu() {
  const NickMenu& record = client_.app.nick_menu;
  const UiLanguage language = client_.app.Language;
  for (const NickMenuItem& item : kNickMenuTree) {
    QAction* action = items_.at(item.name);
    action->setVisible(IsShown(record, item));
    if (item.IsLine()) continue;
    SetCaption(action, nick_menu_, CaptionOf(record, item));
    if (item.english.empty()) continue;
    const bool english = language == UiLanguage::kEnglish;
    const QString meaning = english ? LatinName(item.english) : QString();
    action->setToolTip(meaning);
    SpeakAction(action, meaning);
    if (QMenu* below = action->menu())
      SayControl(below, english ? meaning : ToQString(item.caption));
  }
  SayControl(nick_menu_, ToQString(record.nickname));
  Open(nick_menu_);
}

void NickMenuPopup::ShowCopyMenu() {
  menu_copy_users_->actions().first()->setText(
      ToQString(InLanguage(client_, {W<"Копировать">, "Copy"})));
  Open(menu_copy_users_);
}

// By keyboard the first item is chosen already.
void NickMenuPopup::Open(QMenu* menu) {
  menu->popup(place_.value_or(QCursor::pos()));
  if (place_) menu->setActiveAction(menu->actions().first());
}

void NickMenuPopup::Act(std::string_view name) {
  const NickMenu& record = client_.app.nick_menu;
  if (name == "nickname") return CopyIntoMsg(client_, record.nickname);
  if (name == "user_ip") return CopyIntoMsg(client_, record.user_ip);
  if (name == "user_flags") return CopyIntoMsg(client_, record.user_flags);
  if (name == "user_inf") return CopyIntoMsg(client_, record.user_inf);
  if (name == "lower") return lower(client_);
  if (name == "unlower") return unlower(client_);
  if (name == "kick") return kick(client_);
  if (name == "ban") return ban(client_);
  if (name == "mute") return mute(client_);
  if (name == "unmute") return unmute(client_);
  if (name == "this_channel") return AddToAutoKickThisChannel(client_);
  if (name == "all_channels") return AddToAutoKickAllChannels(client_);
  if (name == "send_pers") return send_pers(client_);
  if (name == "change_message_color") return ChangeMessageColor();
}

void NickMenuPopup::ChangeMessageColor() {
  const Text nick = client_.app.MenuNick;
  const QString title = ToQString(InLanguage(client_, {W<"Цвет: ">, "Colour: "}) + nick);
  const auto chosen = ChooseColorDialog(MessageColorOf(client_, nick), title, window_);
  if (chosen) change_message_color(client_, nick, *chosen);
}

}  // namespace parlorwire
