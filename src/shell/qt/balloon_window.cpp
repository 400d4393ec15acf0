#include "shell/qt/balloon_window.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>

#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kTextWidth = 300;  // pixels
constexpr int kFromTheEdge = 16;
constexpr int kPicture = 32;

// A label breaks its lines between words alone; this lets it break long ones, too.
QString Breakable(const QString& text) {
  constexpr int kShortWord = 16;  // characters
  QString breakable;
  int in_word = 0;
  for (const QChar character : text) {
    in_word = character.isSpace() ? 0 : in_word + 1;
    breakable += character;
    if (in_word % kShortWord == 0 && in_word > 0) breakable += QChar(0x200B);  // of no width
  }
  return breakable;
}

QLabel* PlainLabel(QWidget* window, const char* name) {
  auto* label = new QLabel(window);
  NameControl(label, QString::fromLatin1(name));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setFixedWidth(kTextWidth);
  return label;
}

}  // namespace

BalloonWindow::BalloonWindow()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus) {
  NameControl(this, "balloon");
  setWindowTitle("Parlorwire");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setPalette(PaletteOn(palette(), kMainBackColor));
  setCursor(Qt::PointingHandCursor);
  title_ = PlainLabel(this, "balloon_title");
  QFont bold = title_->font();
  bold.setBold(true);
  title_->setFont(bold);
  text_ = PlainLabel(this, "balloon_text");
  for (QLabel* label : {title_, text_}) {
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, Qt::black);
    label->setPalette(colours);
  }
  auto* picture = new QLabel(this);
  picture->setPixmap(QIcon(":/parlorwire/parlorwire.svg").pixmap(kPicture));
  auto* layout = new QGridLayout(this);
  layout->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
  layout->addWidget(title_, 0, 1);
  layout->addWidget(text_, 1, 1);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void BalloonWindow::ShowText(const QString& title, const QString& text) {
  title_->setText(title);
  text_->setText(Breakable(text));
  SayControl(title_, title);
  SayControl(text_, text);
  SayControl(this, title + QLatin1Char('\n') + text);
  adjustSize();
  const QRect free = QGuiApplication::primaryScreen()->availableGeometry();
  move(free.right() - width() - kFromTheEdge, free.bottom() - height() - kFromTheEdge);
  show();
}

void BalloonWindow::mouseReleaseEvent(QMouseEvent* event) {
  hide();
  if (event->button() == Qt::LeftButton && Clicked) Clicked();
}

}  // namespace parlorwire
