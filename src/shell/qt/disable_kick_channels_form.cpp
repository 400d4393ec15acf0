#include "shell/qt/disable_kick_channels_form.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"
#include "shell/qt/dialog_frame.h"
#include "shell/qt/twips.h"

namespace parlorwire {
namespace {

// In twips.
constexpr int kFrameHeight = 2775;  // at least
constexpr int kBoxWidth = 3975;

// Frame and label have one form; in English they say what they mean by a tool tip, and to a screen
// reader.
void Explain(const Client& client, QWidget* control, std::string_view shown, const char* meaning) {
  const bool english = client.app.Language == UiLanguage::kEnglish;
  if (english) control->setToolTip(QString::fromLatin1(meaning));
  SayControl(control, english ? QString::fromLatin1(meaning) : ToQString(shown));
}

}  // namespace

DisableKickChannels_form::DisableKickChannels_form(Client& client, QWidget* owner)
    : QDialog(owner), client_(client), channels_(OpenKickChannels(client)) {
  NameControl(this, QStringLiteral("DisableKickChannels_form"));
  setWindowTitle(ToQString(InLanguage(client_, {W<"Каналы автокика">, "Auto-kick channels"})));
  SayControl(this, windowTitle());
  setPalette(PaletteOn(palette(), kMainBackColor));
  FrameAsDialog(this);
  setFont(LabelFont());

  const auto button = [this](const char* name, const BothLanguages& words) {
    auto* made = new QPushButton(ToQString(InLanguage(client_, words)), this);
    NameControl(made, QString::fromLatin1(name));
    SayControl(made, made->text());
    return made;
  };
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(14, 14, 14, 14);
  column->setSpacing(10);
  column->addWidget(BuildFrame(), 1);
  QPushButton* button_ok = button("button_ok", {W<"&ОК">, "&OK"});
  QPushButton* button_cancel = button("button_cancel", {W<"О&тмена">, "&Cancel"});
  button_ok->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(button_ok);
  buttons->addWidget(button_cancel);
  column->addLayout(buttons);
  connect(button_ok, &QPushButton::clicked, this, &DisableKickChannels_form::Confirm);
  connect(button_cancel, &QPushButton::clicked, this, &QDialog::reject);
  if (boxes_.empty()) button_ok->setFocus();
}

QWidget* DisableKickChannels_form::BuildFrame() {
  auto* frame = new QGroupBox(ToQString(kKickChannelsFrame), this);
  NameControl(frame, QStringLiteral("Frame1"));
  Explain(client_, frame, kKickChannelsFrame, "Tick the channels on which kicks shall work");
  frame->setMinimumHeight(Pixels(kFrameHeight));
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(12, 12, 12, 12);
  for (const KickChannel& channel : channels_) {
    QString caption = ToQString(channel.channel);
    auto* box = new QCheckBox(caption.replace(QLatin1Char('&'), QLatin1String("&&")), frame);
    NameControl(box, QStringLiteral("Ch"), static_cast<int>(boxes_.size()));
    box->setAccessibleName(ToQString(channel.channel));
    box->setMinimumWidth(Pixels(kBoxWidth));
    box->setChecked(channel.ticked);
    column->addWidget(box);
    boxes_.push_back(box);
  }
  if (boxes_.empty()) {
    auto* label = new QLabel(ToQString(kNoOpenChannel), frame);
    label->setFont(QFont(QStringLiteral("verdana"), 10));
    NameControl(label, QStringLiteral("l_Ch"));
    Explain(client_, label, kNoOpenChannel, "You are not connected to any channel");
    label->setMinimumWidth(Pixels(kBoxWidth));
    column->addWidget(label);
  }
  column->addStretch();
  return frame;
}

void DisableKickChannels_form::Confirm() {
  for (std::size_t i = 0; i < boxes_.size(); ++i)
    channels_[i].ticked = boxes_[i]->isChecked();
  OnEvent(client_, "button_ok", [&] { ConfirmKickChannels(client_, channels_); });
  accept();
}

}  // namespace parlorwire
