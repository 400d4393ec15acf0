#include "service/markup.h"

#include <gtest/gtest.h>

namespace parlorwire::service {
namespace {

TEST(Markup, EscapesTheFourCharactersOfHtml) {
  EXPECT_EQ(EscapeHtml("<b>&\"x\"&lt; 'y'"), "&lt;b&gt;&amp;&quot;x&quot;&amp;lt; 'y'");
}

TEST(Markup, IdentifiesAVisitorInAnAddressAndInAForm) {
  const Visitor visitor{"a&b", "T", "Кот"_w, "\""};
  EXPECT_EQ(VisitorQuery(visitor), "username=a%26b&channel=%EB%CF%D4&chpwd=%22&ticket=T");
  EXPECT_EQ(HiddenVisitor(visitor),
            "<input type=\"hidden\" name=\"username\" value=\"a&amp;b\">\n"
            "<input type=\"hidden\" name=\"ticket\" value=\"T\">\n"
            "<input type=\"hidden\" name=\"channel\" value=\"Кот\">\n"
            "<input type=\"hidden\" name=\"chpwd\" value=\"&quot;\">\n"_w);
}

TEST(Markup, PutsTogetherPagesAndRows) {
  EXPECT_EQ(Page("<t>", "<p>body\n"),
            "<html>\n<head>\n<title>&lt;t&gt;</title>\n</head>\n<body>\n<p>body\n</body>\n"
            "</html>\n");
  EXPECT_EQ(Row({"a", "<b>"}), "<tr><td>a</td><td>&lt;b&gt;</td></tr>\n");
  EXPECT_EQ(Option("1", "one"), "<option value=\"1\">one\n");
}

}  // namespace
}  // namespace parlorwire::service
