#pragma once

#include "coordination/CoordinatorFixture.h"
#include "ui/ContentView.h"
#include "ui/Preferences.h"
#include "ui/SavePanel.h"
#include "ui/Theme.h"

#include <QCoreApplication>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace veridane::test {

/// Answers for the user.
class RecordingSavePanel : public ui::SavePanel {
public:
    std::optional<std::string> chooseFile(const std::string& proposedName) override {
        proposedNames.push_back(proposedName);
        whileOpen();
        return answer;
    }

    Texts proposedNames;
    std::optional<std::string> answer;
    std::function<void()> whileOpen = [] {
    };
};

inline int occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

/// Views over a real coordinator, whose engine, clock, queue and user are the test's.
class WindowTest : public CoordinatorTest {
protected:
    /// One turn of the event loop.
    static void turn() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    template <typename Widget = QWidget>
    static Widget& find(const QWidget& view, const char* name) {
        auto* widget = view.findChild<Widget*>(QString::fromUtf8(name));
        if (!widget)
            throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }

    ui::ContentServices contentServices() {
        return {.coordinator = *coordinator,
                .workspace = workspace,
                .preferences = preferences,
                .savePanel = savePanel,
                .theme = theme};
    }

    RecordingSavePanel savePanel;
    ui::Theme theme;
    ui::Preferences preferences{QString::fromStdString(data.hostPath("/Veridane.conf"))};
};

} // namespace veridane::test
