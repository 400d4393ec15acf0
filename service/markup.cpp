#include "service/markup.h"

#include "service/form.h"

namespace parlorwire::service {

Text EscapeHtml(std::string_view text) {
  Text escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    if (c == '<')
      escaped += "&lt;";
    else if (c == '>')
      escaped += "&gt;";
    else if (c == '&')
      escaped += "&amp;";
    else if (c == '"')
      escaped += "&quot;";
    else
      escaped += c;
  }
  return escaped;
}

bool IsAddressOfPage(std::string_view text) {
  return text.starts_with("http://") || text.starts_with("https://") || text.starts_with("ftp://");
}

Text Page(std::string_view title, std::string_view body) {
  return "<html>\n<head>\n<title>" + EscapeHtml(title) + "</title>\n</head>\n<body>\n" +
         Text(body) + "</body>\n</html>\n";
}

Text VisitorQuery(const Visitor& visitor) {
  return "username=" + PercentEncode(visitor.nick) + "&channel=" + PercentEncode(visitor.channel) +
         "&chpwd=" + PercentEncode(visitor.password) + "&ticket=" + visitor.ticket;
}

Text Hidden(std::string_view name, std::string_view value) {
  return "<input type=\"hidden\" name=\"" + Text(name) + "\" value=\"" + EscapeHtml(value) +
         "\">\n";
}

Text HiddenVisitor(const Visitor& visitor) {
  return Hidden("username", visitor.nick) + Hidden("ticket", visitor.ticket) +
         Hidden("channel", visitor.channel) + Hidden("chpwd", visitor.password);
}

Text Link(std::string_view path, const Visitor& visitor, std::string_view label) {
  return "<a href='" + Text(path) + "?" + VisitorQuery(visitor) + "' target=\"_top\">" +
         EscapeHtml(label) + "</a>\n";
}

Text Option(std::string_view value, std::string_view label) {
  return "<option value=\"" + EscapeHtml(value) + "\">" + EscapeHtml(label) + "\n";
}

Text Row(std::initializer_list<Text> cells) {
  Text row = "<tr>";
  for (const Text& cell : cells)
    row += "<td>" + EscapeHtml(cell) + "</td>";
  return row + "</tr>\n";
}

}  // namespace parlorwire::service
