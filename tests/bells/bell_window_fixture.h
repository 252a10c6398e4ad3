#pragma once

#include "bells/cmd_suonerie.h"
#include "registry/widgets/text_panel.h"
#include "tests/support/small_screen.h"
#include "tests/support/window_controls.h"

#include <QDialog>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

namespace orlo::testing
{

/// A bell window that is open, its controls by their names, and what an operator does to them.
/// `Main` is a fixture with the main window.
template <typename Main>
class BellWindowTest : public Main
{
protected:
    QDialog* bells = nullptr;

    void OpenBells(const char* name)
    {
        this->window.show();
        cmdSuonerie_Click(this->window);
        bells = this->window.template findChild<QDialog*>(QLatin1String(name));
        ASSERT_NE(bells, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(bells));
    }

    template <typename Widget = QWidget>
    Widget& Control(QAnyStringView name) const
    {
        return ControlOf<Widget>(*bells, name);
    }
    void Press(const char* name)
    {
        QTest::mouseClick(&Control<QAbstractButton>(name), Qt::LeftButton, {}, {8, 8});
    }
    /// Typed into a field over what it holds, and left by Tab.
    void Type(QAnyStringView name, const char* text)
    {
        auto& field = Control<QLineEdit>(name);
        field.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&field, QString::fromLatin1(text));
        QTest::keyClick(&field, Qt::Key_Tab);
    }
    std::string Text(QAnyStringView name) const
    {
        return Control(name).property("text").toString().toStdString();
    }
    /// As on a screen whose texts are that much larger.
    void EnlargeFont(double factor) const { bells->setFont(Enlarged(bells->font(), factor)); }
    /// Opened inside the screen, and with buttons to be reached on the small ones that are met.
    void ExpectToFitSmallScreens() const
    {
        EXPECT_TRUE(bells->screen()->availableGeometry().contains(QRect({}, bells->size())));
        const QSize title_bar(0, 24);
        const auto fits = [&](const QSize& screen) {
            const QSize least = bells->minimumSizeHint() + title_bar;
            EXPECT_EQ(least.boundedTo(screen), least) << screen.width();
        };
        fits({800, 600});
        EnlargeFont(1.5);
        QCoreApplication::processEvents();
        fits({1366, 768});
    }
    /// The filled button.
    std::string Primary() const
    {
        std::string names;
        for (const QAbstractButton* button : bells->findChildren<QAbstractButton*>())
            if (button->property("primario").toBool()) names += button->objectName().toStdString();
        return names;
    }
    bool Enabled(const char* name) const { return Control(name).isEnabled(); }
    bool Ticked(const char* name) const { return Control<QAbstractButton>(name).isChecked(); }
};

}  // namespace orlo::testing
