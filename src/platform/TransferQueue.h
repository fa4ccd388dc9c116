#pragma once

#include "platform/CurlTransfer.h"

#include <deque>
#include <map>
#include <memory>
#include <string>

namespace veridane {

/// The transfers that wait for their turn. curl has such a queue as well, but tries just one of
/// those in it when a connection gets free: if that one is for a busy host, the connection stays
/// unused, however many others could have taken it. Each operation takes the same time however many
/// wait. For one thread.
class TransferQueue {
public:
    TransferQueue(int total, int perHost) : m_free(total), m_perHost(perHost) {}

    void add(std::unique_ptr<CurlTransfer> transfer);

    /// The next one that may start, hosts in turn; null if there is none.
    [[nodiscard]] std::unique_ptr<CurlTransfer> take();

    /// One that was taken for this origin has ended. A multiplexed host may from now on be asked
    /// as often as the total allows.
    void finished(const std::string& origin, bool isMultiplexed);

private:
    struct Host {
        std::deque<std::unique_ptr<CurlTransfer>> waiting;
        int running = 0;
        bool isMultiplexed = false;
        bool isReady = false; // in m_ready
    };
    using Hosts = std::map<std::string, Host>;

    void updateReadiness(Hosts::iterator host);

    Hosts m_hosts; // those with transfers that wait or run
    std::deque<Hosts::iterator> m_ready;
    int m_free;
    int m_perHost;
};

} // namespace veridane
