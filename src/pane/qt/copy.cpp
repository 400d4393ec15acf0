#include "pane/qt/copy.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "pane/qt/fonts.h"
#include "pane/rich_text_box.h"
#include "platform/qt/text_conversion.h"

namespace parlorwire {
namespace {

constexpr PanePosition kMostHtml = 1'000'000;
constexpr PanePosition kStep = 65'536;  // characters whose runs are asked for at a time

// CR CR LF, CR LF and a lone CR become LF; a break may lie in two pieces.
class LineBreaks {
 public:
  std::string Take(std::string_view piece) {
    std::string text;
    text.reserve(piece.size() + 1);
    for (const char c : piece) {
      if (c == '\r') {
        if (returns_ == 2) text += '\n';
        returns_ = std::min<std::size_t>(returns_ + 1, 2);
        continue;
      }
      if (c != '\n') text.append(returns_, '\n');
      returns_ = 0;
      text += c;
    }
    return text;
  }
  std::string Rest() {
    std::string text(returns_, '\n');
    returns_ = 0;
    return text;
  }

 private:
  std::size_t returns_ = 0;
};

// Calls `each` with every run and its text, the breaks being LF.
template <class Each>
void ForEachRun(const RichTextBox& box, PaneRange range, Each each) {
  LineBreaks breaks;
  PaneFormat format;
  for (PanePosition start = range.start; start < range.end; start += kStep) {
    const PanePosition end = std::min(start + kStep, range.end);
    for (const PaneRun& run : box.RunsBetween(start, end)) {
      format = run.format;
      each(format, run.picture ? breaks.Rest() + run.picture->code
                               : breaks.Take(box.TextBetween(run.start, run.start + run.length)));
    }
  }
  each(format, breaks.Rest());
}

QString StyleOf(const PaneFormat& format) {
  QString style = QStringLiteral("font-family:'%1'; font-size:%2pt; color:%3;")
                      .arg(ToQString(format.font_name).remove(QLatin1Char('\'')).toHtmlEscaped())
                      .arg(format.font_size)
                      .arg(ToQColor(format.colour).name());
  if (format.back_colour)
    style += QStringLiteral(" background-color:%1;").arg(ToQColor(*format.back_colour).name());
  if (format.bold) style += QStringLiteral(" font-weight:bold;");
  if (format.italic) style += QStringLiteral(" font-style:italic;");
  if (format.underline) style += QStringLiteral(" text-decoration:underline;");
  return style;
}

}  // namespace

QString CopiedText(const RichTextBox& box, PaneRange range) {
  QString text;
  ForEachRun(box, range,
             [&](const PaneFormat&, const std::string& piece) { text += ToQString(piece); });
  return text;
}

QString CopiedHtml(const RichTextBox& box, PaneRange range) {
  QString html = QStringLiteral(
                     "<html><head><meta charset=\"utf-8\"></head><body>"
                     "<div style=\"background-color:%1; white-space:pre-wrap;\">")
                     .arg(ToQColor(box.BackColor()).name());
  ForEachRun(box, range, [&](const PaneFormat& format, const std::string& piece) {
    if (piece.empty()) return;
    html += QStringLiteral("<span style=\"%1\">").arg(StyleOf(format));
    html += ToQString(piece).toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
    html += QLatin1String("</span>");
  });
  return html + QLatin1String("</div></body></html>");
}

std::unique_ptr<QMimeData> Copied(const RichTextBox& box, PaneRange range) {
  auto data = std::make_unique<QMimeData>();
  data->setText(CopiedText(box, range));
  if (range.end - range.start <= kMostHtml) data->setHtml(CopiedHtml(box, range));
  return data;
}

}  // namespace parlorwire
