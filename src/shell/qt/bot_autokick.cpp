#include "shell/qt/bot_autokick.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/autokick_grid.h"
#include "shell/qt/control_names.h"
#include "shell/qt/one_line_only.h"

namespace parlorwire {
namespace {

constexpr QSize kFirstSize(820, 480);  // pixels
constexpr int kFieldWidth = 220;

constexpr const char* kInputMeaning = "Type a nick or an IP";
constexpr const char* kNoteMeaning =
    "A nick or an IP may hold the wildcards \"*\", \"?\", \"#\". Channels are separated by "
    "semicolons, and All means all channels.";

}  // namespace

bot_autokick::bot_autokick(Client& client, QWidget* owner)
    : QDialog(owner), client_(client), model_(new AutoKickModel(client, editor_, this)) {
  NameControl(this, QStringLiteral("bot_autokick"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  Build();
  ShowLanguage();
  client_.hooks.AutoKickAdded = [this](const Text& nick, const Text& channel) {
    if (isVisible()) TakeUp(nick, channel);
  };
}

bot_autokick::~bot_autokick() {
  client_.hooks.AutoKickAdded = std::function<void(const Text&, const Text&)>();
  Grid1_->setModel(nullptr);  // the rows go before the table does
}

void bot_autokick::Build() {
  setPalette(PaletteOn(palette(), kDialogBackColor));
  setFont(LabelFont());

  l_input_field_ = new QLabel(ToQString(kAutoKickInputLabel), this);
  input_field_ = new QLineEdit(this);
  input_field_->setValidator(new OneLineOnly(input_field_));
  input_field_->setMinimumWidth(kFieldWidth);
  l_input_field_->setBuddy(input_field_);
  button_add_ = new QPushButton(this);
  button_add_->setDefault(true);
  Grid1_ = new AutoKickGrid(this);
  Grid1_->setModel(model_);
  note_ = new QLabel(ToQString(kAutoKickNote).remove(QLatin1Char('\r')), this);
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  button_apply_ = new QPushButton(this);
  button_cancel_ = new QPushButton(this);

  NameControl(l_input_field_, QStringLiteral("l_input_field"));
  NameControl(input_field_, QStringLiteral("input_field"));
  NameControl(button_add_, QStringLiteral("button_add"));
  NameControl(Grid1_, QStringLiteral("Grid1"));
  NameControl(note_, QStringLiteral("note"));
  NameControl(button_apply_, QStringLiteral("button_apply"));
  NameControl(button_cancel_, QStringLiteral("button_cancel"));

  auto* top = new QHBoxLayout;
  top->addWidget(l_input_field_);
  top->addWidget(input_field_);
  top->addWidget(button_add_);
  top->addStretch();
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(note_, 1);
  bottom->addWidget(button_apply_, 0, Qt::AlignBottom);
  bottom->addWidget(button_cancel_, 0, Qt::AlignBottom);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 14, 14, 14);
  column->setSpacing(10);
  column->addLayout(top);
  column->addWidget(Grid1_, 1);
  column->addLayout(bottom);
  resize(kFirstSize);
  // A click on a button leaves no cell by itself: `button_cancel` drops what is typed there.
  for (QPushButton* button : {button_add_, button_apply_, button_cancel_})
    button->setFocusPolicy(Qt::TabFocus);

  const auto act = [this](QPushButton* button, const char* name, void (bot_autokick::*action)()) {
    connect(button, &QPushButton::clicked, this,
            [this, name, action] { OnEvent(client_, name, [&] { (this->*action)(); }); });
  };
  act(button_add_, "button_add", &bot_autokick::Add);
  act(button_apply_, "button_apply", &bot_autokick::Apply);
  connect(button_cancel_, &QPushButton::clicked, this, &QDialog::reject);
  Grid1_->Delete = [this](int row) { OnEvent(client_, "Grid1_KeyDown", [&] { Delete(row); }); };
  model_->Typed = [this](int row, AutoKickColumn cell_column, const QString& typed) {
    typed_ = TypedCell{row, cell_column, FromQString(typed)};
    // No message box in the midst of a change of the focus.
    const auto take = [this] {
      if (isVisible()) TakeTyped();
    };
    QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
  };
}

void bot_autokick::ShowList() {
  if (!isVisible()) {
    editor_ = OpenAutoKickEditor(client_);
    typed_.reset();
    model_->Reset();
    Grid1_->scrollToTop();
    input_field_->clear();
    input_field_->setFocus();
    ShowTitle();
    show();
  }
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
}

void bot_autokick::ShowTitle() {
  const Text title = AutoKickEditorTitle(client_);
  setWindowTitle(ToQString(title));
  const Desktop& desktop = client_.platform.desktop;
  const bool english = client_.app.Language == UiLanguage::kEnglish;
  SayControl(this, english ? ToQString(desktop.TabCaption(desktop.ActiveTab()) + " - Bot settings")
                           : windowTitle());
}

// Label, note and headers have one form; in English they say what they mean by a tool tip, and to a
// screen reader.
void bot_autokick::ShowLanguage() {
  const bool english = client_.app.Language == UiLanguage::kEnglish;
  const auto explain = [&](QWidget* control, const QString& russian, const char* meaning) {
    control->setToolTip(english ? QString::fromLatin1(meaning) : QString());
    SayControl(control, english ? QString::fromLatin1(meaning) : russian);
  };
  explain(l_input_field_, l_input_field_->text(), kInputMeaning);
  explain(input_field_, l_input_field_->text(), kInputMeaning);
  explain(note_, note_->text(), kNoteMeaning);
  const auto words = [this](QPushButton* button, const BothLanguages& text) {
    button->setText(ToQString(InLanguage(client_, text)));
    SayControl(button, button->text());
  };
  words(button_add_, {W<"&Добавить">, "A&dd"});
  words(button_apply_, {W<"&Применить">, "&Apply"});
  words(button_cancel_, {W<"&Отмена">, "&Cancel"});
  SayControl(Grid1_, ToQString(InLanguage(client_, {W<"Автокик-лист">, "Auto-kick list"})));
  model_->ChangedLanguage();
  ShowTitle();
}

void bot_autokick::Add() {
  LeaveCell();
  input_field_->setFocus();
  if (!AddAutoKickRow(client_, editor_, FromQString(input_field_->text()))) return;
  input_field_->clear();
  model_->Grown();
  const int last = model_->rowCount() - 1;
  Grid1_->setCurrentIndex(model_->index(last, static_cast<int>(AutoKickColumn::kMask)));
  Grid1_->scrollToBottom();
}

void bot_autokick::Delete(int row) {
  if (!DeleteAutoKickRow(client_, editor_, static_cast<std::size_t>(row))) return;
  model_->Lost(row);
}

void bot_autokick::Apply() {
  if (!LeaveCell()) return;
  ApplyAutoKickEditor(client_, editor_);
  accept();
}

void bot_autokick::TakeUp(const Text& nick, const Text& channel) {
  LeaveCell();
  TakeUpAutoKick(editor_, nick, channel);
  model_->Grown();
  model_->ChangedAnywhere();
}

// Whether no cell was open, or its row has taken what was typed.
bool bot_autokick::LeaveCell() {
  Grid1_->LeaveCell();
  return TakeTyped();
}

bool bot_autokick::TakeTyped() {
  const auto cell = std::exchange(typed_, std::nullopt);
  if (!cell) return true;
  bool taken = false;
  OnEvent(client_, "text_LostFocus", [&] {
    taken = EditAutoKickCell(client_, editor_, static_cast<std::size_t>(cell->row), cell->column,
                             cell->typed);
    model_->Changed(cell->row, cell->column);
  });
  return taken;
}

}  // namespace parlorwire
