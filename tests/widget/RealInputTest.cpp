// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// Keys as the X server sends them, with its own repetition.
#include "WidgetTest.h"

#include <QProcess>

namespace featurebrowser {

namespace {

/// Counts the keys that the server repeats.
class RepeatCounter : public QObject {
public:
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) {
            count += static_cast<QKeyEvent*>(event)->isAutoRepeat() ? 1 : 0;
        }
        return false;
    }
};

class RealInputTest : public WidgetTest {
protected:
    RealInputTest()
    {
        for (const char* name : { "SelfTestRun", "DeviceReset", "LUTEnableAll" }) {
            browser->addCommandFeature(
                "Camera", name, "Run", LEVEL_BEGINNER, false, true, SELECTOR_NONE, "");
        }
        show();
    }
    void SetUp() override
    {
        if (QGuiApplication::platformName() != "xcb") {
            GTEST_SKIP() << "needs an X server";
        }
    }
    static void send(const QStringList& arguments)
    {
        QProcess sender;
        sender.start("xdotool", arguments);
        ASSERT_TRUE(QTest::qWaitFor([&] { return sender.state() == QProcess::NotRunning; }, 30000));
        ASSERT_EQ(sender.exitCode(), 0) << "is xdotool there?";
    }
    /// Types, and waits until the last key has arrived.
    void keys(const QStringList& arguments)
    {
        send(arguments);
        qApp->installEventFilter(&m_watch);
        send({ "key", "F12" });
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_watch.hasArrived; }, 30000));
        qApp->removeEventFilter(&m_watch);
        m_watch.hasArrived = false;
    }

private:
    class Watch : public QObject {
    public:
        bool hasArrived = false;

    protected:
        bool eventFilter(QObject*, QEvent* event) override
        {
            hasArrived = hasArrived
                || (event->type() == QEvent::KeyRelease
                    && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F12);
            return false;
        }
    };
    Watch m_watch;
};

} // namespace

TEST_F(RealInputTest, AHeldKeyRunsACommandOnce)
{
    select("SelfTestRun");
    RepeatCounter repeats;
    tree()->installEventFilter(&repeats);
    send({ "keydown", "space" });
    EXPECT_TRUE(QTest::qWaitFor([&] { return repeats.count > 3; }, 30000)) << "the server repeats";
    keys({ "keyup", "space" });
    EXPECT_EQ(journal.take(), Lines { "Command SelfTestRun" });
}

TEST_F(RealInputTest, AWordThatIsTypedAfterASearchRunsNothing)
{
    QApplication::setKeyboardInputInterval(60000); // however slow this machine is
    keys({ "key", "ctrl+f" });
    keys({ "type", "SelfTestRun" });
    keys({ "key", "Return" });
    keys({ "key", "ctrl+a" });
    keys({ "type", "lut" });
    tree()->setFocus();
    keys({ "key", "space" });
    keys({ "type", "self test" });
    EXPECT_TRUE(journal.take().empty()) << "the row of before is not to be seen";
    find("");
    tree()->setFocus();
    select("Camera");
    keys({ "type", "device reset" });
    EXPECT_EQ(tree()->currentIndex().siblingAtColumn(0).data().toString(), "DeviceReset");
    EXPECT_TRUE(journal.take().empty());
    EXPECT_FALSE(child<QWidget>("commandQuestion")->isVisible());
}

} // namespace featurebrowser
