#pragma once

#include "registry/widgets/scrolling_page.h"
#include "registry/widgets/text_panel.h"

#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QTest>

#include <gtest/gtest.h>

namespace orlo::testing
{

inline QRect PlaceIn(const QWidget& ancestor, const QWidget& control)
{
    return {control.mapTo(&ancestor, QPoint()), control.size()};
}

/// What is seen of the page, in the page's own places.
inline QRect SeenOf(const ScrollingPage& scrolling)
{
    return {-scrolling.widget()->pos(), scrolling.viewport()->size()};
}

/// On a screen that is too small for them: neither the window nor the room it asks for is larger
/// than the screen, and every button under the page is whole.
inline void ExpectToStayOnTheScreen(const QWidget& window, const ScrollingPage& scrolling)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return scrolling.horizontalScrollBar()->isVisible(); }));
    const QRect room({}, window.screen()->availableSize() -
                             QSize(0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight)));
    EXPECT_TRUE(room.contains(QRect({}, window.minimumSize())));
    EXPECT_TRUE(room.contains(window.rect()));
    EXPECT_GT(scrolling.widget()->minimumSizeHint().width(), room.width()) << "tries nothing";
    int buttons = 0;
    for (const QPushButton* button : window.findChildren<QPushButton*>()) {
        if (scrolling.isAncestorOf(button)) continue;
        ++buttons;
        EXPECT_TRUE(window.rect().contains(PlaceIn(window, *button)));
        EXPECT_GE(button->width(),
                  button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + 24);
    }
    EXPECT_GE(buttons, 2);
}

/// On a screen with room for it: the page is whole, without scroll bars.
inline void ExpectNoScrolling(const ScrollingPage& scrolling)
{
    EXPECT_FALSE(scrolling.horizontalScrollBar()->isVisible());
    EXPECT_FALSE(scrolling.verticalScrollBar()->isVisible());
    EXPECT_EQ(scrolling.widget()->size(), scrolling.size());
    EXPECT_EQ(scrolling.minimumSizeHint(), scrolling.widget()->minimumSizeHint());
}

/// As on a screen that is that much smaller.
inline void EnlargeFontOf(QWidget& window, double factor)
{
    window.setFont(Enlarged(window.font(), factor));
}

}  // namespace orlo::testing
