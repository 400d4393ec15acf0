// What the chat knows of a nick, on whatever channels it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <vector>

#include "service/frame.h"
#include "service/presentation.h"
#include "service/rate.h"
#include "text/text.h"

namespace parlorwire::service {

// One side's copy of a personal message.
struct PersonalMessage {
  std::int64_t number = 0;  // of that side's messages, from 1
  std::int64_t local = 0;   // when, in seconds of the local wall clock
  bool received = false;    // else it was sent
  Text other;               // the nick that it is from, or to
  Text text;
};

struct Account {
  Text nick;  // as spelled at the last login
  Text password;
  int style = kFirstStyle;
  int history = 20;     // lines on entry
  bool timer = true;    // flag +t: the page of users renews itself
  bool reload = false;  // flag +R
  bool robot = false;   // an inhabitant: nobody logs in with that nick
  Text status;
  std::map<Text, Text> tickets;    // by the key of the channel of the login
  std::vector<Text> ticket_order;  // those keys, the oldest ticket first
  int logins = 0;                  // with the password, since the nick is known
  std::int64_t used_ms = 0;        // when it was last used: a login, a ticket, the end of a frame
  Text place;                      // the address that made it
  Text last_place;                 // the address of the last login
  Guesses guesses_there;           // wrong passwords from that address
  Guesses guesses_elsewhere;       // and from any other
  Bucket posts;
  Bucket personal_posts;
  std::deque<PersonalMessage> personal;
  std::int64_t next_personal = 1;
  std::int64_t told_personal = 0;  // the newest of them that a frame or an answer has told of
  std::set<FrameId> personal_frames;
  // What tells a post's number and text, to pass over what a browser sends twice.
  std::deque<std::size_t> recent_posts;
};

}  // namespace parlorwire::service
