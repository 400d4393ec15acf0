// Those who live on the channels: they talk, greet newcomers, come and go, so that nobody finds the
// chat empty, and an operator has somebody to look after. Each comes from an address; several share
// one, one comes through a proxy, and one hides it. They have no frames; they act on the chat
// directly.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <vector>

#include "service/chat.h"
#include "service/moment.h"
#include "text/text.h"

namespace parlorwire::service {

struct InhabitantOptions {
  bool present = true;
  std::vector<Text> channels = {"Гостиная"_w, "Кухня"_w};  // where they live
  std::int64_t visit_ms = 0;  // how often somebody comes or goes; 0: now and then
  int talk = 0;  // lines a second on each channel that somebody reads; 0: a line now and then
  std::int64_t talk_lines = 0;  // on each channel; then they fall silent. 0: without an end
  std::size_t talk_frames = 0;  // they begin to talk when so many frames are open
  int talk_length = 0;          // characters of what a line of talk says at least
  bool patient = false;  // no talk on a channel while one of its readers has much to take yet
};

// The lines said on a channel for load.
struct Load {
  std::int64_t from_ms = -1;
  std::int64_t said = 0;
};

struct Inhabitants {
  InhabitantOptions options;
  std::int64_t next_ms = kForever;          // when LiveOn wants to be called at the latest
  std::map<Text, std::int64_t> next_deed;   // by channel: when somebody does something
  std::map<Text, std::int64_t> next_visit;  // by channel: when somebody comes or goes by the clock
  std::map<Text, std::set<Text>> greeted;   // by channel: keys of nicks
  std::map<Text, Load> loads;               // by channel
  bool talking = false;                     // enough frames were open
};

// Puts them on their channels, which are there for good from then on. Nobody logs in with their
// nicks.
Inhabitants MoveIn(Chat& chat, const InhabitantOptions& options, const Moment& now);

// Lets them do what is due. To be called after everything that happens on the chat, and when
// next_ms has come.
void LiveOn(Inhabitants& inhabitants, Chat& chat, const Moment& now);

}  // namespace parlorwire::service
