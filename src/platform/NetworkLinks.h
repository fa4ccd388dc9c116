#pragma once

#include "platform/Descriptor.h"

struct ifaddrs;

/// The ways out of this machine, as its kernel knows them. Whether anybody answers at the end of
/// one is not asked. Safe on any thread; nothing here waits.
namespace veridane::NetworkLinks {

/// Whether the entry of the kernel's list is a way out: an address of an interface that is up, has
/// a link and is no loopback. Addresses that an interface gives itself when nobody has one for it,
/// such as 169.254.1.2 and fe80::1, are none.
[[nodiscard]] bool isWayOut(const ifaddrs& entry);

/// Whether there is one. Yes as well where the kernel does not tell.
[[nodiscard]] bool hasWayOut();

/// Becomes readable when an interface or an address has come, gone or changed; the caller reads it
/// with `takeNews`. None where the system has no such news.
[[nodiscard]] Descriptor openNews();

/// Takes what has come up to now. False once no more news can come.
[[nodiscard]] bool takeNews(const Descriptor& news);

} // namespace veridane::NetworkLinks
