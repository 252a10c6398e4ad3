#include "app/message_boxes.h"

#include "app/termination.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace orlo
{
namespace
{

class MessageBoxesTest : public ::testing::Test
{
protected:
    Termination termination;
    MessageBoxes boxes{termination};
    int boxes_shown = 0;

    /// Done as soon as the next box stands.
    void OverTheBox(const std::function<void(QMessageBox&)>& deed)
    {
        QTimer::singleShot(0, &termination, [this, deed] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            ++boxes_shown;
            deed(*box);
        });
    }
    bool Ask(bool when_ending)
    {
        return boxes.AskYesNo(DialogIcon::Critical, QStringLiteral("Attenzione"),
                              QStringLiteral("Si desidera azzerare le suonerie?"), when_ending);
    }
    void Tell()
    {
        boxes.Tell(DialogIcon::Information, QStringLiteral("Comunicazione"),
                   QStringLiteral("Ricezione dati OK"), QString());
    }
};

TEST_F(MessageBoxesTest, ShowsTheQuestionWithNoForItsDefault)
{
    OverTheBox([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Attenzione"));
        EXPECT_EQ(box.text(), QStringLiteral("Si desidera azzerare le suonerie?"));
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        box.reject();
    });
    EXPECT_FALSE(Ask(/*when_ending=*/false));
    EXPECT_EQ(boxes_shown, 1);
}

TEST_F(MessageBoxesTest, TheButtonIsTheAnswerWhateverItIsForAProgramThatIsToEnd)
{
    for (const bool when_ending : {false, true})
        for (const auto button : {QMessageBox::Yes, QMessageBox::No}) {
            OverTheBox([button](QMessageBox& box) { box.button(button)->click(); });
            EXPECT_EQ(Ask(when_ending), button == QMessageBox::Yes) << when_ending;
        }
    EXPECT_EQ(boxes_shown, 4);
}

TEST_F(MessageBoxesTest, EscapeIsNo)
{
    OverTheBox([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(Ask(/*when_ending=*/true));
    EXPECT_EQ(boxes_shown, 1);
}

class EndingSignal : public MessageBoxesTest, public ::testing::WithParamInterface<int>
{
};

TEST_P(EndingSignal, TakesTheQuestionAwayWithTheAnswerForItAndNoOtherIsShown)
{
    OverTheBox([](QMessageBox&) { std::raise(GetParam()); });
    EXPECT_FALSE(Ask(/*when_ending=*/false));
    EXPECT_EQ(boxes_shown, 1);
    for (const bool when_ending : {false, true}) {
        OverTheBox([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        EXPECT_EQ(Ask(when_ending), when_ending);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(boxes_shown, 1);
}

TEST_P(EndingSignal, EndsTheProcedureThatWasAskedAbout)
{
    OverTheBox([](QMessageBox&) { std::raise(GetParam()); });
    EXPECT_TRUE(Ask(/*when_ending=*/true));
    EXPECT_EQ(boxes_shown, 1);
}

TEST_P(EndingSignal, ComesBeforeTheButtonThatIsPressedBehindIt)
{
    OverTheBox([](QMessageBox& box) {
        std::raise(GetParam());
        box.button(QMessageBox::Yes)->click();
    });
    EXPECT_FALSE(Ask(/*when_ending=*/false));
    EXPECT_EQ(boxes_shown, 1);
}

TEST_P(EndingSignal, TakesAMessageAwayAndNoOtherIsShown)
{
    OverTheBox([](QMessageBox&) { std::raise(GetParam()); });
    Tell();
    EXPECT_EQ(boxes_shown, 1);
    OverTheBox([](QMessageBox& box) { box.reject(); });
    Tell();
    QCoreApplication::processEvents();
    EXPECT_EQ(boxes_shown, 1);
}

INSTANTIATE_TEST_SUITE_P(MessageBoxes, EndingSignal, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

}  // namespace
}  // namespace orlo
