#pragma once

#include "ui/WindowFixture.h"

#include <QAbstractItemModel>
#include <QAbstractItemModelTester>

namespace veridane::ui {

class ResultsTest : public test::WindowTest {
protected:
    /// "App 1000" and on. Every third one needs Rosetta; every second one, from the first, can be
    /// checked for updates.
    static std::vector<ScanItem> items(int count) {
        std::vector<ScanItem> result;
        for (int i = 0; i < count; ++i) {
            const auto status =
                i % 3 == 0 ? CompatibilityStatus::needsRosetta : CompatibilityStatus::native;
            result.push_back(test::sampleItem("App " + std::to_string(1000 + i), status));
            result.back().updateSource = i % 2 ? UpdateSource::unsigned_ : UpdateSource::sparkle;
        }
        return result;
    }
    static std::vector<test::Texts> rowsOf(const QAbstractItemModel& model, int first, int last) {
        std::vector<test::Texts> result;
        for (int row = first; row <= last; ++row) {
            test::Texts& texts = result.emplace_back();
            for (int column = 0; column < model.columnCount(); ++column)
                texts.push_back(model.index(row, column).data().toString().toStdString());
        }
        return result;
    }
};

} // namespace veridane::ui
