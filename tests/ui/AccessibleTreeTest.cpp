#include "ui/InterfaceLanguage.h"
#include "ui/RosettaInstallGuide.h"
#include "ui/SettingsView.h"
#include "ui/Sheet.h"
#include "ui/WindowFixture.h"

#include <QAccessible>
#include <QComboBox>
#include <QTabWidget>

namespace veridane::test {
namespace {

using namespace veridane::ui;

/// All that is not hidden in the accessible tree below an object.
template <typename Visitor>
void visit(QAccessibleInterface* object, const Visitor& visitor) {
    if (!object || object->state().invisible)
        return;
    visitor(*object);
    for (int child = 0; child < object->childCount(); ++child)
        visit(object->child(child), visitor);
}

class AccessibleTreeTest : public WindowTest {
protected:
    using Window = std::unique_ptr<QWidget>;

    Window open(std::vector<std::string> arguments = {}) {
        auto window = std::make_unique<ContentView>(contentServices(), std::move(arguments));
        window->show();
        turn();
        return window;
    }
    Window withGuide() {
        auto window = open();
        new Sheet(theme, new RosettaInstallGuide(workspace, theme), *window);
        return window;
    }
    Window withGreeting() {
        auto window = open();
        new Sheet(theme, makeWelcome().release(), *window);
        turn();
        queue.drain();
        return window;
    }
    Window settings(int page) {
        auto window = std::make_unique<SettingsView>(preferences, workspace, relauncher, theme);
        window->show();
        window->findChild<QTabWidget*>()->setCurrentIndex(page);
        return window;
    }
    Window settingsWithHint() {
        auto window = settings(0);
        Q_EMIT window->findChild<QComboBox*>()->activated(1);
        return window;
    }
    void showDetails() {
        ScanItem item = sampleItem("Half", CompatibilityStatus::native);
        item.intelComponents = Texts(41, "Contents/MacOS/old");
        item.updateSource = UpdateSource::sparkle;
        item.sizeOnDisk = 1'280'000'000;
        item.lastModified = date;
        show({item});
        coordinator->setKindFilter(ItemKind::application);
        coordinator->setSelection(item.id);
    }

    /// What can be used and has no name.
    static Texts nameless(QWidget& window) {
        static const std::set<QAccessible::Role> roles = {
            QAccessible::PushButton,  QAccessible::EditableText, QAccessible::CheckBox,
            QAccessible::RadioButton, QAccessible::ComboBox,     QAccessible::MenuItem,
            QAccessible::ButtonMenu,  QAccessible::Tree,         QAccessible::TreeItem,
            QAccessible::Table,       QAccessible::Cell,         QAccessible::ColumnHeader,
            QAccessible::ProgressBar, QAccessible::PageTab,      QAccessible::Dialog,
            QAccessible::StaticText,  QAccessible::Link};
        Texts found;
        turn();
        visit(QAccessible::queryAccessibleInterface(&window), [&](QAccessibleInterface& object) {
            const QString name = object.object() ? object.object()->objectName() : QString();
            if (roles.contains(object.role()) && object.text(QAccessible::Name).isEmpty())
                found.push_back(std::to_string(object.role()) + " " + name.toStdString());
        });
        return found;
    }
    /// All that can be read or heard.
    static Texts texts(QWidget& window) {
        Texts found;
        turn();
        visit(QAccessible::queryAccessibleInterface(&window), [&](QAccessibleInterface& object) {
            for (const auto kind : {QAccessible::Name, QAccessible::Description})
                found.push_back(object.text(kind).toStdString());
            for (const char* shown : {"text", "placeholderText"})
                if (object.object())
                    found.push_back(object.object()->property(shown).toString().toStdString());
        });
        return found;
    }

    QuietRelauncher relauncher;
};

TEST_F(AccessibleTreeTest, EverythingInTheWindowHasANameInAllItsStates) {
    waitForStop();
    const auto window = open();
    EXPECT_EQ(nameless(*window), Texts()) << "while scanning";
    coordinator->scanTask().get()->request_stop();
    finishScan();
    EXPECT_EQ(nameless(*window), Texts()) << "before a result";
    showDetails();
    EXPECT_EQ(nameless(*window), Texts()) << "with a result";
}

TEST_F(AccessibleTreeTest, SoHasEverythingInTheSheetsAndTheSettings) {
    EXPECT_EQ(nameless(*withGreeting()), Texts());
    EXPECT_EQ(nameless(*settingsWithHint()), Texts());
    EXPECT_EQ(nameless(*settings(1)), Texts());
    const auto window = withGuide();
    EXPECT_EQ(nameless(*window), Texts());
    const auto* dialog = QAccessible::queryAccessibleInterface(window->findChild<Sheet*>());
    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_TRUE(dialog->state().modal);
}

TEST_F(AccessibleTreeTest, AnOpenWindowReadsInAnotherLanguageAsOneThatIsOpenedInIt) {
    showDetails();
    InterfaceLanguage language;
    const std::function<Window()> windows[] = {
        [&] { return open(); },      [&] { return withGuide(); }, [&] { return withGreeting(); },
        [&] { return settings(0); }, [&] { return settings(1); },
    };
    for (const auto& make : windows) {
        const Window window = make();
        language.apply(AppLanguage::english);
        const Texts english = texts(*window);
        EXPECT_EQ(english, texts(*make()));
        for (const std::string& text : english)
            EXPECT_EQ(text, localized(text)) << "has an entry in the table";
        language.apply(AppLanguage::german);
        turn();
    }
}

} // namespace
} // namespace veridane::test
