// What the toolkit's own rich text widget costs with the same lines: reads a channel as the client
// does, through the same core with its day log, and puts the runs of each line into a read-only
// widget that stands at its end: rich_text_widget PORT NICK PASSWORD CHANNEL LINES FOLDER. LINES is
// how many lines are put in at once; after each time the event loop comes round and the widget is
// painted. It logs in when Return is pressed, and runs until it is killed.
#include <QApplication>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTimer>
#include <deque>
#include <functional>
#include <vector>

#include "platform/qt/qt_platform.h"
#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "session/connect.h"
#include "shell/assembly.h"
#include "shell/start_up.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

QColor ColorOf(PaneColour colour) {
  return {static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
          static_cast<int>(colour >> 16 & 0xFF)};
}

QTextCharFormat FormatOf(const PaneFormat& format) {
  QTextCharFormat made;
  made.setFontFamilies({ToQString(format.font_name)});
  made.setFontPointSize(format.font_size);
  made.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
  made.setFontItalic(format.italic);
  made.setFontUnderline(format.underline);
  made.setForeground(ColorOf(format.colour));
  return made;
}

struct Piece {
  QString text;
  PaneFormat format;
};
using PieceLine = std::vector<Piece>;

// The lines that stand in a pane from `start` on, without their breaks.
PieceLine LineFrom(const RichTextBox& pane, PanePosition start) {
  PieceLine line;
  for (const PaneRun& run : pane.RunsBetween(start, pane.Length())) {
    QString text = ToQString(pane.TextBetween(run.start, run.start + run.length));
    text.remove(u'\r');
    if (text.endsWith(u'\n')) text.chop(1);
    if (!text.isEmpty()) line.push_back({text, run.format});
  }
  return line;
}

class Widget {
 public:
  Widget(int lines_at_once, PaneColour ground) : lines_at_once_(lines_at_once) {
    QPalette palette = browser_.palette();
    palette.setColor(QPalette::Base, ColorOf(ground));
    browser_.setPalette(palette);
    browser_.setUndoRedoEnabled(false);
    browser_.resize(690, 420);
    browser_.setWindowTitle(QStringLiteral("rich text widget"));
    browser_.show();
    QObject::connect(&next_, &QTimer::timeout, &browser_, [this] { Feed(); });
  }

  void OnReturn(const std::function<void()>& action) {
    QObject::connect(new QShortcut(Qt::Key_Return, &browser_), &QShortcut::activated, &browser_,
                     action);
  }

  void Add(PieceLine line) {
    waiting_.push_back(std::move(line));
    if (!next_.isActive()) next_.start(0);
  }

 private:
  void Feed() {
    QTextCursor cursor(browser_.document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (int i = 0; i < lines_at_once_ && !waiting_.empty(); ++i) {
      if (!browser_.document()->isEmpty()) cursor.insertBlock();
      for (const Piece& piece : waiting_.front())
        cursor.insertText(piece.text, FormatOf(piece.format));
      waiting_.pop_front();
    }
    cursor.endEditBlock();
    browser_.verticalScrollBar()->setValue(browser_.verticalScrollBar()->maximum());
    if (waiting_.empty()) next_.stop();
  }

  const int lines_at_once_;
  QTextBrowser browser_;
  std::deque<PieceLine> waiting_;
  QTimer next_;
};

int Run(const QStringList& arguments) {
  if (arguments.size() != 7 || arguments[5].toInt() < 1) {
    qCritical("rich_text_widget PORT NICK PASSWORD CHANNEL LINES FOLDER");
    return 2;
  }
  SimulatedDesktop desktop;
  QtPlatform platform(arguments[6].toStdString());
  Client client(platform.Ports(desktop));
  Assemble(client);
  LoadStep(client, {});

  TabSession& session = client.tab(0);
  Widget widget(arguments[5].toInt(), session.Rich.BackColor());
  client.hooks.ParseChatLine = [&, parse = client.hooks.ParseChatLine](const Text& line, int tab) {
    const PanePosition start = session.Rich.Length();
    parse(line, tab);
    widget.Add(LineFrom(session.Rich, start));
  };
  client.app.ChatHost = "127.0.0.1";
  client.app.ChatPort = FromQString(arguments[1]);
  session.Login = FromQString(arguments[2]);
  session.Password = FromQString(arguments[3]);
  session.Channel = FromQString(arguments[4]);
  widget.OnReturn([&client] { ConnectToChat(client, 0); });
  return QApplication::exec();
}

}  // namespace
}  // namespace parlorwire

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  return parlorwire::Run(QApplication::arguments());
}
