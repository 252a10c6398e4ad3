#include "registry/widgets/colours.h"
#include "registry/widgets/theme.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TEST(Theme, PlaceholderIsReadableAndWeakerThanTheText)
{
    const QPalette before = QApplication::palette();
    for (const orlo::Theme theme : {orlo::Theme::Light, orlo::Theme::Dark}) {
        ApplyTheme(*qApp, theme);
        const QPalette palette = QApplication::palette();
        const QColor ground = palette.color(QPalette::Base);
        const double contrast = ContrastRatio(palette.color(QPalette::PlaceholderText), ground);
        EXPECT_GE(contrast, 4.5);
        EXPECT_LT(contrast, ContrastRatio(palette.color(QPalette::Text), ground));
    }
    QApplication::setPalette(before);
}

TEST(Theme, ButtonsOfBoxesBearWordsAlone)
{
    const QPalette before = QApplication::palette();
    ApplyTheme(*qApp, orlo::Theme::Light);
    const QMessageBox box(QMessageBox::Question, QString(), QString(),
                          QMessageBox::Yes | QMessageBox::No);
    EXPECT_TRUE(box.button(QMessageBox::Yes)->icon().isNull());
    EXPECT_TRUE(box.button(QMessageBox::No)->icon().isNull());
    QApplication::setPalette(before);
}

}  // namespace
}  // namespace orlo
