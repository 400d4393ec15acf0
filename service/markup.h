// What pages of HTML are put together from. Everything is Windows-1251. Texts that are given as
// text are escaped here; what is called a body or a row is HTML already.
#pragma once

#include <initializer_list>
#include <string_view>

#include "text/text.h"

namespace parlorwire::service {

// What identifies a visitor in the links of a page.
struct Visitor {
  Text nick;
  Text ticket;
  Text channel;
  Text password;  // of the channel
};

// "&lt;", "&gt;", "&amp;" and "&quot;" for the characters that HTML needs itself.
Text EscapeHtml(std::string_view text);

// Whether a text begins as the address of a page elsewhere.
bool IsAddressOfPage(std::string_view text);

// A whole page.
Text Page(std::string_view title, std::string_view body);

// "username=...&channel=...&chpwd=...&ticket=...", ready for an address.
Text VisitorQuery(const Visitor& visitor);

// A field of a form that nobody sees; and those that identify a visitor.
Text Hidden(std::string_view name, std::string_view value);
Text HiddenVisitor(const Visitor& visitor);

// A link to a path of the service, for that visitor, out of all frames.
Text Link(std::string_view path, const Visitor& visitor, std::string_view label);

// An entry of a form's list of choices.
Text Option(std::string_view value, std::string_view label);

// A row of a table.
Text Row(std::initializer_list<Text> cells);

}  // namespace parlorwire::service
