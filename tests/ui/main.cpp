#include <QApplication>
#include <QLocale>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // No display, and nothing of the person who runs the suite.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    QStandardPaths::setTestModeEnabled(true);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QStringLiteral("de"))); // as the program does, whatever the locale
    return RUN_ALL_TESTS();
}
