#include "ui/SelectableLabel.h"

#include "ui/WindowFixture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>

namespace veridane::test {
namespace {

using namespace veridane::ui;

class SelectableLabelTest : public WindowTest {
protected:
    SelectableLabelTest() {
        label.resize(198, 100);
        label.show();
    }
    void send(QEvent::Type type, int line, int x, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {}) {
        // Of the three lines that stand in the middle.
        const QPointF at(x, label.height() / 2 + (line - 1) * lineHeight);
        QMouseEvent event(type, at, label.mapToGlobal(at), button, button, modifiers);
        QCoreApplication::sendEvent(&label, &event);
    }
    void drag(int fromLine, int fromX, int toLine, int toX) {
        send(QEvent::MouseButtonPress, fromLine, fromX);
        send(QEvent::MouseMove, toLine, toX);
        send(QEvent::MouseButtonRelease, toLine, toX);
    }
    std::string selected() { return label.selectedText().toStdString(); }
    static std::string copied() { return QGuiApplication::clipboard()->text().toStdString(); }

    SelectableLabel label{theme, TextStyle::monospacedCallout};
    int lineHeight = theme.lineHeight(TextStyle::monospacedCallout);
};

TEST_F(SelectableLabelTest, TheMouseSelectsAcrossLinesThatEndBehindSlashes) {
    // Without help no line would end in front of a digit.
    label.setText(
        QStringLiteral("/first.component.24.long.na/2nd.component.24.long.name//3rd component"));
    constexpr int end = 500; // right of all text
    drag(1, 0, 1, end);
    EXPECT_EQ(selected(), "2nd.component.24.long.name//");
    drag(2, end, 1, 0);
    EXPECT_EQ(selected(), "2nd.component.24.long.name//3rd component") << "backwards";
    drag(0, 0, 9, 0);
    EXPECT_EQ(selected(), label.text().toStdString()) << "to somewhere below";
    send(QEvent::MouseButtonPress, 1, 0, Qt::RightButton);
    EXPECT_EQ(selected(), label.text().toStdString()) << "the right button is for the menu";
    send(QEvent::MouseButtonDblClick, 2, 3);
    EXPECT_EQ(selected(), "3rd");
    send(QEvent::MouseButtonPress, 2, end, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "3rd component");
    send(QEvent::MouseButtonPress, 0, 0);
    EXPECT_EQ(selected(), "");
    send(QEvent::MouseButtonDblClick, 2, 3);
    send(QEvent::MouseButtonPress, 2, 3);
    EXPECT_EQ(selected(), label.text().toStdString()) << "a triple click";
}

TEST_F(SelectableLabelTest, KeysAndTheMenuCopyTheTextAsItIs) {
    const char path[] = "/Grüße\u00A0an 2/x😀"; // with a blank that does not break
    label.setText(QString::fromUtf8(path));
    QTest::keyClick(&label, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), path);
    QTest::keyClick(&label, Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(selected(), "/Grüße\u00A0an 2/x");

    QContextMenuEvent event(QContextMenuEvent::Mouse, {1, 1}, label.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&label, &event);
    auto& menu = *label.findChild<QMenu*>();
    ASSERT_EQ(menu.actions().size(), 2);
    menu.actions().front()->trigger();
    EXPECT_EQ(copied(), "/Grüße\u00A0an 2/x");
    menu.actions().back()->trigger();
    EXPECT_EQ(selected(), path);
    menu.close();
}

} // namespace
} // namespace veridane::test
