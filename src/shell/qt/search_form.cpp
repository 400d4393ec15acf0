#include "shell/qt/search_form.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"
#include "shell/qt/dialog_frame.h"
#include "shell/qt/graphic_button.h"

namespace parlorwire {
namespace {

constexpr int kFromRight = 12;  // pixels, of the main window
constexpr int kFromTop = 4;

constexpr BothLanguages kSearchTitle{W<"Поиск">, "Search"};

}  // namespace

search_form::search_form(Client& client, QWidget* owner,
                         std::function<void(SearchDirection)> find_on)
    : QDialog(owner), client_(client), find_on_(std::move(find_on)) {
  NameControl(this, QStringLiteral("search_form"));
  setWindowTitle(ToQString(kSearchTitle.russian));
  setPalette(PaletteOn(palette(), kDialogBackColor));
  FrameAsDialog(this);
  setFont(LabelFont());
  Build();
  Wire();
  SetLanguage(client_.app.Language);
}

void search_form::Build() {
  l_txt_to_search_ = new QLabel(this);
  txt_to_search_ = new QLineEdit(this);
  l_txt_to_search_->setBuddy(txt_to_search_);
  compl_word_ = new QCheckBox(this);
  case_sensitive_ = new QCheckBox(this);
  Opt_up_ = new QRadioButton(this);
  Opt_down_ = new QRadioButton(this);
  Opt_down_->setChecked(true);
  button_next_ = new GraphicButton(GraphicButton::Picture::kFind, this);
  button_cancel_ = new GraphicButton(GraphicButton::Picture::kClear, this);
  // A click leaves the focus in the text.
  button_next_->setFocusPolicy(Qt::TabFocus);
  button_cancel_->setFocusPolicy(Qt::TabFocus);

  NameControl(l_txt_to_search_, QStringLiteral("l_txt_to_search"));
  NameControl(txt_to_search_, QStringLiteral("txt_to_search"));
  NameControl(compl_word_, QStringLiteral("compl_word"));
  NameControl(case_sensitive_, QStringLiteral("case_sensitive"));
  NameControl(Opt_up_, QStringLiteral("Opt_up"));
  NameControl(Opt_down_, QStringLiteral("Opt_down"));
  NameControl(button_next_, QStringLiteral("button_next"));
  NameControl(button_cancel_, QStringLiteral("button_cancel"));

  auto* text = new QHBoxLayout;
  text->addWidget(l_txt_to_search_);
  text->addWidget(txt_to_search_, 1);
  auto* choices = new QGridLayout;
  choices->setHorizontalSpacing(18);
  choices->addWidget(compl_word_, 0, 0);
  choices->addWidget(case_sensitive_, 1, 0);
  choices->addWidget(Opt_up_, 0, 1);
  choices->addWidget(Opt_down_, 1, 1);
  auto* left = new QVBoxLayout;
  left->addLayout(text);
  left->addLayout(choices);
  left->addStretch();
  auto* buttons = new QVBoxLayout;
  buttons->addWidget(button_next_);
  buttons->addWidget(button_cancel_);
  buttons->addStretch();
  auto* whole = new QHBoxLayout(this);
  whole->setContentsMargins(14, 14, 14, 14);
  whole->setSpacing(14);
  whole->addLayout(left, 1);
  whole->addLayout(buttons);
  setMinimumWidth(460);
}

void search_form::Wire() {
  connect(txt_to_search_, &QLineEdit::textChanged, this, &search_form::TakeControls);
  for (QCheckBox* choice : {compl_word_, case_sensitive_})
    connect(choice, &QAbstractButton::toggled, this, &search_form::TakeControls);
  connect(button_next_, &QAbstractButton::clicked, this, &search_form::Next);
  connect(button_cancel_, &QAbstractButton::clicked, this, &QDialog::reject);
  for (GraphicButton* button : {button_next_, button_cancel_})
    button->installEventFilter(this);
  const auto shortcut = [this](const QKeySequence& key, SearchDirection direction) {
    auto* made = new QShortcut(key, this);
    made->setAutoRepeat(false);
    connect(made, &QShortcut::activated, this, [this, direction] { find_on_(direction); });
  };
  shortcut(QKeySequence(Qt::Key_F3), SearchDirection::kDown);
  shortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3), SearchDirection::kUp);
}

void search_form::SetLanguage(UiLanguage language) {
  const bool english = language == UiLanguage::kEnglish;
  const auto say = [english](QWidget* control, const BothLanguages& words) {
    SayControl(control, ToQString(english ? words.english : words.russian));
    control->setToolTip(english ? ToQString(words.english) : QString());
  };
  const auto show = [&say](auto* control, const BothLanguages& words) {
    control->setText(ToQString(words.russian));
    say(control, words);
  };
  constexpr BothLanguages kFind{W<"Найти:">, "Find:"};
  show(l_txt_to_search_, kFind);
  say(txt_to_search_, kFind);
  show(compl_word_, {W<"Слово целиком">, "Whole word"});
  show(case_sensitive_, {W<"С учётом регистра">, "Match case"});
  show(Opt_up_, {W<"Вверх">, "Up"});
  show(Opt_down_, {W<"Вниз">, "Down"});
  show(button_next_, {W<"Найти далее">, "Find next"});
  show(button_cancel_, {W<"Отмена">, "Cancel"});
  SayControl(this, ToQString(kSearchTitle.In(language)));
}

void search_form::ComeUp() {
  if (!placed_) {
    placed_ = true;
    adjustSize();
    // Over the links and the user list, where it covers the least of the pane.
    const QRect window = parentWidget()->geometry();
    move(std::max(window.left(), window.right() - width() - kFromRight), window.top() + kFromTop);
  }
  show();
  raise();
  activateWindow();
}

void search_form::TakeControls() {
  SearchForm& form = client_.app.search_form;
  form.txt_to_search = FromQString(txt_to_search_->text());
  form.compl_word = compl_word_->isChecked();
  form.case_sensitive = case_sensitive_->isChecked();
}

void search_form::Next() {
  if (txt_to_search_->text().isEmpty()) return txt_to_search_->setFocus();
  find_on_(Opt_up_->isChecked() ? SearchDirection::kUp : SearchDirection::kDown);
}

void search_form::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  txt_to_search_->selectAll();
  txt_to_search_->setFocus();
}

void search_form::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  StopSearch(client_);
}

void search_form::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
    return QDialog::keyPressEvent(event);
  if (!event->isAutoRepeat()) Next();
}

bool search_form::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease &&
      static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
    txt_to_search_->setFocus();
  return QDialog::eventFilter(watched, event);
}

}  // namespace parlorwire
