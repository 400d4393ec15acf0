#include "shell/qt/tab_controls.h"

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QRect>
#include <array>

#include "pane/qt/rich_text_view.h"
#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/tab_session.h"
#include "shell/client_main_layout.h"
#include "shell/qt/control_names.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/line_razdel.h"
#include "shell/qt/link_label.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/pane_widget.h"
#include "shell/qt/tone_box.h"
#include "shell/qt/twips.h"
#include "shell/start_up.h"
#include "users/posting.h"

namespace parlorwire {
namespace {

constexpr int kUsersNumTop = 600;  // twips, in frame_button_update
constexpr int kUsersNumLeft = 100;

// The tones have Russian names only.
constexpr std::array<const char*, kTones.size()> kToneMeanings = {
    "In a normal tone", "By an inner voice", "Laughing", "Thoughtfully", "Sadly",
    "Singing",          "Grumbling"};

ToneBox* NewIntonacia(QWidget* ground) {
  auto* box = new ToneBox(ground);
  for (const Tone& tone : kTones)
    box->addItem(ToQString(tone.label));
  box->setFont(LabelFont());
  return box;
}

QLabel* NewUsersNum(QWidget* frame) {
  auto* label = new QLabel(frame);
  label->setFont(LabelFont());
  label->setTextFormat(Qt::PlainText);
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, QColor(0x00FF00));
  label->setPalette(palette);
  return label;
}

QFrame* NewFrame(QWidget* ground) {
  auto* frame = new QFrame(ground);
  frame->setAutoFillBackground(true);
  return frame;
}

}  // namespace

TabControls NewTabControls(QWidget* ground, TabSession& tab, int slot) {
  TabControls c;
  c.Rich = NewPaneWidget(tab.Rich, ground);
  c.line_razdel = new LineRazdel(ground);
  c.frame_button_update = NewFrame(ground);
  c.button_update = new GraphicButton(GraphicButton::Picture::kUpdate, c.frame_button_update);
  c.users_num = NewUsersNum(c.frame_button_update);
  c.Rich_Users = NewPaneWidget(tab.Rich_Users, ground);
  c.Rich_Server = NewPaneWidget(tab.Rich_Server, ground);
  c.Rich_Server->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  c.Rich_Server->setLineWidth(1);  // of its one row nothing is to be lost
  // The program selects the answer to colour it; nobody is to see that.
  tab.Rich_Server.HideSelection(true);
  c.StopScroll = new QCheckBox(ground);
  c.StopScroll->setFont(LabelFont());
  c.pers = new LinkLabel(ground);
  c.intonacia = NewIntonacia(ground);
  c.msg = new MsgBox(ground);
  c.msg->setFont(QFont(QStringLiteral("verdana"), 9));
  c.button_say = new GraphicButton(GraphicButton::Picture::kSay, ground);
  c.button_clear = new GraphicButton(GraphicButton::Picture::kClear, ground);

  NameControl(c.Rich, "Rich", slot);
  NameControl(c.line_razdel, "line_razdel", slot);
  NameControl(c.frame_button_update, "frame_button_update", slot);
  NameControl(c.button_update, "button_update", slot);
  NameControl(c.users_num, "users_num", slot);
  NameControl(c.Rich_Users, "Rich_Users", slot);
  NameControl(c.Rich_Server, "Rich_Server", slot);
  NameControl(c.StopScroll, "StopScroll", slot);
  NameControl(c.pers, "pers", slot);
  NameControl(c.intonacia, "intonacia", slot);
  NameControl(c.msg, "msg", slot);
  NameControl(c.button_say, "button_say", slot);
  NameControl(c.button_clear, "button_clear", slot);
  return c;
}

void ShowTabControls(const TabControls& c, bool visible) {
  for (QWidget* control : std::initializer_list<QWidget*>{
           HolderOf(c.Rich), c.line_razdel, HolderOf(c.Rich_Users), HolderOf(c.Rich_Server),
           c.frame_button_update, c.msg, c.intonacia, c.button_clear, c.button_say, c.StopScroll,
           c.pers})
    control->setVisible(visible);
}

void EnableTabControls(const TabControls& c, bool enabled) {
  c.msg->setReadOnly(!enabled);
  QPalette palette;
  if (!enabled) palette.setColor(QPalette::Base, QColor(0xDFE2DC));
  c.msg->setPalette(palette);
  c.intonacia->setEnabled(enabled);
  c.button_clear->setEnabled(enabled);
  c.button_say->setEnabled(enabled);
  c.pers->SetWanted(enabled);
  c.button_update->setEnabled(enabled);
}

void PaintFrame(const TabControls& c, PaneColour ground) {
  QPalette palette = c.frame_button_update->palette();
  palette.setColor(QPalette::Window,
                   QColor(ground & 0xFF, (ground >> 8) & 0xFF, (ground >> 16) & 0xFF));
  c.frame_button_update->setPalette(palette);
}

void SetTabLanguage(const TabControls& c, UiLanguage language) {
  const auto in_language = [language](const BothLanguages& text) {
    return ToQString(text.In(language));
  };
  c.StopScroll->setText(in_language(kStopScrollText));
  c.pers->setText(in_language(kPersText));
  c.button_say->setText(in_language({W<"С&казать">, "Sa&y"}));
  c.button_clear->setText(in_language({W<"С&тереть">, "&Clear"}));
  for (RichTextView* view : {c.Rich, c.Rich_Users, c.Rich_Server})
    view->SetRussian(language == UiLanguage::kRussian);
  c.users_num->setToolTip(in_language({W<"Операторов на канале / всего пользователей">,
                                       "Operators on the channel / users in all"}));
  const bool english = language == UiLanguage::kEnglish;
  for (std::size_t tone = 0; tone < kTones.size(); ++tone)
    for (const int role : {Qt::ToolTipRole, Qt::AccessibleTextRole})
      c.intonacia->setItemData(static_cast<int>(tone),
                               english ? QString::fromLatin1(kToneMeanings[tone]) : QVariant(),
                               role);
  c.button_update->setText(in_language({W<"&Обновить">, "&Update"}));

  SayControl(c.Rich, in_language({W<"Сообщения">, "Messages"}));
  SayControl(c.Rich_Users, in_language({W<"Пользователи">, "Users"}));
  SayControl(c.Rich_Server, in_language({W<"Ответ чата">, "Answer of the chat"}));
  SayControl(c.line_razdel,
             in_language({W<"Граница списка пользователей">, "Edge of the user list"}));
  SayControl(c.frame_button_update, in_language({W<"Список пользователей">, "User list"}));
  SayControl(c.users_num, in_language({W<"Число пользователей">, "Number of users"}));
  SayControl(c.intonacia, in_language({W<"Интонация">, "Tone"}));
  SayControl(c.msg, in_language({W<"Сообщение">, "Message"}));
  SayControl(c.StopScroll, c.StopScroll->text());
  SayControl(c.pers, c.pers->text());
  SayControl(c.button_say, c.button_say->text());
  SayControl(c.button_clear, in_language({W<"Стереть сообщение">, "Clear the message"}));
  SayControl(c.button_update, in_language({W<"Обновить список">, "Update the user list"}));
}

void PlaceTabControls(const TabControls& c, const SharedPlaces& shared, const SlotPlaces& slot) {
  PutAt(HolderOf(c.Rich), slot.Rich);
  PutAt(HolderOf(c.Rich_Server), slot.Rich_Server);
  PutAt(c.line_razdel, slot.line_razdel);
  PutAt(c.frame_button_update, slot.frame_button_update);
  PutAt(HolderOf(c.Rich_Users), slot.Rich_Users);
  PutAt(c.intonacia, shared.intonacia);
  PutAt(c.msg, shared.msg);
  PutAt(c.button_say, shared.button_say);
  PutAt(c.button_clear, shared.button_clear);

  const QSize button = c.button_update->sizeHint();
  const int frame_width = c.frame_button_update->width();
  c.button_update->setGeometry((frame_width - button.width()) / 2, 7, button.width(),
                               button.height());
  const int left = Pixels(kUsersNumLeft);
  c.users_num->setGeometry(left, Pixels(kUsersNumTop), frame_width - 2 * left,
                           c.users_num->fontMetrics().height());
}

}  // namespace parlorwire
