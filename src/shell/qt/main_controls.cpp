#include "shell/qt/main_controls.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QStatusBar>
#include <initializer_list>
#include <string>

#include "pane/qt/rich_text_view.h"
#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "shell/qt/banner_panel.h"
#include "shell/qt/control_names.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/ground.h"
#include "shell/qt/line_razdel.h"
#include "shell/qt/link_label.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/smile_pixmap.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/tone_box.h"
#include "shell/version.h"

namespace parlorwire {
namespace {

LinkLabel* NewLink(QWidget* ground, const char* name, const Text& caption) {
  auto* link = new LinkLabel(ground);
  link->setText(ToQString(caption));
  NameControl(link, QString::fromLatin1(name));
  SayControl(link, link->text());
  return link;
}

void NewBrackets(MainControls& c) {
  for (int number = 1; number <= 16; ++number) {
    auto* bracket = new QLabel(number % 2 == 1 ? "[" : "]", c.ground);
    bracket->setFont(LabelFont());
    QPalette look = bracket->palette();
    look.setColor(QPalette::WindowText, QColor(kLinkColor));
    bracket->setPalette(look);
    NameControl(bracket, "Label1", number);
    c.Label1.push_back(bracket);
  }
}

// A piece of the window's own colour.
QWidget* NewStrip(QWidget* ground, const char* name) {
  auto* strip = new QWidget(ground);
  strip->setPalette(PaletteOn(strip->palette(), kMainBackColor));
  strip->setAutoFillBackground(true);
  NameControl(strip, QString::fromLatin1(name));
  return strip;
}

void NewPanels(MainControls& c, QStatusBar* bar) {
  bar->setSizeGripEnabled(true);
  for (std::size_t i = 0; i < c.panels.size(); ++i) {
    auto* panel = i == 2 ? new BannerPanel(bar) : new QLabel(bar);
    panel->setFont(LabelFont());
    panel->setTextFormat(Qt::PlainText);
    panel->setMargin(2);
    panel->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    NameControl(panel, "panel", static_cast<int>(i) + 1);
    bar->addWidget(panel, i == 2 ? 1 : 0);
    c.panels[i] = panel;
  }
  static_cast<BannerPanel*>(c.panels[2])
      ->SetBanner(
          ToQString(Text("Parlorwire SE build ") + kVersion +
                    "; Все пожелания и замеченные недостатки сообщайте на канале или в перс"_w));
}

}  // namespace

MainControls NewMainControls(Client& client, QWidget* ground_owner, QStatusBar* panels) {
  MainControls c;
  c.ground = new Ground(ground_owner);
  NameControl(c.ground, "ground");
  c.button_connect_main = new GraphicButton(GraphicButton::Picture::kConnect, c.ground);
  NameControl(c.button_connect_main, "button_connect_main");
  c.AddTab = NewLink(c.ground, "AddTab", "&Добавить таб"_w);
  c.logout = NewLink(c.ground, "logout", "Выход с канала"_w);
  c.logoff = NewLink(c.ground, "logoff", "Выход из чата"_w);
  c.close_tab = NewLink(c.ground, "close_tab", "Закрыть таб"_w);
  c.sp_opers = NewLink(c.ground, "sp_opers", "Операторы"_w);
  c.sp_bans = NewLink(c.ground, "sp_bans", "Баны"_w);
  c.hist_topic = NewLink(c.ground, "hist_topic", "История смены тем"_w);
  c.letogr = NewLink(c.ground, "letogr", "Летограф"_w);
  c.search_label = NewLink(c.ground, "search_label", "Поиск"_w);
  NewBrackets(c);
  c.BackColorTab = NewStrip(c.ground, "BackColorTab");
  c.SSTab = new parlorwire::SSTab(c.ground);
  NameControl(c.SSTab, "SSTab");
  c.SayUseOp = new QCheckBox("/op", c.ground);
  c.SayUseOp->setFont(LabelFont());
  NameControl(c.SayUseOp, "SayUseOp");
  c.perecodirovka_label = NewLink(c.ground, "perecodirovka_label", "Перекодировка"_w);
  c.button_smiles = new GraphicButton(GraphicButton::Picture::kSmiles, c.ground);
  c.button_smiles->setFocusPolicy(Qt::TabFocus);
  NameControl(c.button_smiles, "button_smiles");
  for (int slot = 0; slot < kTabCount; ++slot)
    c.tab(slot) = NewTabControls(c.ground, client.tab(slot), slot);
  c.Pict = NewStrip(c.ground, "Pict");
  c.Pict->hide();
  NewPanels(c, panels);
  return c;
}

void OrderMainControls(const MainControls& c) {
  QWidget* last = c.button_connect_main;
  const auto next = [&last](std::initializer_list<QWidget*> controls) {
    for (QWidget* control : controls) {
      QWidget::setTabOrder(last, control);
      last = control;
    }
  };
  next({c.AddTab, c.logout, c.logoff, c.close_tab, c.sp_opers, c.sp_bans, c.hist_topic, c.letogr,
        c.search_label, c.SSTab});
  for (const TabControls& t : c.tabs)
    next({t.Rich, t.line_razdel, t.button_update, t.Rich_Users, t.Rich_Server, t.StopScroll});
  next({c.SayUseOp});
  for (const TabControls& t : c.tabs)
    next({t.pers});
  next({c.perecodirovka_label, c.button_smiles});
  for (const TabControls& t : c.tabs)
    next({t.intonacia, t.msg, t.button_say, t.button_clear});
}

void ShowSlot(const MainControls& c, int slot) {
  // First hide, so that the focus never rests on what is about to go.
  for (int i = 0; i < kTabCount; ++i)
    if (i != slot) ShowTabControls(c.tab(i), false);
  if (slot >= 0) ShowTabControls(c.tab(slot), true);
  const bool any = slot >= 0;
  c.SSTab->setVisible(any);
  c.BackColorTab->setVisible(any);
  c.SayUseOp->setVisible(any);
  c.perecodirovka_label->setVisible(any);
  c.button_smiles->setVisible(any);
  c.ground->ShowHint(!any);
}

void SetMainLanguage(const MainControls& c, UiLanguage language) {
  const auto in_language = [language](const BothLanguages& text) {
    return ToQString(text.In(language));
  };
  for (const TabControls& tab : c.tabs)
    SetTabLanguage(tab, language);
  // Captions of one form say in English what they mean by tool tips, and to a screen reader.
  const bool english = language == UiLanguage::kEnglish;
  const auto explain = [english](LinkLabel* link, const char* meaning) {
    link->setToolTip(english ? QString::fromLatin1(meaning) : QString());
    SayControl(link, english ? QString::fromLatin1(meaning) : link->text());
  };
  explain(c.logout, "Leave the channel");
  explain(c.logoff, "Log off from the chat");
  explain(c.close_tab, "Close the tab");
  // The label is grey while a tab connects; its key is not.
  c.close_tab->setToolTip(in_language({W<"Закрыть таб, и пока он соединяется: Ctrl+W">,
                                       "Close the tab, also while it is connecting: Ctrl+W"}));
  explain(c.sp_opers, "Operators");
  explain(c.sp_bans, "Bans");
  explain(c.hist_topic, "Changes of the topic");
  explain(c.letogr, "Statistics of the chat");
  explain(c.search_label, "Search");
  explain(c.perecodirovka_label, "Recode what was typed in the wrong keyboard layout");
  c.button_connect_main->setText(in_language({W<"&Войти в чат">, "&Log in"}));
  SayControl(c.button_connect_main, c.button_connect_main->text());
  SayControl(c.SSTab, in_language({W<"Табы">, "Tabs"}));
  SayControl(c.SayUseOp, in_language({W<"Говорить операторам">, "Say to the operators"}));
  c.SayUseOp->setToolTip(c.SayUseOp->accessibleName());
  SayControl(c.button_smiles, in_language(kSmilesText));
  c.button_smiles->setToolTip(c.button_smiles->accessibleName());
  SayControl(c.ground, in_language({W<"Чат">, "Chat"}));
  c.ground->Hint(in_language({W<"Нажмите «Войти в чат», чтобы выбрать ник и канал.">,
                              "Press \"Log in\" to choose a nickname and a channel."}));
}

void ShowPanels(const MainControls& c, const Client& client) {
  const auto show = [](QLabel* panel, const Text& text) {
    panel->setText(ToQString(text));
    SayControl(panel, panel->text());  // the toolkit does not read the text
  };
  show(c.panels[0], client.app.ChatHost + ":" + client.app.ChatPort);
  int visible = 0;
  for (int slot = 0; slot < kTabCount; ++slot)
    visible += c.SSTab->TabVisible(slot) ? 1 : 0;
  const Text label = InLanguage(client, {W<"Табы: ">, "Tabs: "});
  show(c.panels[1], label + std::to_string(visible) + "/" + std::to_string(kTabCount));
}

}  // namespace parlorwire
