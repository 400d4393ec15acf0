#include "shell/qt/smiles_menu.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QPixmap>
#include <QProxyStyle>
#include <QtMath>
#include <algorithm>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"
#include "shell/qt/smile_pixmap.h"
#include "users/smile_menu.h"

namespace parlorwire {

constexpr int kLargestSide = 64;  // pixels; larger pictures are shrunk to it

// Pictures as large as they are.
class SmilesStyle : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    return metric == PM_SmallIconSize ? side_ : QProxyStyle::pixelMetric(metric, option, widget);
  }
  void MakeRoomFor(const QPixmap& picture) {
    const QSizeF size = picture.deviceIndependentSize();
    const int side = qCeil(std::max(size.width(), size.height()));
    side_ = std::clamp(side, side_, kLargestSide);
  }

 private:
  int side_ = 0;  // pixels, of the largest picture
};

SmilesMenu::SmilesMenu(Client& client, QWidget* window)
    : QObject(window), client_(client), menu_(new QMenu(window)), style_(new SmilesStyle) {
  NameControl(menu_, QStringLiteral("MenuSmilesItem"));
  style_->setParent(menu_);
  menu_->setStyle(style_);
  menu_->setPalette(SmilesPalette(menu_->palette()));
  connect(menu_, &QMenu::aboutToShow, this, &SmilesMenu::Fill);
  ShowTitle();
}

void SmilesMenu::ShowTitle() {
  menu_->setTitle(ToQString(InLanguage(client_, kSmilesText)));
  SayControl(menu_, menu_->title());
  menu_->setEnabled(!client_.app.SmileTable.empty());
}

void SmilesMenu::PopUp(QPoint place) {
  ShowTitle();
  if (menu_->isEnabled()) menu_->popup(place);
}

void SmilesMenu::Fill() {
  if (!menu_->isEmpty()) return;
  OnEvent(client_, "MenuSmilesItem", [&] {
    int number = 0;
    for (const SmileItem& smile : SmileItems(client_)) {
      QString caption = ToQString(smile.caption);
      const QPixmap picture = SmilePixmap(smile.picture, menu_);
      style_->MakeRoomFor(picture);
      QAction* item =
          menu_->addAction(QIcon(picture), caption.replace(QLatin1Char('&'), QLatin1String("&&")));
      item->setObjectName(QStringLiteral("MenuSmilesItem_%1").arg(++number));
      connect(item, &QAction::triggered, this, [this, caption = smile.caption] {
        OnEvent(client_, "MenuSmilesItem_Click", [&] {
          if (Insert) Insert(SmileToInsert(caption));
        });
      });
    }
  });
}

}  // namespace parlorwire
