// The chat: who is known, who is on which channel, what was said, and the frames that are read. It
// knows no sockets, no clock and no randomness of its own; what a frame shall send gathers in its
// `out`. All text is Windows-1251 but for a frame's `out`, which is in the wire's character set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "service/line.h"
#include "service/moment.h"
#include "service/presentation.h"
#include "text/text.h"

namespace parlorwire::service {

inline constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();

struct ChatOptions {
  int history = 20;  // lines that a newcomer is given unless he says otherwise
  std::int64_t keep_alive_ms = 30000;
  std::int64_t grace_ms = 3000;   // how long a nick stays on a channel after its frame broke
  std::int64_t kick_ms = 60000;   // how long a kicked nick is kept out
  bool form_b = false;            // the older form of the user frame
  std::size_t most_frames = 800;  // logins are turned away above that
  std::size_t most_accounts = 20000;
  std::vector<Text> banned;  // masks of nicks and addresses that nobody may log in with
  std::vector<Text> admins;  // nicks
};

using FrameId = std::uint64_t;

// What shall become of a frame once its `out` is sent.
enum class FrameEnd {
  kNone,
  kClose,
  kEject,  // send EjectMark() by itself, then close
};

// An answer that doesn't end: of a channel, or of personal messages.
struct Frame {
  FrameId id = 0;
  Text account;  // key of the account
  Text channel;  // key of the channel; "" for personal messages
  Text host;     // under which the service was asked for personal messages
  Text out;
  FrameEnd end = FrameEnd::kNone;
  std::int64_t wrote_ms = 0;
  bool touched = false;
  std::size_t waiting = 0;  // bytes that the reader has not taken; kept for patient talk only
};

struct PersonalMessage {
  std::int64_t number = 0;
  std::int64_t local = 0;
  bool received = false;  // else it was sent
  Text other;             // whom it is from, or to
  Text text;
};

struct Account {
  Text nick;  // as spelled at the last login
  Text password;
  int style = kFirstStyle;
  int history = 20;
  bool timer = true;    // flag +t: the page of users renews itself
  bool reload = false;  // flag +R
  bool robot = false;   // an inhabitant: nobody logs in with that nick
  Text status;
  std::map<Text, Text> tickets;  // by the key of the channel of the login
  std::deque<PersonalMessage> personal;
  std::int64_t next_personal = 1;
  std::set<FrameId> personal_frames;
  std::deque<Text> recent_posts;  // number and text, to pass over what a browser sends twice
};

struct Member {
  Account* account = nullptr;
  Frame* frame = nullptr;  // none for an inhabitant, and while a broken frame may come back
  Text address;            // what /chl and bans see
  Text shown_address;      // what stands in brackets behind "приходит на канал"
  bool oper = false;
  std::int64_t gone_ms = kForever;  // when the presence ends, unless the frame comes back
};

struct Ban {
  Text mask;  // of a nick or an address; "*" and "?" stand for anything and for one character
  Text reason;
  Text by;
  std::int64_t local = 0;
  std::int64_t until_ms = kForever;
};

struct TopicChange {
  Text topic;
  Text by;
  std::int64_t local = 0;
};

struct Channel {
  Text name;
  Text password;
  bool permanent = false;       // stays when nobody is on it
  std::vector<Member> members;  // in the order in which they came
  std::set<Text> opers;         // keys of nicks
  std::vector<Ban> bans;
  std::map<Text, std::int64_t> muted;    // keys of nicks, until when
  std::map<Text, std::int64_t> lowered;  // those who may not write capitals
  std::deque<Line> history;
  std::deque<TopicChange> topics;  // the newest last
};

struct Chat {
  ChatOptions options;
  std::function<std::uint64_t()> random;
  std::map<Text, Account> accounts;  // by NickKey; an account never goes away
  std::map<Text, Channel> channels;  // by NickKey of the name
  std::unordered_map<Text, Text> ticket_owners;
  std::unordered_map<FrameId, Frame> frames;
  FrameId next_frame = 1;
  std::vector<FrameId> touched;  // frames with something in `out` or with an end
};

// Where somebody comes from.
struct Origin {
  Text address;    // of the connection
  Text forwarded;  // what a proxy said of the address behind it, or ""
};

// Nicks and channels are the same in any case.
Text NickKey(std::string_view nick);
bool NickIsAllowed(std::string_view nick);
bool ChannelIsAllowed(std::string_view name);
bool MaskMatches(std::string_view mask, std::string_view text);

enum class LoginResult { kWelcome, kWrongPassword, kRefused, kFull };

struct Login {
  LoginResult result = LoginResult::kRefused;
  Text ticket;
};

// The first login of a nick registers it with its password. A new ticket voids the one that the
// nick had for the same channel.
Login LogIn(Chat& chat, const Text& nick, const Text& password, const Text& channel,
            const Origin& origin);

// Whose ticket it is; none if it isn't that nick's.
Account* FindAccount(Chat& chat, const Text& nick, const Text& ticket);

Channel* FindChannel(Chat& chat, std::string_view name);
Member* FindMember(Channel& channel, std::string_view nick);
bool IsOperator(const Chat& chat, const Member& member);
// "[+o-t]", as the user frame shows them; "[]" if there are none.
Text FlagsOf(const Chat& chat, const Channel& channel, const Member& member);

// Opens a frame on a channel, which comes into being with its first member. An older frame of the
// nick there is ejected. None if the nick or the address is banned, the name not allowed or the
// password wrong. `head` goes out ahead of all.
Frame* Enter(Chat& chat, Account& account, const Text& channel, const Text& password,
             const Origin& origin, const Moment& now, std::string_view head);

// Puts an inhabitant, who has no frame, on a channel, where he operates or not.
void Settle(Chat& chat, Account& account, const Text& channel, const Text& address, bool oper,
            bool announced, const Moment& now);

// Whether somebody is on a channel who is no inhabitant.
bool HasPeople(const Channel& channel);

// Opens a frame of personal messages.
Frame& EnterPersonal(Chat& chat, Account& account, const Moment& now, std::string_view head,
                     std::string_view host);

// The connection of a frame is gone.
void FrameIsGone(Chat& chat, FrameId id, const Moment& now);

// What a nick says or commands. The result is the sentence to answer with.
Text Post(Chat& chat, Account& account, const Text& channel, const Text& text, const Text& tone,
          const Text& number, const Moment& now);

void Leave(Chat& chat, Account& account, const Text& channel, const Moment& now);
void LogOff(Chat& chat, Account& account, const Moment& now);

// Ends what has run its time: presences without a frame, kicks, mutes; and keeps quiet frames
// alive.
void Advance(Chat& chat, const Moment& now);
// When Advance has something to do again, in ms; kForever if never.
std::int64_t NextAdvance(const Chat& chat);

// Shows a line to everybody on a channel, and keeps it for those who come later.
void Broadcast(Chat& chat, Channel& channel, Line line, const Moment& now);
void BroadcastSystem(Chat& chat, Channel& channel, const Text& text, const Moment& now);

// Takes a member off a channel: his frame ends in the way told, the others read that he left.
void PartMember(Chat& chat, Channel& channel, std::string_view nick, FrameEnd end,
                const Moment& now);

// Puts bytes of a frame on its way.
void Write(Chat& chat, Frame& frame, std::string_view text, const Moment& now);
void End(Chat& chat, Frame& frame, FrameEnd end);

}  // namespace parlorwire::service
