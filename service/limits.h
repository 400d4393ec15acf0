// What one visitor may take of the service, so that the others have some of it, too. The defaults
// are far above what people need, also a few dozen of them behind one address.
#pragma once

#include <cstddef>
#include <cstdint>

namespace parlorwire::service {

struct Limits {
  // A second, and ten seconds' worth at once; 0: as many as one likes.
  std::int64_t logins = 50;             // of an address
  std::int64_t posts = 20;              // of a nick
  std::int64_t personal = 5;            // messages, of a nick
  std::int64_t posts_of_address = 100;  // of both, by all its nicks

  // Wrong passwords that are free; behind each further one a nick's next login waits for 1, 2, 4
  // seconds and so on, for at most longest_guess_wait_ms.
  int free_guesses = 3;
  std::int64_t longest_guess_wait_ms = 60000;

  std::size_t accounts_of_address = 500;              // nicks that are known at a time
  std::int64_t account_idle_ms = 24LL * 3600 * 1000;  // then a nick may be forgotten for a new one
  std::size_t frames_of_account = 32;
  std::size_t frames_of_address = 400;

  std::size_t history_bytes = std::size_t{128} * 1024;  // of a channel: kept, and sent on entry
  std::size_t personal_bytes = std::size_t{64} * 1024;  // of the messages that wait for a nick
};

// The longest that what visitors send may be, in characters.
inline constexpr std::size_t kLongestNick = 30;
inline constexpr std::size_t kLongestChannel = 60;
inline constexpr std::size_t kLongestPassword = 200;
inline constexpr std::size_t kLongestStatus = 200;
inline constexpr std::size_t kLongestMask = 64;
inline constexpr std::size_t kLongestHost = 100;
// These are shown whole when they are said, and kept shorter.
inline constexpr std::size_t kLongestReasonKept = 200;
inline constexpr std::size_t kLongestTopicKept = 300;

// The most that a channel holds of them.
inline constexpr std::size_t kMostBans = 500;
inline constexpr std::size_t kMostPenalties = 500;  // nicks without voice; and without capitals
inline constexpr std::size_t kMostOperators = 500;

}  // namespace parlorwire::service
