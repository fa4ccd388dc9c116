#include "platform/NetworkLinks.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#ifdef __linux__
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#endif

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <memory>

namespace veridane::NetworkLinks {
namespace {

/// An address as the structure of its family; entries are aligned for none of them.
template <typename Address>
Address copied(const sockaddr& address) {
    Address copy;
    std::memcpy(&copy, &address, sizeof copy);
    return copy;
}

bool isSelfAssigned(const sockaddr_in& address) {
    constexpr std::uint32_t network = 0xA9FE; // 169.254.0.0/16
    return ntohl(address.sin_addr.s_addr) >> 16 == network;
}

bool isSelfAssigned(const sockaddr_in6& address) {
    const std::uint8_t* const bytes = address.sin6_addr.s6_addr; // fe80::/10
    return bytes[0] == 0xFE && (bytes[1] & 0xC0) == 0x80;
}

} // namespace

bool isWayOut(const ifaddrs& entry) {
    // Running is more than up: a socket without a cable and a bridge that joins nothing are up.
    constexpr unsigned wanted = IFF_UP | IFF_RUNNING;
    if ((entry.ifa_flags & (wanted | IFF_LOOPBACK)) != wanted || !entry.ifa_addr)
        return false;
    if (entry.ifa_addr->sa_family == AF_INET)
        return !isSelfAssigned(copied<sockaddr_in>(*entry.ifa_addr));
    if (entry.ifa_addr->sa_family == AF_INET6)
        return !isSelfAssigned(copied<sockaddr_in6>(*entry.ifa_addr));
    return false; // the hardware's own, which every interface has
}

bool hasWayOut() {
    ifaddrs* first = nullptr;
    if (::getifaddrs(&first) != 0)
        return true;
    const std::unique_ptr<ifaddrs, void (*)(ifaddrs*)> list(first, &::freeifaddrs);
    for (const ifaddrs* entry = first; entry; entry = entry->ifa_next) {
        if (isWayOut(*entry))
            return true;
    }
    return false;
}

Descriptor openNews() {
#ifdef __linux__
    Descriptor news(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE));
    sockaddr_nl groups{};
    groups.nl_family = AF_NETLINK;
    groups.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV6_IFADDR;
    if (news && ::bind(news.get(), reinterpret_cast<const sockaddr*>(&groups), sizeof groups) == 0)
        return news;
#endif
    return Descriptor();
}

bool takeNews(const Descriptor& news) {
    // What it says is of no interest: the list is asked instead, which cannot have missed anything.
    // In a flood of messages the descriptor stays readable, and the caller comes again.
    constexpr int atOnce = 256;
    for (int i = 0; i < atOnce; ++i) {
        char ignored = 0; // the rest of a message goes with its first byte
        if (::recv(news.get(), &ignored, 1, MSG_DONTWAIT) >= 0 || errno == EINTR)
            continue;
        if (errno == EAGAIN || errno == EWOULDBLOCK)
            return true;
        if (errno != ENOBUFS) // that some were lost is news too
            return false;
    }
    return true;
}

} // namespace veridane::NetworkLinks
