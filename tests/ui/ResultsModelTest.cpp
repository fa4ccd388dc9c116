#include "ui/ResultsModel.h"

#include "ui/ResultsFixture.h"
#include "ui/UpdateCell.h"

#include <random>

namespace veridane::ui {
namespace {

using Result = UpdateCheckResult;

class ResultsModelTest : public ResultsTest {
protected:
    std::vector<test::Texts> rows() const { return rowsOf(model, 0, model.rowCount() - 1); }

    ResultsModel model{*coordinator};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ResultsModelTest, WhoBelievesTheSignalsAloneHasTheRightRowsAfterAnyWrites) {
    std::vector<test::Texts> followed;
    int resets = 0, runs = 0;
    QObject::connect(&model, &ResultsModel::modelReset, &model, [&] {
        followed = rows();
        ++resets;
    });
    QObject::connect(&model, &ResultsModel::rowsInserted, &model, [&](const auto&, int a, int b) {
        const auto come = rowsOf(model, a, b);
        followed.insert(followed.begin() + a, come.begin(), come.end());
        ++runs;
    });
    QObject::connect(&model, &ResultsModel::rowsRemoved, &model, [&](const auto&, int a, int b) {
        followed.erase(followed.begin() + a, followed.begin() + b + 1);
        ++runs;
    });
    QObject::connect(&model, &ResultsModel::dataChanged, &model,
                     [&](const QModelIndex& a, const QModelIndex& b) {
                         std::ranges::copy(rowsOf(model, a.row(), b.row()),
                                           followed.begin() + a.row());
                     });
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same steps in each run
    const auto pick = [&](int below) {
        return static_cast<int>(random() % unsigned(below));
    };
    show(items(90));
    for (int step = 0; step < 400; ++step) {
        for (int writes = pick(3); writes >= 0; --writes) {
            const std::vector<ScanItem>& all = coordinator->items().get();
            const int what = pick(25);
            if (what < 8)
                coordinator->setSearchText(what < 2 ? "" : std::to_string(pick(10)));
            else if (what < 10)
                coordinator->setStatusFilter(pick(2) ? StatusFilter::all : StatusFilter::ready);
            else if (what == 10)
                show(items(pick(90)));
            else if (!all.empty())
                coordinator->checkUpdate(all[random() % all.size()].id);
            if (!checks.empty())
                checks.back()(Result::updateAvailable(std::to_string(step)));
            queue.drain();
        }
        const int anchor = pick(model.rowCount() + 1) - 1;
        const auto id = model.idAt(anchor);
        const int now = model.refresh(anchor);
        ASSERT_EQ(followed, rows()) << "step " << step;
        ASSERT_EQ(model.rowCount(), static_cast<int>(coordinator->filteredItems().size()));
        for (int row = 0; row < model.rowCount(); ++row)
            ASSERT_EQ(model.item(row), coordinator->filteredItems()[static_cast<std::size_t>(row)]);
        ASSERT_TRUE(!id || model.rowOf(*id) < 0 || now == model.rowOf(*id)) << "step " << step;
        ASSERT_LT(now, std::max(1, model.rowCount()));
    }
    EXPECT_GT(resets, 10);
    EXPECT_GT(runs, 100);
}

TEST_F(ResultsModelTest, RowsWhoseItemsHaveGoneShowNothingUntilTheRefresh) {
    show(items(30));
    model.refresh();
    show(items(20));
    EXPECT_EQ(rows(), std::vector<test::Texts>(30, test::Texts(6)));
    model.refresh();
    EXPECT_EQ(model.rowCount(), 20);
}

TEST_F(ResultsModelTest, TheLastColumnSaysWhatTheUpdateCheckCameTo) {
    const struct {
        Result result;
        UpdateSource source;
        const char *text, *symbol, *reason;
        bool isLink, isChecking;
    } cases[] = {
        {Result::upToDate("2.0"), {}, "Aktuell (2.0)", "checkmark.circle", "", false, false},
        {Result::updateAvailable("2.0"), {}, "→ 2.0", "arrow.up.circle.fill", "", false, false},
        {Result::failed("404"), {}, "Fehler", "exclamationmark.triangle", "404", false, false},
        {Result::checking(), UpdateSource::sparkle, "Prüfe …", "", "", false, true},
        {Result::noFeed(), UpdateSource::sparkle, "Keine Quelle", "", "", false, false},
        {{}, UpdateSource::sparkle, "Prüfen", "", "", true, false},
        {{}, UpdateSource::macAppStore, "Prüfen", "", "", true, false},
        {{}, UpdateSource::developerID, "Entwickler-Website", "", "", false, false},
        {{}, UpdateSource::unsigned_, "Nicht signiert", "", "", false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        ScanItem item = test::sampleItem("App", CompatibilityStatus::native);
        item.intelComponents = {"Contents/PlugIns/Old"};
        item.updateResult = c.result;
        item.updateSource = c.source;
        show({item});
        model.refresh();
        EXPECT_EQ(rows()[0][5], c.text);
        EXPECT_EQ(model.index(0, 5).data(Qt::ToolTipRole).toString().toStdString(), c.reason);
        EXPECT_FALSE(model.index(0, 0).data(Qt::AccessibleDescriptionRole).isNull());
        EXPECT_EQ(UpdateCell(item).symbol(), c.symbol);
        EXPECT_EQ(UpdateCell(item).isLink(), c.isLink);
        EXPECT_EQ(UpdateCell(item).isChecking(), c.isChecking);
    }
}

} // namespace
} // namespace veridane::ui
