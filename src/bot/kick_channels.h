// The chooser of the channels on which auto-kick works, `DisableKickChannels_form`: what it
// decides. It asks where kicks shall work, and `DisableKickChannels` lists where they shall not.
#pragma once

#include <string_view>
#include <vector>

#include "text/text.h"

namespace parlorwire {

struct Client;

// A check box `Ch`, in their order.
struct KickChannel {
  Text channel;  // the caption
  bool ticked = true;

  bool operator==(const KickChannel&) const = default;
};

// The boxes that the chooser opens with: one for each channel that a tab is connected to. Without
// any it shows kNoOpenChannel.
std::vector<KickChannel> OpenKickChannels(const Client& client);

// The button `button_ok`: those that are not ticked are `DisableKickChannels` now, here and in
// config.ini; channels that were not open leave it. The window closes. Waiting events run.
void ConfirmKickChannels(Client& client, const std::vector<KickChannel>& boxes);

// ---- the window's texts; each has this form only ----

inline constexpr std::string_view kKickChannelsFrame =
    W<"Отметьте каналы, на которых kick будет работать">;
inline constexpr std::string_view kNoOpenChannel = W<"Вы не подключены ни к одному каналу">;

}  // namespace parlorwire
