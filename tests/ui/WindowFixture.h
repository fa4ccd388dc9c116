#pragma once

#include "coordination/CoordinatorFixture.h"
#include "ui/ContentView.h"
#include "ui/Preferences.h"
#include "ui/QuietServices.h"
#include "ui/Theme.h"
#include "ui/WelcomeView.h"

#include <QApplication>
#include <QBuffer>
#include <QImageWriter>
#include <QTest>

#include <stdexcept>

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

/// A picture file of one colour.
inline std::string pictureFile(const QSize& size, const QColor& colour, const char* format) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setProgressiveScanWrite(true);
    EXPECT_TRUE(writer.write(image));
    return buffer.data().toStdString();
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

    /// Who types does so where the focus is.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        turn();
    }
    static std::string focusedName() {
        return QApplication::focusWidget()->objectName().toStdString();
    }

    std::unique_ptr<ui::WelcomeView> makeWelcome() {
        return std::make_unique<ui::WelcomeView>(
            ui::WelcomeServices{network, queue, workspace,
                                std::make_unique<SteadyPath>(PathStatus::satisfied)},
            theme);
    }
    ui::ContentServices contentServices() {
        return {.coordinator = *coordinator,
                .workspace = workspace,
                .preferences = preferences,
                .savePanel = savePanel,
                .theme = theme};
    }

    RecordingSavePanel savePanel;
    UnreachableNetwork network;
    ui::Theme theme;
    ui::Preferences preferences{QString::fromStdString(data.hostPath("/Veridane.conf"))};
};

} // namespace veridane::test
