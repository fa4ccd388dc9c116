#pragma once

#include <string>
#include <string_view>

/// Whether a message bus of the desktop (D-Bus) can be spoken to. Its libraries connect without a
/// limit of time: a bus that takes a connection and then says nothing would hold up a window for
/// ever.
namespace veridane::MessageBus {

/// Where the libraries look for the user's bus and for the machine's; empty if they would have to
/// search for it.
[[nodiscard]] std::string sessionAddress();
[[nodiscard]] std::string systemAddress();

/// Whether the bus at the first place of the address that can be connected to says nothing for two
/// seconds. What cannot be connected to at all fails at once and is not silent. Anything but the
/// sockets of this machine is passed over: nothing is known of it.
[[nodiscard]] bool isSilent(std::string_view address);

} // namespace veridane::MessageBus
