#include "ui/SettingsView.h"
#include "ui/WindowFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QTest>

#include <fstream>

namespace veridane::test {
namespace {

using namespace veridane::ui;

class SettingsTest : public WindowTest {
protected:
    Texts chosenSegments() {
        turn();
        Texts chosen;
        for (const char* name : {"systemSegment", "lightSegment", "darkSegment"})
            if (find<QAbstractButton>(view, name).isChecked())
                chosen.emplace_back(name);
        return chosen;
    }

    SettingsView view{preferences, theme};
};

TEST_F(SettingsTest, EachSegmentIsTheOnlyChoiceOnceItIsPressedOrReachedByArrow) {
    view.show();
    EXPECT_EQ(chosenSegments(), Texts{"systemSegment"});
    for (const char* name : {"lightSegment", "darkSegment", "lightSegment", "systemSegment"}) {
        find<QAbstractButton>(view, name).click();
        EXPECT_EQ(chosenSegments(), Texts{name});
    }
    QTest::keyClick(&find(view, "systemSegment"), Qt::Key_Right);
    EXPECT_EQ(chosenSegments(), Texts{"lightSegment"});
    EXPECT_EQ(preferences.appearanceMode(), AppearanceMode::light);
}

TEST_F(SettingsTest, AnUnknownModeIsNoChoiceAndALanguageIsAppliedAtOnce) {
    std::ofstream(data.hostPath("/other.conf")) << "[General]\nappearanceMode=sepia\n";
    Preferences other(QString::fromStdString(data.hostPath("/other.conf")));
    const SettingsView otherView(other, theme);
    EXPECT_FALSE(find<QAbstractButton>(otherView, "systemSegment").isChecked());

    auto& languages = find<QComboBox>(view, "languageComboBox");
    languages.setCurrentIndex(2);
    Q_EMIT languages.activated(2);
    EXPECT_EQ(preferences.appLanguage(), AppLanguage::english);
}

} // namespace
} // namespace veridane::test
