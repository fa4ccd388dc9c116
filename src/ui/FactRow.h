#pragma once

#include <QWidget>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veridane::ui {

class Label;
class SelectableLabel;
class Theme;

enum class FactStyle : std::uint8_t { text, monospaced };

/// A line of facts: what is told, and beside it the value, which can be selected.
class FactRow : public QWidget {
    Q_OBJECT

public:
    /// The two texts are found under the names "<field>TitleLabel" and "<field>ValueLabel".
    FactRow(const Theme& theme, std::string_view field, FactStyle style = FactStyle::text,
            QWidget* parent = nullptr);

    /// A row without a value is hidden. The value may be any text of a scanned object.
    void setFact(std::string_view title, const std::optional<std::string>& value);

private:
    Label* m_title;
    SelectableLabel* m_value;
};

} // namespace veridane::ui
