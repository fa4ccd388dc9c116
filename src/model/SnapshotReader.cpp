#include "model/SnapshotReader.h"

#include "model/RecordFields.h"

#include <nlohmann/json.hpp>

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <variant>
#include <vector>

namespace veridane::json {
namespace {

using Json = nlohmann::json;

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

template <typename T>
concept List = requires(T& list) {
    list.emplace_back();
};

/// What stands under the case of an update result.
struct Payload {
    std::string* text;
    const char* key; // null where nothing in it counts
};

struct PassedOver {};

/// Where a value goes.
using Target =
    std::variant<PassedOver, bool*, std::int64_t*, std::string*, Uuid*, Date*, CPUArch*,
                 CompatibilityStatus*, ItemKind*, UpdateSource*, std::vector<std::string>*,
                 std::vector<CPUArch>*, std::vector<ScanItem>*, CachedScanSnapshot*, ScanOptions*,
                 ScanItem*, ArchitectureReport*, UpdateCheckResult*, Payload>;

template <typename T>
T* present(T& field) {
    return &field;
}

template <typename T>
T* present(std::optional<T>& field) {
    return &field.emplace();
}

template <typename T>
bool assign(T& field, std::optional<T> value) {
    if (value)
        field = *value;
    return value.has_value();
}

/// An object or a list that has been opened and not yet closed.
class Frame {
public:
    explicit Frame(Target owner) : m_owner(owner) {}

    /// Where the value under that key goes; nothing for a key that makes the object unreadable.
    std::optional<Target> under(std::string_view key) {
        return std::visit(Overloaded{
                              [&](Record auto* record) { return field(*record, key); },
                              [&](UpdateCheckResult* result) { return payload(*result, key); },
                              [&](const Payload& payload) { return text(payload, key); },
                              [](auto) { return std::optional<Target>(); },
                          },
                          m_owner);
    }

    /// Where the next element goes; nothing unless this is a list.
    std::optional<Target> element() {
        return std::visit(
            Overloaded{
                [](List auto* list) { return std::optional<Target>(&list->emplace_back()); },
                [](auto) { return std::optional<Target>(); },
            },
            m_owner);
    }

    /// Whether all that is required has come.
    [[nodiscard]] bool isComplete() const {
        return std::visit(Overloaded{
                              [&](Record auto* record) { return hasRequired(*record); },
                              [&](UpdateCheckResult*) { return m_seen != 0; },
                              [&](const Payload&) { return m_seen != 0; },
                              [](auto) { return true; },
                          },
                          m_owner);
    }

private:
    using Keys = std::uint32_t; // a bit for each field

    /// False the second time.
    bool see(Keys key) {
        const bool isNew = (m_seen & key) == 0;
        m_seen |= key;
        return isNew;
    }

    std::optional<Target> field(Record auto& record, std::string_view key) {
        std::optional<Target> target = PassedOver();
        Keys bit = 1;
        visitFields(record, [&](std::string_view name, auto& field) {
            if (name == key)
                target = see(bit) ? std::optional<Target>(present(field)) : std::nullopt;
            bit <<= 1;
        });
        return target;
    }

    std::optional<Target> payload(UpdateCheckResult& result, std::string_view key) {
        for (const UpdateResultForm& form : updateResultForms) {
            if (key != form.name)
                continue;
            result.kind = form.kind;
            // The same bit for all of them: there is exactly one.
            return see(1) ? std::optional<Target>(Payload{&result.payload, form.payloadKey})
                          : std::nullopt;
        }
        return PassedOver();
    }

    std::optional<Target> text(const Payload& payload, std::string_view key) {
        if (key != payload.key)
            return PassedOver();
        return see(1) ? std::optional<Target>(payload.text) : std::nullopt;
    }

    [[nodiscard]] bool hasRequired(Record auto& record) const {
        bool isComplete = true;
        Keys bit = 1;
        visitFields(record, [&]<typename T>(const char*, const T&) {
            constexpr bool isOptional = requires(T optional) {
                optional.has_value();
            };
            isComplete = isComplete && (isOptional || (m_seen & bit) != 0);
            bit <<= 1;
        });
        return isComplete;
    }

    Target m_owner;
    Keys m_seen = 0;
};

/// Takes the parser's events. Each gives false as soon as the snapshot is unreadable, which ends
/// the parsing. The names of the events are the library's.
class Reader {
public:
    explicit Reader(CachedScanSnapshot& snapshot) : m_next(&snapshot) {}

    bool start_object(std::size_t /*unknown*/) {
        if (m_passedOverDepth > 0)
            return passOver();
        const auto target = take();
        return target && std::visit(Overloaded{
                                        [&](PassedOver) { return passOver(); },
                                        [&](Record auto* record) { return open(record); },
                                        [&](UpdateCheckResult* result) { return open(result); },
                                        [&](const Payload& payload) {
                                            return payload.key ? open(payload) : passOver();
                                        },
                                        [](auto) { return false; },
                                    },
                                    *target);
    }

    bool start_array(std::size_t /*unknown*/) {
        if (m_passedOverDepth > 0)
            return passOver();
        const auto target = take();
        return target && std::visit(Overloaded{
                                        [&](PassedOver) { return passOver(); },
                                        [&](List auto* list) { return open(list); },
                                        [](auto) { return false; },
                                    },
                                    *target);
    }

    bool key(const std::string& name) {
        if (m_passedOverDepth > 0)
            return true;
        const auto target = m_open.back().under(name);
        m_next = target.value_or(PassedOver());
        return target.has_value();
    }

    bool end_object() { return close(); }
    bool end_array() { return close(); }

    bool string(const std::string& text) {
        const auto parsed = [&text](auto& field, auto parse) {
            return assign(field, parse(text));
        };
        return value(Overloaded{
            [&](std::string* field) {
                // A copy, which takes the room it needs. The parser's own text keeps its room.
                *field = text;
                return true;
            },
            [&](Uuid* field) { return parsed(*field, Uuid::parse); },
            [&](Date* field) { return parsed(*field, parseISO8601); },
            [&](CPUArch* field) { return parsed(*field, cpuArchFromRawString); },
            [&](CompatibilityStatus* field) {
                return parsed(*field, compatibilityStatusFromRawString);
            },
            [&](ItemKind* field) { return parsed(*field, itemKindFromRawString); },
            [&](UpdateSource* field) { return parsed(*field, updateSourceFromRawString); },
        });
    }

    bool boolean(bool truth) {
        return value(Overloaded{[&](bool* field) {
            *field = truth;
            return true;
        }});
    }

    bool number_integer(std::int64_t number) {
        return value(Overloaded{[&](std::int64_t* field) {
            *field = number;
            return true;
        }});
    }

    bool number_unsigned(std::uint64_t number) {
        constexpr auto largest =
            static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        return value(Overloaded{[&](std::int64_t* field) {
            *field = static_cast<std::int64_t>(number);
            return number <= largest;
        }});
    }

    bool number_float(double /*number*/, const std::string& /*text*/) { return noField(); }
    bool null() { return noField(); }
    bool binary(const Json::binary_t& /*bytes*/) { return noField(); }

    template <typename Error>
    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const Error& /*error*/) {
        return false;
    }

private:
    /// Where the value that begins now goes.
    std::optional<Target> take() {
        if (!m_open.empty()) {
            if (const auto element = m_open.back().element())
                return isWithinLimit(*element) ? element : std::nullopt;
        }
        return m_next;
    }

    bool isWithinLimit(const Target& element) {
        return !std::holds_alternative<std::string*>(element) || ++m_listedTexts <= maxListedTexts;
    }

    /// Hands a value that is neither object nor list to the setter for its target's type.
    template <typename Setters>
    bool value(const Setters& setters) {
        if (m_passedOverDepth > 0)
            return true;
        const auto target = take();
        return target && std::visit(
                             [&]<typename T>(const T& field) {
                                 if constexpr (requires { setters(field); })
                                     return setters(field);
                                 return std::same_as<T, PassedOver>;
                             },
                             *target);
    }

    bool noField() {
        return value([](PassedOver) { return true; });
    }

    bool open(Target owner) {
        m_open.emplace_back(owner);
        return true;
    }

    bool passOver() {
        ++m_passedOverDepth;
        return true;
    }

    bool close() {
        if (m_passedOverDepth > 0) {
            --m_passedOverDepth;
            return true;
        }
        const bool isComplete = m_open.back().isComplete();
        m_open.pop_back();
        return isComplete;
    }

    std::vector<Frame> m_open; // never deeper than the records
    Target m_next;             // of the value behind the last key
    std::size_t m_passedOverDepth = 0;
    std::size_t m_listedTexts = 0;
};

} // namespace

std::optional<CachedScanSnapshot> readSnapshot(std::string_view text) {
    // The library takes a zero byte for the end, whatever follows.
    if (text.find('\0') != std::string_view::npos)
        return std::nullopt;
    CachedScanSnapshot snapshot;
    Reader reader(snapshot);
    if (!Json::sax_parse(text.begin(), text.end(), &reader))
        return std::nullopt;
    return snapshot;
}

} // namespace veridane::json
