#include "registry/terminal_window.h"

#include "registry/widgets/text_panel.h"
#include "tests/support/terminal_window_test.h"

#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace orlo::testing
{
namespace
{

/// A field that takes the focus, two buttons, and a panel for the outcome.
class Sample : public TerminalWindow
{
public:
    explicit Sample(Contenitore& desk) : TerminalWindow(desk, *desk.Controls().cmdComandi)
    {
        setWindowTitle(QStringLiteral("Prova Terminale n° "));
        for (QWidget* control : std::initializer_list<QWidget*>{&field, &able, &unable, &panel})
            layout->addWidget(control);
        unable.setEnabled(false);
        ShowOutcomeIn(panel);
    }

    void Do(const std::function<void()>& command)
    {
        Run(QStringLiteral("Prova in corso…"), EscapeUse::Ignored, panel, command);
    }

    QVBoxLayout* layout = new QVBoxLayout(this);
    QLineEdit& field = *new QLineEdit;
    QPushButton& able = *new QPushButton(QStringLiteral("Un tasto dalle parole lunghissime"));
    QPushButton& unable = *new QPushButton;
    TextPanel& panel = *new TextPanel;
    int times_loaded = 0;

protected:
    void Form_Load() override
    {
        ++times_loaded;
        field.setFocus();
    }
};

class WindowOverTheMain : public TerminalWindowTest<Sample>
{
protected:
    void SetUp() override
    {
        TerminalWindowTest::SetUp();
        Register(4, QStringLiteral("Strale"));
        Register(12, QStringLiteral("Lumo"));
        window.SetFeatureAvailable(Controls().cmdComandi, true);
        form.open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    void SayOutcome(const QString& outcome) { Controls().PannelloComunicazione->setText(outcome); }
};

TEST_F(WindowOverTheMain, IsFilledAnewForTheTerminalThatIsSelectedInTheSizeThatItHad)
{
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Prova Terminale n° 4"));
    const QSize size = form.size() + QSize(40, 30);
    form.resize(size);
    form.close();
    window.SelectTerminalLine(1);
    form.open();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Prova Terminale n° 12"));
    EXPECT_EQ(form.times_loaded, 2);
    EXPECT_EQ(form.size(), size);
}

TEST_F(WindowOverTheMain, OpenedWhileItIsOpenItIsNotFilledAnew)
{
    form.open();
    EXPECT_EQ(form.times_loaded, 1);
}

TEST_F(WindowOverTheMain, ClosingItGivesTheFocusToTheButtonThatOpensIt)
{
    Controls().ListaTerminali->setFocus();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(window.focusWidget(), Controls().cmdComandi);
}

TEST_F(WindowOverTheMain, ClosingItScrollsThatButtonIntoSight)
{
    QScrollArea& page = *Controls().ScorrimentoTerminale;
    const auto seen = [&] {
        const QRect place(Controls().cmdComandi->mapTo(page.viewport(), QPoint()),
                          Controls().cmdComandi->size());
        return page.viewport()->rect().contains(place);
    };
    page.horizontalScrollBar()->setValue(0);
    ASSERT_FALSE(seen()) << "this screen tries nothing";
    form.close();
    EXPECT_TRUE(seen());
}

TEST_F(WindowOverTheMain, ACommandGivesTheFocusAndTheButtonsBackAsTheyWere)
{
    bool inert = false;
    form.Do([&] {
        QTest::keyClicks(&form.field, QStringLiteral("x"));
        inert = !form.able.isEnabled() && !form.field.hasFocus() && form.field.text().isEmpty() &&
                form.cursor().shape() == Qt::WaitCursor;
    });
    EXPECT_TRUE(inert);
    EXPECT_TRUE(form.able.isEnabled());
    EXPECT_FALSE(form.unable.isEnabled());
    EXPECT_EQ(form.focusWidget(), &form.field);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WindowOverTheMain, NoCommandRunsInsideAnother)
{
    int times = 0;
    window.RunCommand(Controls().cmdTest, QStringLiteral("Test in corso…"), EscapeUse::Ignored,
                      [&] { form.Do([&times] { ++times; }); });
    EXPECT_EQ(times, 0);
    EXPECT_TRUE(form.able.isEnabled());
}

TEST_F(WindowOverTheMain, OutcomesAreShownWhileItIsOpen)
{
    SayOutcome(QStringLiteral("Comunicazione OK"));
    EXPECT_EQ(form.panel.text(), QStringLiteral("Comunicazione OK"));
    form.close();
    SayOutcome(QStringLiteral("Timeout"));
    EXPECT_EQ(form.panel.text(), QStringLiteral("Comunicazione OK"));
}

TEST_F(WindowOverTheMain, AButtonHasRoomForItsWordsInBold)
{
    QFont bold = form.font();
    bold.setBold(true);
    EXPECT_GT(form.able.minimumWidth(), QFontMetrics(bold).horizontalAdvance(form.able.text()));
}

}  // namespace
}  // namespace orlo::testing
