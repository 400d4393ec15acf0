#include "shell/qt/smiles_menu.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QProxyStyle>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"
#include "shell/qt/smile_pixmap.h"
#include "users/smile_menu.h"

namespace parlorwire {
namespace {

constexpr int kPictureSide = 24;  // pixels at the most

// Pictures as large as they are.
class SmilesStyle : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    return metric == PM_SmallIconSize ? kPictureSide
                                      : QProxyStyle::pixelMetric(metric, option, widget);
  }
};

}  // namespace

SmilesMenu::SmilesMenu(Client& client, QWidget* window)
    : QObject(window), client_(client), menu_(new QMenu(window)) {
  NameControl(menu_, QStringLiteral("MenuSmilesItem"));
  auto* style = new SmilesStyle;
  style->setParent(menu_);
  menu_->setStyle(style);
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
      QAction* item = menu_->addAction(QIcon(SmilePixmap(smile.picture, menu_)),
                                       caption.replace(QLatin1Char('&'), QLatin1String("&&")));
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
