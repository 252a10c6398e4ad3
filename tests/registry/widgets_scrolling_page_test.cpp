#include "registry/widgets/scrolling_page.h"
#include "tests/support/small_screen.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

namespace orlo::testing
{
namespace
{

/// A page with a field in its first and one in its last corner, over a row of 30 with a button. The
/// screen of the tests is 800 x 800.
class ScrollingPageTest : public ::testing::Test
{
protected:
    QWidget window;
    ScrollingPage& scrolling = *new ScrollingPage;
    QWidget& page = *new QWidget;
    QLineEdit& first = *new QLineEdit;
    QWidget& between = *new QWidget;
    QLineEdit& last = *new QLineEdit;
    QPushButton& button = *new QPushButton(QStringLiteral("Chiudi"));

    ScrollingPageTest()
    {
        auto* corners = new QVBoxLayout(&page);
        corners->setContentsMargins({});
        corners->addWidget(&first, 0, Qt::AlignLeft);
        corners->addWidget(&between, 1);
        corners->addWidget(&last, 0, Qt::AlignRight);
        for (QLineEdit* field : {&first, &last}) field->setFixedSize(100, 30);
        button.setFixedHeight(30);
        scrolling.setWidget(&page);
        auto* rows = new QVBoxLayout(&window);
        rows->setContentsMargins(12, 12, 12, 12);
        rows->setSpacing(6);
        corners->setSpacing(0);
        rows->addWidget(&scrolling, 1);
        rows->addWidget(&button);
    }
    /// The page is 60 higher.
    void ShowWith(const QSize& least_between)
    {
        between.setMinimumSize(least_between);
        window.resize(10, 10);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    bool Seen(const QWidget& control) const
    {
        return SeenOf(scrolling).contains(PlaceIn(page, control));
    }
};

TEST_F(ScrollingPageTest, PageThatFitsIsAskedForWholeAndDoesNotScroll)
{
    ShowWith({300, 200});
    EXPECT_EQ(window.minimumSize(), QSize(12 + 300 + 12, 12 + 260 + 6 + 30 + 12));
    EXPECT_EQ(window.size(), window.minimumSize());
    ExpectNoScrolling(scrolling);
    EXPECT_EQ(scrolling.sizeHint(), page.sizeHint());
}

TEST_F(ScrollingPageTest, WidePageLeavesTheButtonOnTheScreen)
{
    ShowWith({1200, 200});
    EXPECT_EQ(window.minimumWidth(), 800);
    EXPECT_TRUE(window.rect().contains(button.geometry()));
    EXPECT_TRUE(scrolling.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(scrolling.verticalScrollBar()->isVisible()) << "the other bar has room of its own";
}

TEST_F(ScrollingPageTest, HighPageLeavesTheButtonOnTheScreen)
{
    ShowWith({300, 1200});
    EXPECT_EQ(window.minimumHeight(), 800 - window.style()->pixelMetric(QStyle::PM_TitleBarHeight));
    EXPECT_TRUE(window.rect().contains(button.geometry()));
    EXPECT_TRUE(scrolling.verticalScrollBar()->isVisible());
    EXPECT_FALSE(scrolling.horizontalScrollBar()->isVisible());
}

TEST_F(ScrollingPageTest, RoomFollowsThePage)
{
    ShowWith({300, 200});
    const auto asks_for = [this](int width) { return window.minimumWidth() == width; };
    between.setMinimumSize(1200, 200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asks_for(800); }));
    between.setMinimumSize(400, 200);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asks_for(12 + 400 + 12); }));
    ExpectNoScrolling(scrolling);
}

TEST_F(ScrollingPageTest, WhatGetsTheFocusScrollsIntoSight)
{
    ShowWith({1200, 1200});
    first.setFocus();
    ASSERT_FALSE(Seen(last));
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_TRUE(Seen(last));
    EXPECT_FALSE(Seen(first));
    QTest::keyClick(&last, Qt::Key_Tab);
    QTest::keyClick(&button, Qt::Key_Tab);
    EXPECT_TRUE(first.hasFocus());
    EXPECT_TRUE(Seen(first)) << "reached from outside the page";
    last.setFocus();
    EXPECT_TRUE(Seen(last));
}

TEST_F(ScrollingPageTest, OfAControlThatIsLargerThanTheRoomTheBeginningIsShown)
{
    ShowWith({1200, 1200});
    between.setFocusPolicy(Qt::StrongFocus);
    last.setFocus();
    between.setFocus();
    EXPECT_EQ(SeenOf(scrolling).topLeft(), between.pos());
}

TEST_F(ScrollingPageTest, ThePageStaysUnderAPressedControl)
{
    ShowWith({1200, 1200});
    between.setFocusPolicy(Qt::StrongFocus);
    last.setFocus();
    const QRect seen = SeenOf(scrolling);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, {100, 100});
    EXPECT_TRUE(between.hasFocus());
    EXPECT_EQ(SeenOf(scrolling), seen);
}

TEST_F(ScrollingPageTest, PageThatFitsGivesWayToARowThatGrows)
{
    ShowWith({300, 0});
    between.setMinimumHeight(200);
    QCoreApplication::processEvents();
    window.setMinimumSize(1, 1);
    window.resize(window.width(), 12 + 250 + 6 + 30 + 12);
    EXPECT_FALSE(scrolling.verticalScrollBar()->isVisible());
    EXPECT_EQ(page.height(), 250);
}

}  // namespace
}  // namespace orlo::testing
