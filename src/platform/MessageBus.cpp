#include "platform/MessageBus.h"

#include "platform/Descriptor.h"
#include "platform/Environment.h"
#include "platform/PercentEncoding.h"
#include "platform/SystemCalls.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <optional>

namespace veridane::MessageBus {
namespace {

constexpr int patience = 2000; // milliseconds; a bus takes one, and more only on a busy machine

std::string_view cutOff(std::string_view& text, char separator) {
    const std::string_view part = text.substr(0, text.find(separator));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    return part;
}

std::string unescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        unsigned char byte = 0;
        const char* const digits = text.data() + 1;
        if (text[0] == '%' && text.size() >= 3 &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            result += static_cast<char>(byte);
            text.remove_prefix(3);
        } else {
            result += text[0];
            text.remove_prefix(1);
        }
    }
    return result;
}

/// The name of a socket as the system wants it: an abstract one begins with a NUL.
std::optional<std::string> socketName(std::string_view place) {
    constexpr std::string_view transport = "unix:";
    if (!place.starts_with(transport))
        return std::nullopt;
    place.remove_prefix(transport.size());
    while (!place.empty()) {
        std::string_view value = cutOff(place, ',');
        const std::string_view key = cutOff(value, '=');
        if (key == "path")
            return unescaped(value);
        if (key == "abstract")
            return '\0' + unescaped(value);
    }
    return std::nullopt;
}

/// Invalid where nobody listens. EAGAIN says that so many wait already that nobody can.
Descriptor connectTo(const std::string& name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return {};
    }
    std::ranges::copy(name, address.sun_path);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    ::fcntl(socket.get(), F_SETFD, FD_CLOEXEC);
    ::fcntl(socket.get(), F_SETFL, O_NONBLOCK);
    const auto* const target = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(socket.get(), target, size) != 0)
        return {};
    return socket;
}

/// Whether anything comes back to the first words of a connection; its end is an answer as well.
bool answers(const Descriptor& socket) {
    std::string greeting("\0AUTH EXTERNAL ", 15);
    for (const char digit : std::to_string(::getuid())) { // in hexadecimal form, digit by digit
        greeting += '3';
        greeting += digit;
    }
    greeting += "\r\n";
    const ssize_t sent = ::write(socket.get(), greeting.data(), greeting.size());
    if (sent != static_cast<ssize_t>(greeting.size()))
        return true; // it has gone away
    pollfd waiting{socket.get(), POLLIN, 0};
    return uninterrupted([&] { return ::poll(&waiting, 1, patience); }) != 0;
}

} // namespace

std::string sessionAddress() {
    if (auto address = Environment::variable("DBUS_SESSION_BUS_ADDRESS"))
        return *std::move(address);
    const auto runtime = Environment::variable("XDG_RUNTIME_DIR");
    if (!runtime)
        return {};
    return "unix:path=" + percentEncoded(*runtime + "/bus", PercentEncoding::fileName);
}

std::string systemAddress() {
    return Environment::variable("DBUS_SYSTEM_BUS_ADDRESS")
        .value_or("unix:path=/var/run/dbus/system_bus_socket");
}

bool isSilent(std::string_view address) {
    while (!address.empty()) {
        const auto name = socketName(cutOff(address, ';'));
        if (!name)
            continue; // better a window without its bus than none
        const Descriptor socket = connectTo(*name);
        if (socket)
            return !answers(socket);
        if (errno == EAGAIN)
            return true;
    }
    return false;
}

} // namespace veridane::MessageBus
