// The links of personal messages. Each is requested once, one after the other, which tells the
// service that the message has been received.
#pragma once

#include <optional>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;
struct PersonalWindow;

// What a link says about its request.
struct PersLink {
  std::string_view script;  // behind the third slash, up to a "?"
  std::string_view reqnum;
  std::string_view msgnum;

  bool operator==(const PersLink&) const = default;
};

// Nothing for a link without three slashes, without "reqnum=" ahead of its first "&", or without
// "pm_msgnum=". Which host it names makes no difference.
std::optional<PersLink> ReadPersLink(std::string_view url);

// Puts a link into PersQueue, and connects W3 unless it is at work.
void ClearPers(Client& client, PersonalWindow& window, std::string_view url);

// W3 is connected: requests the first link of the queue. A link that gives no request is done.
void W3_Connect(Client& client, PersonalWindow& window);

// The request is answered: underlines the line of Rich that has the link's number, counted from 1
// and with status lines, and goes on with the next link.
void W3_Close(Client& client, PersonalWindow& window);

// Tries again after a time-out; any other failure drops all links.
void W3_Error(Client& client, PersonalWindow& window, int number);

}  // namespace parlorwire
