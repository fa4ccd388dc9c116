#include "platform/Environment.h"

#include <cstdlib>

namespace veridane::Environment {

std::optional<std::string> variable(const char* name) {
    const char* value = std::getenv(name);
    return value && *value != '\0' ? std::optional<std::string>(value) : std::nullopt;
}

std::string service(const char* variableName, const char* builtIn) {
    std::string address = variable(variableName).value_or(builtIn);
    // People end an address in a slash, and to a server "//help" is another path.
    while (address.ends_with('/'))
        address.pop_back();
    return address;
}

} // namespace veridane::Environment
