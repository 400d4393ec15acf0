#include "shell/qt/text_input.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "bot/ask_reason.h"
#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"
#include "shell/qt/dialog_frame.h"

namespace parlorwire {
namespace {

// What the Russian texts mean, each of which has this form only.
constexpr const char* kReasonMeaning = "Type a reason";
constexpr const char* kReasonForTheListMeaning =
    "Type a reason (it will be shown in the list of bans)";
constexpr const char* kDurationMeaning = "Choose a time in seconds";
constexpr const char* kForGoodMeaning = "For good";

}  // namespace

text_input::text_input(Client& client, const QString& prompt, const QString& title, QWidget* owner)
    : QDialog(owner), client_(client) {
  NameControl(this, "text_input");
  setWindowTitle(title);
  SayControl(this, title);
  setPalette(PaletteOn(palette(), kDialogBackColor));
  FrameAsDialog(this);
  setFont(LabelFont());

  const bool english = client_.app.Language == UiLanguage::kEnglish;
  const auto labelled = [this, english](QWidget* control, const QString& name, const QString& words,
                                        const char* meaning) {
    auto* label = new QLabel(words, this);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(control);
    NameControl(control, name);
    NameControl(label, "l_" + name);
    for (QWidget* each : {control, static_cast<QWidget*>(label)}) {
      SayControl(each, english ? QString::fromLatin1(meaning) : words);
      if (english) each->setToolTip(QString::fromLatin1(meaning));
    }
    return label;
  };
  text_ = new QLineEdit(this);
  auto* column = new QVBoxLayout(this);
  const bool for_the_list = prompt == ToQString(kReasonForTheList);
  column->addWidget(
      labelled(text_, "text", prompt, for_the_list ? kReasonForTheListMeaning : kReasonMeaning));
  column->addWidget(text_);
  duration_ = new QComboBox(this);
  for (const std::string_view seconds : kDurations)
    duration_->addItem(ToQString(seconds));
  if (english) {
    const int for_good = duration_->findText(ToQString(kForGood));
    for (const int role : {Qt::ToolTipRole, Qt::AccessibleTextRole})
      duration_->setItemData(for_good, QString::fromLatin1(kForGoodMeaning), role);
  }
  auto* row = new QHBoxLayout;
  QLabel* duration_label =
      labelled(duration_, "duration", ToQString(kDurationLabel), kDurationMeaning);
  row->addWidget(duration_label);
  row->addWidget(duration_);
  row->addStretch();
  column->addLayout(row);
  duration_->setVisible(client_.app.PromptWantsDuration);
  duration_label->setVisible(client_.app.PromptWantsDuration);

  const auto button = [this](const char* name, const BothLanguages& words) {
    auto* made = new QPushButton(ToQString(InLanguage(client_, words)), this);
    NameControl(made, name);
    SayControl(made, made->text());
    return made;
  };
  QPushButton* button_ok = button("button_ok", {W<"&ОК">, "&OK"});
  QPushButton* button_cancel = button("button_cancel", {W<"О&тмена">, "&Cancel"});
  button_ok->setDefault(true);
  button_cancel->setAutoDefault(false);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(button_ok);
  buttons->addWidget(button_cancel);
  column->addLayout(buttons);
  column->setContentsMargins(14, 14, 14, 14);
  column->setSpacing(8);
  setMinimumWidth(400);
  connect(button_ok, &QPushButton::clicked, this, &text_input::Confirm);
  connect(button_cancel, &QPushButton::clicked, this, &QDialog::reject);
  text_->setFocus();
}

void text_input::Confirm() {
  OnEvent(client_, "button_ok", [&] {
    ConfirmTextInput(client_, FromQString(text_->text()),
                     static_cast<std::size_t>(duration_->currentIndex()));
  });
  accept();
}

}  // namespace parlorwire
