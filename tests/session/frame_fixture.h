// A frame as it comes from the socket; what its reader hands on, and what it says to the chat.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "support/chat.h"

namespace parlorwire {

struct FrameFixture : testing::Test {
  FrameFixture() { Watch(chat); }
  void Watch(Chat& watched) {
    watched.client.hooks.ParseChatLine = [this](const Text& line, int) { lines.push_back(line); };
    watched.client.hooks.SayBot = [this](const Text& text, int) { said.push_back(text); };
    watched.client.hooks.UpdateUsersFrame = [this](int tab) { users_asked.push_back(tab); };
    watched.client.hooks.ShowBalloon = [this](const Text&, const Text& text, int,
                                              const BalloonAbout& about) {
      balloons.push_back(text);
      balloons_about.push_back(about);
    };
  }
  // The status lines since the frame was asked for.
  Text StatusLines() {
    const Text pane = chat.Pane();
    const std::string_view start = W<"Чтение с канала...">;
    const std::size_t at = pane.find(start);
    return at == Text::npos ? pane : pane.substr(at + start.size());
  }
  Text FirstChunk(std::string_view body) { return Text(kGoodHeader) + Text(body); }

  using Lines = std::vector<Text>;
  Chat chat;
  Lines lines, said, balloons;
  std::vector<BalloonAbout> balloons_about;
  std::vector<int> users_asked;
};

}  // namespace parlorwire
