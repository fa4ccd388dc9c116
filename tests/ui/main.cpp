#include <QApplication>
#include <QLocale>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // No display, and nothing of the person who runs the suite.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "Pacific/Chatham"); // also where it is started by hand
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    QStandardPaths::setTestModeEnabled(true);
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setKeyboardInputInterval(600'000);    // a name counts as typed in one go
    QLocale::setDefault(QLocale(QStringLiteral("de"))); // as the program does, whatever the locale
    return RUN_ALL_TESTS();
}
