#include "shell/qt/message_box.h"

#include <QMessageBox>

#include "platform/qt/text_conversion.h"
#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

QMessageBox::Icon ToolkitIcon(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kStop:
      return QMessageBox::Critical;
    case BoxIcon::kQuestion:
      return QMessageBox::Question;
    case BoxIcon::kExclamation:
      return QMessageBox::Warning;
    case BoxIcon::kInformation:
      return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

void Prepare(QMessageBox& box, const Text& text, BoxIcon icon) {
  box.setWindowTitle(QStringLiteral("Parlorwire"));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQString(text));
  box.setIcon(ToolkitIcon(icon));
  NameControl(&box, QStringLiteral("message_box"));
  SayControl(&box, ToQString(text));
}

}  // namespace

void ShowMessageBox(QWidget* owner, const Text& text, BoxIcon icon) {
  QMessageBox box(owner);
  Prepare(box, text, icon);
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
}

bool AskInMessageBox(QWidget* owner, const Text& text, BoxIcon icon, BoxAnswer preselected) {
  QMessageBox box(owner);
  Prepare(box, text, icon);
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(preselected == BoxAnswer::kYes ? QMessageBox::Yes : QMessageBox::No);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

}  // namespace parlorwire
