#include "app/escape_key_watcher.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

class EscapeKeyWatcherTest : public ::testing::Test
{
protected:
    EscapeKeyWatcher watcher;
    QLineEdit field;

    void Send(QEvent::Type type, int key = Qt::Key_Escape, bool repeated = false)
    {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
        QCoreApplication::sendEvent(&field, &event);
    }
};

TEST_F(EscapeKeyWatcherTest, ShortPressIsSeenOnce)
{
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_TRUE(watcher.Query().pressed_since_last_query);
    EXPECT_FALSE(watcher.Query().pressed_since_last_query);
}

TEST_F(EscapeKeyWatcherTest, ShortPressLookedAtWhileTheKeyIsDownCountsOnceItIsUp)
{
    Send(QEvent::KeyPress);
    for (int look = 0; look < 3; ++look) {
        const EscapeKeyState down = watcher.Query();
        EXPECT_TRUE(down.pressed_since_last_query && down.held_now);
    }
    Send(QEvent::KeyRelease);
    const EscapeKeyState up = watcher.Query();
    EXPECT_TRUE(up.pressed_since_last_query);
    EXPECT_FALSE(up.held_now);
    EXPECT_FALSE(watcher.Query().pressed_since_last_query);
}

TEST_F(EscapeKeyWatcherTest, ForgottenPressDoesNotCountWhenItsKeyComesUp)
{
    Send(QEvent::KeyPress);
    watcher.Forget();
    EXPECT_TRUE(watcher.Query().held_now);
    Send(QEvent::KeyRelease);
    EXPECT_FALSE(watcher.Query().pressed_since_last_query);
}

TEST_F(EscapeKeyWatcherTest, KeyHeldDownRepeatsWithoutBeingPressedAgain)
{
    Send(QEvent::KeyPress);
    EscapeKeyState state = watcher.Query();
    EXPECT_TRUE(state.pressed_since_last_query && state.held_now);
    for (int i = 0; i < 3; ++i) {
        Send(QEvent::KeyRelease, Qt::Key_Escape, /*repeated=*/true);
        Send(QEvent::KeyPress, Qt::Key_Escape, /*repeated=*/true);
    }
    state = watcher.Query();
    EXPECT_FALSE(state.pressed_since_last_query);
    EXPECT_TRUE(state.held_now);
    Send(QEvent::KeyRelease);
    state = watcher.Query();
    EXPECT_FALSE(state.pressed_since_last_query || state.held_now);
}

TEST_F(EscapeKeyWatcherTest, OtherKeysDoNotCount)
{
    QTest::keyClicks(&field, QStringLiteral("abc"));
    EXPECT_FALSE(watcher.Query().pressed_since_last_query);
}

}  // namespace
}  // namespace orlo
