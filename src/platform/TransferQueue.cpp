#include "platform/TransferQueue.h"

#include <cassert>
#include <utility>

namespace veridane {

void TransferQueue::add(std::unique_ptr<CurlTransfer> transfer) {
    const auto host = m_hosts.try_emplace(transfer->origin()).first;
    host->second.waiting.push_back(std::move(transfer));
    updateReadiness(host);
}

std::unique_ptr<CurlTransfer> TransferQueue::take() {
    if (m_free == 0 || m_ready.empty())
        return nullptr;
    const auto host = m_ready.front();
    m_ready.pop_front();
    host->second.isReady = false;
    auto transfer = std::move(host->second.waiting.front());
    host->second.waiting.pop_front();
    ++host->second.running;
    --m_free;
    updateReadiness(host);
    return transfer;
}

void TransferQueue::finished(const std::string& origin, bool isMultiplexed) {
    const auto host = m_hosts.find(origin);
    assert(host != m_hosts.end() && "each transfer is taken before it ends");
    --host->second.running;
    ++m_free;
    host->second.isMultiplexed |= isMultiplexed;
    if (host->second.running == 0 && host->second.waiting.empty())
        m_hosts.erase(host);
    else
        updateReadiness(host);
}

void TransferQueue::updateReadiness(Hosts::iterator host) {
    Host& state = host->second;
    if (state.isReady || state.waiting.empty())
        return;
    if (state.running >= m_perHost && !state.isMultiplexed)
        return;
    state.isReady = true;
    m_ready.push_back(host);
}

} // namespace veridane
