#pragma once

#include "platform/ByteView.h"

#include <string_view>

/// What stands between a stranger's property list and libplist, which frees trees by recursion,
/// unfolds the shared objects of a binary list one by one, and needs quadratic time for texts full
/// of entities and for dictionaries of colliding keys. A list that is let through costs it little
/// stack, memory and time; whether it is well formed is still for libplist to say. Safe on any
/// thread.
namespace veridane::PropertyListGuard {

[[nodiscard]] bool allowsXml(std::string_view text);
[[nodiscard]] bool allowsBinary(ByteView bytes);

} // namespace veridane::PropertyListGuard
