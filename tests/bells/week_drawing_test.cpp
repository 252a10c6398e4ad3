#include "bells/week_drawing.h"

#include "registry/widgets/colours.h"
#include "registry/widgets/theme.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

namespace orlo
{
namespace
{

class WeekDrawingTest : public testing::Test
{
protected:
    WeekDrawing drawing;

    void SetUp() override
    {
        drawing.resize(800, 600);
        drawing.Show({{.day = 1, .ring = 4, .minute = 8 * 60, .duration = 10},
                      {.day = 1, .ring = 9, .minute = 8 * 60 + 5, .duration = 5},
                      {.day = 6, .ring = 2, .minute = 24 * 60 - 1, .duration = 0}});
    }
    void Click(const QPointF& place)
    {
        QTest::mouseClick(&drawing, Qt::LeftButton, {}, place.toPoint());
    }
};

TEST_F(WeekDrawingTest, DaysGoAcrossAndHoursDown)
{
    const std::vector<QRectF> places = drawing.Places();
    EXPECT_LT(places[0].left(), places[2].left());
    EXPECT_LT(places[0].center().y(), places[2].center().y());
    EXPECT_NEAR(places[0].width(), 2 * places[1].width(), 0.01);
    EXPECT_DOUBLE_EQ(places[0].left(), places[1].left());
    EXPECT_GE(places[1].top(), places[0].bottom()) << "five minutes apart, and both to be seen";
}

TEST_F(WeekDrawingTest, TheFirstAndTheLastMinuteOfADayLieInTheGrid)
{
    drawing.Show({{.day = 0, .minute = 0, .duration = 1}, {.day = 0, .minute = 24 * 60 - 1}});
    // The grid ends half a line from the edges.
    const double edge = drawing.fontMetrics().height() / 2;
    EXPECT_GE(drawing.Places()[0].top(), edge);
    EXPECT_LE(drawing.Places()[1].bottom(), drawing.height() - edge);
}

TEST_F(WeekDrawingTest, AClickOnAMarkChoosesItsRing)
{
    const QSignalSpy marks(&drawing, &WeekDrawing::MarkChosen);
    const QSignalSpy days(&drawing, &WeekDrawing::DayChosen);
    for (const QRectF& place : drawing.Places()) Click(place.center());
    ASSERT_EQ(marks.size(), 3);
    EXPECT_EQ(marks[0], (QList<QVariant>{1, 4}));
    EXPECT_EQ(marks[1], (QList<QVariant>{1, 9}));
    EXPECT_EQ(marks[2], (QList<QVariant>{6, 2}));
    EXPECT_TRUE(days.empty());
}

TEST_F(WeekDrawingTest, AClickBesideAllMarksChoosesTheDay)
{
    const QSignalSpy marks(&drawing, &WeekDrawing::MarkChosen);
    const QSignalSpy days(&drawing, &WeekDrawing::DayChosen);
    Click(drawing.Places()[0].center() + QPointF(0, 40));
    ASSERT_EQ(days.size(), 1);
    EXPECT_EQ(days[0], QList<QVariant>{1});
    Click({2, 300});
    EXPECT_EQ(days.size(), 1) << "the hours are no day";
    EXPECT_TRUE(marks.empty());
}

TEST_F(WeekDrawingTest, TheChosenMarkReadsOnTheTintedColumnInBothThemes)
{
    drawing.Show({{.day = 1, .minute = 9 * 60, .duration = 10, .chosen = true}});
    const QPoint mark = drawing.Places()[0].center().toPoint();
    for (const Theme theme : {Theme::Dark, Theme::Light}) {
        ApplyTheme(*qApp, theme);
        drawing.ShadeDay(-1);
        const QImage plain = drawing.grab().toImage();
        drawing.ShadeDay(1);
        const QImage tinted = drawing.grab().toImage();
        const QColor ground = tinted.pixelColor(mark + QPoint(0, 8));
        EXPECT_NE(ground, plain.pixelColor(mark + QPoint(0, 8))) << "tinted";
        EXPECT_GE(ContrastRatio(tinted.pixelColor(mark), ground), 4.5);
    }
}

/// How thick the lines are that a row or a column of pixels crosses.
std::set<int> Thicknesses(const std::vector<QColor>& pixels, const QColor& ground)
{
    std::set<int> found;
    int thickness = 0;
    for (const QColor& pixel : pixels) {
        if (pixel == ground && thickness > 0) found.insert(thickness);
        thickness = pixel == ground ? 0 : thickness + 1;
    }
    return found;
}

TEST_F(WeekDrawingTest, LinesAreAsThickAsEachOtherAtEveryScale)
{
    drawing.Show({});
    const QColor ground = drawing.palette().color(QPalette::Base);
    for (const auto& [scale, thickness] :
         {std::pair(1.0, 1), std::pair(1.25, 1), std::pair(1.5, 1), std::pair(2.0, 2)}) {
        QImage picture(drawing.size() * scale, QImage::Format_RGB32);
        picture.setDevicePixelRatio(scale);
        drawing.render(&picture);
        const int x = picture.width() / 14;  // beside the numbers, in the first day
        std::vector<QColor> down;
        for (int y = 40; y < picture.height() - 40; ++y) down.push_back(picture.pixelColor(x, y));
        std::vector<QColor> across;
        for (int across_x = x; across_x < picture.width() - 10; ++across_x)
            across.push_back(picture.pixelColor(across_x, picture.height() / 2 + 3));
        const QColor right = picture.pixelColor(picture.width() - 1, picture.height() / 2 + 3);
        EXPECT_NE(right, ground) << "the last one is not cut off";
        EXPECT_EQ(Thicknesses(down, ground), std::set<int>{thickness}) << scale;
        EXPECT_EQ(Thicknesses(across, ground), std::set<int>{thickness}) << scale;
    }
}

TEST_F(WeekDrawingTest, SaysItsRingsInWords)
{
    EXPECT_EQ(drawing.accessibleDescription(),
              QStringLiteral("lunedì 08:00, durata 10; lunedì 08:05, durata 5; sabato 23:59, "
                             "durata 0"));
    drawing.Show({});
    EXPECT_EQ(drawing.accessibleDescription(), QStringLiteral("Nessuna suoneria"));
}

}  // namespace
}  // namespace orlo
