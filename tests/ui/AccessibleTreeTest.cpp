#include "ui/QuietServices.h"
#include "ui/RosettaInstallGuide.h"
#include "ui/SettingsView.h"
#include "ui/Sheet.h"
#include "ui/WelcomeView.h"
#include "ui/WindowFixture.h"

#include <QAccessible>
#include <QComboBox>
#include <QTabWidget>

namespace veridane::test {
namespace {

using namespace veridane::ui;

/// What can be used and has no name, in the accessible tree below an object.
void collectNameless(QAccessibleInterface* object, Texts& nameless) {
    static const std::set<QAccessible::Role> roles = {
        QAccessible::PushButton,  QAccessible::EditableText, QAccessible::CheckBox,
        QAccessible::RadioButton, QAccessible::ComboBox,     QAccessible::MenuItem,
        QAccessible::ButtonMenu,  QAccessible::Tree,         QAccessible::TreeItem,
        QAccessible::Table,       QAccessible::Cell,         QAccessible::ColumnHeader,
        QAccessible::ProgressBar, QAccessible::PageTab,      QAccessible::Dialog,
        QAccessible::StaticText,  QAccessible::Link};
    if (!object || object->state().invisible)
        return;
    if (roles.contains(object->role()) && object->text(QAccessible::Name).isEmpty())
        nameless.push_back(object->object() ? object->object()->objectName().toStdString() + " " +
                                                  object->object()->metaObject()->className()
                                            : "item " + std::to_string(object->role()));
    for (int child = 0; child < object->childCount(); ++child)
        collectNameless(object->child(child), nameless);
}

class AccessibleTreeTest : public WindowTest {
protected:
    static Texts nameless(QWidget& window) {
        turn();
        Texts texts;
        collectNameless(QAccessible::queryAccessibleInterface(&window), texts);
        return texts;
    }
    std::unique_ptr<ContentView> open(std::vector<std::string> arguments) {
        auto window = std::make_unique<ContentView>(contentServices(), std::move(arguments));
        window->show();
        turn();
        return window;
    }
};

TEST_F(AccessibleTreeTest, EverythingInTheWindowHasANameInAllItsStates) {
    waitForStop();
    auto window = open({});
    EXPECT_EQ(nameless(*window), Texts()) << "while scanning";
    coordinator->scanTask().get()->request_stop();
    finishScan();
    EXPECT_EQ(nameless(*window), Texts()) << "before a result";
    ScanItem item = sampleItem("Half", CompatibilityStatus::native);
    item.intelComponents = Texts(41, "Contents/MacOS/old");
    item.updateSource = UpdateSource::sparkle;
    show({item});
    coordinator->setKindFilter(ItemKind::application);
    coordinator->setSelection(coordinator->items().get().front().id);
    EXPECT_EQ(nameless(*window), Texts()) << "with a result";
}

TEST_F(AccessibleTreeTest, SoHasEverythingInTheSheets) {
    const auto window = open({"UITEST_SEED_DATA"});
    UnreachableNetwork network;
    WelcomeServices services{network, queue, workspace,
                             std::make_unique<SteadyPath>(PathStatus::satisfied)};
    {
        const Sheet sheet(theme, new WelcomeView(std::move(services), theme), *window);
        turn();
        queue.drain();
        EXPECT_EQ(nameless(*window), Texts()) << "with the greeting";
    }
    Sheet sheet(theme, new RosettaInstallGuide(workspace, theme), *window);
    EXPECT_EQ(nameless(*window), Texts()) << "with the guide";
    const auto* dialog = QAccessible::queryAccessibleInterface(&sheet);
    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_TRUE(dialog->state().modal);
}

TEST_F(AccessibleTreeTest, SoHaveBothPagesOfTheSettings) {
    QuietRelauncher relauncher;
    SettingsView settings(preferences, workspace, relauncher, theme);
    settings.show();
    Q_EMIT settings.findChild<QComboBox*>()->activated(1); // and the hint is there
    for (int page : {0, 1}) {
        settings.findChild<QTabWidget*>()->setCurrentIndex(page);
        EXPECT_EQ(nameless(settings), Texts()) << page;
    }
}

} // namespace
} // namespace veridane::test
