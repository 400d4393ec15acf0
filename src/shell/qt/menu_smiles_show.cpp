#include "shell/qt/menu_smiles_show.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "shell/qt/control_names.h"
#include "shell/qt/smile_pixmap.h"
#include "users/smile_menu.h"

namespace parlorwire {
namespace {

constexpr int kTimer1Interval = 100;  // ms
constexpr int kTitleHeight = 32;      // pixels, of the desktop's frame around it

}  // namespace

MenuSmilesShow::MenuSmilesShow(Client& client, QWidget* owner)
    : QWidget(owner, Qt::Tool), client_(client) {
  NameControl(this, QStringLiteral("MenuSmilesShow"));
  setPalette(SmilesPalette(palette()));
  setFont(LabelFont());
  Build();
  ShowTitle();
  Timer1_.setSingleShot(true);
  Timer1_.setInterval(kTimer1Interval);
  connect(&Timer1_, &QTimer::timeout, this, [this] {
    if (!parentWidget()->isActiveWindow() && !isActiveWindow()) hide();
  });
  installEventFilter(this);
  owner->installEventFilter(this);
}

void MenuSmilesShow::Build() {
  auto* rows = new QWidget;
  auto* grid = new QGridLayout(rows);
  grid->setContentsMargins(12, 8, 12, 8);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(4);
  grid->setColumnStretch(1, 1);
  int row = 0;
  for (const SmileItem& smile : SmileItems(client_)) {
    auto* picture = new QLabel(rows);
    picture->setPixmap(SmilePixmap(smile.picture, this));
    auto* codes = new QLabel(ToQString(smile.caption), rows);
    codes->setTextFormat(Qt::PlainText);
    grid->addWidget(picture, row, 0, Qt::AlignCenter);
    grid->addWidget(codes, row, 1);
    ++row;
    NameControl(picture, QStringLiteral("P"), row);
    NameControl(codes, QStringLiteral("L"), row);
    SayControl(picture, codes->text());
    SayControl(codes, codes->text());
  }
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWidgetResizable(true);
  area->setWidget(rows);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(area);
  const QSize wanted = rows->sizeHint();
  const int highest = screen()->availableGeometry().height() * 3 / 4;
  resize(std::max(wanted.width() + area->verticalScrollBar()->sizeHint().width(), 160),
         std::clamp(wanted.height(), 40, highest));
}

void MenuSmilesShow::ShowTitle() {
  setWindowTitle(ToQString(InLanguage(client_, kSmilesText)));
  SayControl(this, windowTitle());
}

void MenuSmilesShow::Float(QRect button) {
  if (!isVisible()) {
    const QRect room = screen()->availableGeometry();
    move(std::clamp(button.left(), room.left(), std::max(room.left(), room.right() - width())),
         std::max(room.top(), button.top() - height() - kTitleHeight));
  }
  show();
  raise();
}

void MenuSmilesShow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return hide();
  QWidget::keyPressEvent(event);
}

bool MenuSmilesShow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate && isVisible()) Timer1_.start();
  return QWidget::eventFilter(watched, event);
}

}  // namespace parlorwire
