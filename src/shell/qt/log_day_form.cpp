#include "shell/qt/log_day_form.h"

#include <QVBoxLayout>
#include <limits>
#include <utility>
#include <vector>

#include "pane/qt/rich_text_view.h"
#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "shell/qt/background_work.h"
#include "shell/qt/control_names.h"
#include "shell/qt/log_hits.h"
#include "shell/qt/pane_widget.h"

namespace parlorwire {
namespace {

constexpr QSize kDaySize{760, 520};        // pixels
constexpr std::size_t kBlock = 64 * 1024;  // bytes that are shown in one turn of the event loop
constexpr std::int64_t kLinesBehind = 8;   // that are in view below the line of the hit
constexpr std::int64_t kBytesBehind = 8 * 1024;

PaneFormat FormatOf(const AppState& app) {
  PaneFormat format;
  format.font_name = app.rFontMain.Name;
  format.font_size = app.rFontMain.Size;
  format.colour = app.rRichColors.TextColor;
  return format;
}

void ReadLog(const DayLogs& logs, const DayLog& log, const std::stop_token& stop,
             const std::function<void(Text)>& append) {
  const auto reader = logs.Open(log);
  std::vector<char> block(kBlock);
  while (reader && !stop.stop_requested()) {
    const std::size_t size = reader->Read(block);
    if (size == 0) return;
    append(Text(block.data(), size));
  }
}

}  // namespace

log_day_form::log_day_form(const Client& client, LogHit hit, QWidget* owner)
    : QDialog(owner), hit_(std::move(hit)), box_(FormatOf(client.app)) {
  NameControl(this, QStringLiteral("log_day_form"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  const QString title = ToQString(hit_.log.channel) + ", " + DayText(hit_.log.day);
  setWindowTitle(title);
  SayControl(this, title);
  box_.BackColor(client.tab(0).Rich.BackColor());
  Rich_ = NewPaneWidget(box_, this);
  NameControl(Rich_, QStringLiteral("log_day"));
  SayControl(Rich_, title);
  Rich_->SetRussian(client.app.Language == UiLanguage::kRussian);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(HolderOf(Rich_));
  resize(kDaySize);
  reading_ = std::make_unique<BackgroundWork>(
      [this, &logs = client.platform.day_logs, log = hit_.log](const std::stop_token& stop,
                                                               const BackgroundWork::Tell& tell) {
        ReadLog(logs, log, stop, [this, &tell](Text bytes) {
          tell([this, bytes = std::move(bytes)] { Append(bytes); });
        });
        tell([this] { ShowLine(); });
      });
}

log_day_form::~log_day_form() {
  reading_.reset();
  delete HolderOf(Rich_);  // the view goes ahead of its box
}

void log_day_form::Append(const Text& bytes) {
  box_.HideSelection(true);  // what the reader sees selected stays
  box_.SelStart(box_.Length());
  box_.ReplaceSel(bytes);
  read_ += static_cast<std::int64_t>(bytes.size());
  const auto end = hit_.at + static_cast<std::int64_t>(hit_.line.size());
  if (line_waits_ && read_ >= end + kBytesBehind) ShowLine();
}

void log_day_form::ShowLine() {
  if (!std::exchange(line_waits_, false)) return;
  const auto start = static_cast<PanePosition>(hit_.at);
  const auto end = start + static_cast<PanePosition>(hit_.line.size());
  Rich_->Select(start, end);
  Rich_->ShowPosition(box_.LineByIndex(box_.LineAt(end) + kLinesBehind).start);
  Rich_->ShowPosition(start);
  Rich_->setFocus();
}

}  // namespace parlorwire
