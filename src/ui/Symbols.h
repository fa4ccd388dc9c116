#pragma once

#include <QColor>
#include <QPixmap>

#include <memory>
#include <string_view>

namespace veridane::ui {

/// Pictures by the name of the symbol, in one colour each. Drawings come from the program's
/// resources and are rendered at the very size that is asked for, so that they are sharp at every
/// scale factor. For the main thread.
class Symbols {
public:
    Symbols();
    ~Symbols();

    /// A square of `size` logical pixels at `dpr` device pixels each. An unknown name gives an
    /// empty picture of that size.
    [[nodiscard]] QPixmap pixmap(std::string_view name, int size, const QColor& colour,
                                 double dpr) const;

    /// Whether there is a drawing of that name.
    [[nodiscard]] static bool has(std::string_view name);

    /// Forgets what has been rendered.
    void clear();

private:
    struct Cache;
    std::unique_ptr<Cache> m_cache;
};

} // namespace veridane::ui
