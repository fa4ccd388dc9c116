#include "coordination/HandDrivenWatcher.h"
#include "coordination/MakerSite.h"
#include "platform/CurlHttpClient.h"
#include "support/LoopbackServer.h"
#include "ui/CatalogueRow.h"
#include "ui/InterfaceLanguage.h"
#include "ui/WelcomeView.h"
#include "ui/WindowFixture.h"

#include <QBuffer>
#include <QImage>
#include <QPushButton>

#include <cstdlib>
#include <mutex>
#include <optional>

namespace veridane::test {
namespace {

using namespace veridane::ui;

const char* const twoApps = R"([
    {"name": "Erste", "tagline": "Eins", "url": "https://example.com/1", "new": [1, {}]},
    {"name": "Zweite", "tagline": "Zwei", "url": "not an address", "icon": "ftp://example.com/i"}
])";

std::string redPicture() {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

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

    /// From now on the site answers with this list; nothing ends the connection.
    void answerWith(std::optional<std::string> list) {
        const std::lock_guard lock(mutex);
        document = std::move(list);
    }
    std::optional<std::string> answer() {
        const std::lock_guard lock(mutex);
        return document;
    }

    std::mutex mutex;
    std::optional<std::string> document = twoApps;
    LoopbackServer site{[this](const LoopbackServer::Request& request, auto& connection) {
        const auto list = answer();
        if (!list)
            return connection.close();
        connection.answer(200, request.target == "/apps.json" ? *list : redPicture());
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
    for (const auto& list : {std::optional<std::string>("[]"), std::optional<std::string>()}) {
        answerWith(list);
        open();
        ASSERT_EQ(names().size(), 8) << list.value_or("no answer");
        EXPECT_EQ(names().front(), "Wollgras");
    }
    InterfaceLanguage language;
    language.apply(AppLanguage::english);
    turn();
    EXPECT_EQ(rows().front()->accessibleDescription(), QStringLiteral("Tasks that stay light."));
    EXPECT_EQ(find(*view, "welcomeScrollArea").accessibleName(),
              QStringLiteral("Welcome to Veridane"));
    language.apply(AppLanguage::german);
}

TEST_F(WelcomeTest, TheTabKeyComesToTheListInItsPlace) {
    open();
    std::vector<const QWidget*> passed;
    for (QWidget* widget = &find(*view, "welcomeScrollArea"); passed.size() < 5;
         widget = widget->nextInFocusChain())
        if (widget->focusPolicy() != Qt::NoFocus)
            passed.push_back(widget);
    EXPECT_EQ(passed, (std::vector<const QWidget*>{&find(*view, "welcomeScrollArea"), rows()[0],
                                                   rows()[1], &find(*view, "moreAppsButton"),
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
    EXPECT_EQ(names().size(), 2);
    EXPECT_EQ(site.heads().size(), 1) << "nothing is fetched again";
    view.reset();
    EXPECT_EQ(pathCalls, "start cancel cancel ");
}

TEST_F(WelcomeTest, AnAnswerThatComesAfterTheEndIsDropped) {
    appear();
    site.waitForRequests(1);
    view.reset();
    answerWith("[]");
    open(); // whose answer comes behind the first one
    EXPECT_EQ(names().size(), 8);
}

TEST_F(WelcomeTest, AnIconTakesThePlaceholdersPlaceOnceItHasCome) {
    const std::string app = R"({"name": "A", "tagline": "B", "url": "C")";
    answerWith("[" + app + R"(, "icon": ")" + site.url("/red.png") + "\"}, " + app + "}]");
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
