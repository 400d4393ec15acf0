#include "session/http_answer.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

TEST(TakeAnswer, DropsWhatGoesBeyondTheLargestAnswer) {
  Text answer(kLargestAnswer - 2, 'a');
  TakeAnswer(answer, "b");
  TakeAnswer(answer, "cd");
  TakeAnswer(answer, "e");
  EXPECT_EQ(answer.size(), kLargestAnswer);
  EXPECT_EQ(answer.substr(kLargestAnswer - 3), "abc");
}

TEST(WithoutHeader, LeavesTheLastLineFeedOfTheHeader) {
  for (const char* header :
       {"HTTP/1.0 200 OK\r\na: b\r\n\r\n", "HTTP/1.1 200\r\n\r\n", "HTTP/1.0 200 OK\na: b\n\n"})
    EXPECT_EQ(WithoutHeader(Text(header) + "<pre>\n\nx"), "\n<pre>\n\nx") << header;
}

TEST(WithoutHeader, LeavesAnyOtherAnswerWhole) {
  for (const char* answer :
       {"HTTP/1.0 404 Not found\r\n\r\nx", "HTTP/1.2 200\r\n\r\nx", "\r\n\r\nx",
        "http/1.0 200 OK\r\n\r\nx", "HTTP/1.0 200 OK\r\nno blank line", ""})
    EXPECT_EQ(WithoutHeader(answer), answer);
}

}  // namespace
}  // namespace parlorwire
