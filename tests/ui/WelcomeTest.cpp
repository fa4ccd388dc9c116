#include "coordination/MakerSite.h"
#include "platform/CurlHttpClient.h"
#include "support/LoopbackServer.h"
#include "ui/CatalogueRow.h"
#include "ui/WindowFixture.h"

#include <QPushButton>

#include <atomic>
#include <cstdlib>

namespace veridane::test {
namespace {

using namespace veridane::ui;

const char* const twoApps = R"([
    {"name": "Erste", "tagline": "Eins", "url": "https://example.com/1", "new": [1, {}]},
    {"name": "Zweite", "tagline": "Zwei", "url": "not an address", "icon": "ftp://example.com/i"}
])";

/// The sheet's view before a site of the test's.
class WelcomeTest : public WindowTest {
protected:
    WelcomeTest() { ::setenv("VERIDANE_SITE", site.url("").c_str(), 1); }
    void TearDown() override { ::unsetenv("VERIDANE_SITE"); }

    /// Opens the view and waits for the list.
    void open(PathStatus path = PathStatus::satisfied) {
        appear();
        watcher->onPath(path);
        queue.drainUntil([this] { return !view->apps().get().empty(); });
        queue.drain(); // what the path has posted
        turn();
    }
    void appear() {
        auto owned = std::make_unique<HandDrivenWatcher>(pathCalls);
        watcher = owned.get();
        view = std::make_unique<WelcomeView>(
            WelcomeServices{client, queue, workspace, std::move(owned)}, theme);
        view->show();
    }
    void setPath(PathStatus path) {
        watcher->onPath(path);
        queue.drain();
        turn();
    }
    std::vector<CatalogueRow*> rows() const {
        std::vector<CatalogueRow*> shown;
        for (CatalogueRow* row : view->findChildren<CatalogueRow*>())
            if (row->isVisibleTo(view.get()))
                shown.push_back(row);
        return shown;
    }
    Texts names() const {
        Texts texts;
        for (const CatalogueRow* row : rows())
            texts.push_back(row->title().toStdString());
        return texts;
    }

    std::string listWithIcon;
    std::atomic<const char*> list = twoApps; // with none, the site ends the connection
    LoopbackServer site{[this](const LoopbackServer::Request& request, auto& connection) {
        const char* const answer = list;
        if (!answer)
            return connection.close();
        connection.answer(
            200, request.target == "/apps.json" ? answer : pictureFile({64, 64}, Qt::red, "png"));
    }};
    CurlHttpClient client;
    HandDrivenWatcher* watcher = nullptr;
    std::string pathCalls;
    std::unique_ptr<WelcomeView> view;
};

TEST_F(WelcomeTest, TheSitesListIsShownAsItCame) {
    open();
    EXPECT_EQ(names(), (Texts{"Erste", "Zweite"}));
    EXPECT_EQ(rows()[1]->accessibleDescription(), QStringLiteral("Zwei"));
    for (CatalogueRow* row : rows())
        row->click();
    find<QPushButton>(*view, "moreAppsButton").click();
    EXPECT_EQ(workspace.calls,
              (Texts{"https://example.com/1", MakerSite::root(), MakerSite::root()}));
}

TEST_F(WelcomeTest, WithoutAListFromTheSiteThatOfTheProgramIsShown) {
    for (const char* answer : {"[]", static_cast<const char*>(nullptr)}) {
        list = answer;
        open();
        ASSERT_EQ(names().size(), 8);
        EXPECT_EQ(names().front(), "Wollgras");
    }
}

TEST_F(WelcomeTest, TheTabKeyComesToTheListInItsPlace) {
    open();
    std::vector<const QWidget*> passed;
    for (QWidget* next = &find(*view, "welcomeScrollArea"); passed.size() < 4;) {
        next = next->nextInFocusChain();
        if (next->focusPolicy() != Qt::NoFocus)
            passed.push_back(next);
    }
    EXPECT_EQ(passed,
              (std::vector<const QWidget*>{rows()[0], rows()[1], &find(*view, "moreAppsButton"),
                                           &find(*view, "dismissButton")}));
}

TEST_F(WelcomeTest, ItIsThereOnlyWhileTheMachineIsOnline) {
    open(PathStatus::unsatisfied);
    EXPECT_EQ(names(), Texts());
    EXPECT_TRUE(find(*view, "moreAppsButton").isVisibleTo(view.get()));
    setPath(PathStatus::satisfied);
    EXPECT_EQ(names().size(), 2);
    setPath(PathStatus::requiresConnection);
    EXPECT_EQ(names(), Texts());
    setPath(PathStatus::satisfied);
    EXPECT_EQ(site.heads().size(), 1) << "nothing is fetched again";
    view.reset();
    EXPECT_EQ(pathCalls, "start cancel cancel ");
}

TEST_F(WelcomeTest, AnAnswerThatComesAfterTheEndIsDropped) {
    appear();
    site.waitForRequests(1);
    view.reset();
    list = "[]";
    open(); // whose answer comes behind the first one
    EXPECT_EQ(names().size(), 8);
}

TEST_F(WelcomeTest, AnIconTakesThePlaceholdersPlaceOnceItHasCome) {
    const std::string app = R"({"name": "A", "tagline": "B", "url": "C")";
    listWithIcon = "[" + app + R"(, "icon": ")" + site.url("/red.png") + "\"}, " + app + "}]";
    list = listWithIcon.c_str();
    open();
    const auto iconColour = [&](std::size_t row) {
        return rows()[row]->grab().toImage().pixelColor(14, 14);
    };
    const QColor placeholder = iconColour(1);
    queue.drainUntil([&] { return iconColour(0) != placeholder; });
    EXPECT_EQ(iconColour(0), QColor(Qt::red));
    EXPECT_EQ(iconColour(1), placeholder);
}

} // namespace
} // namespace veridane::test
