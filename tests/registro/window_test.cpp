#include "registro/create_register.h"
#include "registro/new_terminal.h"
#include "registro/terminal_csv.h"
#include "registro/terminal_rows.h"
#include "registry/contenitore_controls.h"
#include "registry/start_up.h"
#include "tests/support/test_workstation.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orlo::registro
{
namespace
{

/// The main window over a register that was made from the shell.
class MadeRegister : public ::testing::TestWithParam<jet::Version>
{
protected:
    QTemporaryDir folder;
    orlo::testing::TestWorkstation pc;
    ProgramState state;
    Contenitore window{state, pc.workstation};

    void SetUp() override { CreateRegister(folder.path(), GetParam()); }
    void TearDown() override { CloseRegister(state); }

    void Add(std::initializer_list<int> numbers) const
    {
        const auto database = Open(jet::OpenMode::ReadWrite);
        for (const int number : numbers) {
            TerminalValues terminal = NewTerminal();
            terminal[kTerminale] = std::int32_t{number};
            terminal[kTipo] = std::int32_t{4};
            StoreTerminal(*database, terminal);
        }
    }
    std::unique_ptr<jet::Database> Open(jet::OpenMode mode) const
    {
        return jet::Database::Open(folder.filePath(QStringLiteral("nimbo.mdb")).toStdString(),
                                   mode);
    }
    StartUpOutcome::End Start()
    {
        // Serial terminals need no component.
        return StartUp(window, folder.filePath(QStringLiteral("Configurazione.ini")),
                       ComponentFactory())
            .end;
    }
    QStringList Lines() const
    {
        QStringList lines;
        const QListWidget& list = *window.Controls().ListaTerminali;
        for (int i = 0; i < list.count(); ++i) lines << list.item(i)->text();
        return lines;
    }
};

INSTANTIATE_TEST_SUITE_P(Jet, MadeRegister,
                         ::testing::Values(jet::Version::Jet3, jet::Version::Jet4));

TEST_P(MadeRegister, WithoutTerminalsOpensEmpty)
{
    EXPECT_EQ(Start(), StartUpOutcome::End::Complete);
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_P(MadeRegister, IsListedAndSavedByTheWindow)
{
    Add({12, 3});
    EXPECT_EQ(Start(), StartUpOutcome::End::Complete);
    EXPECT_EQ(
        Lines(),
        (QStringList{QStringLiteral("12 - Strale -         \t - Abilitazione\tSì\tPresenze"),
                     QStringLiteral("03 - Strale -         \t - Abilitazione\tSì\tPresenze")}));
    window.SelectTerminalLine(0);
    window.Controls().CampoDescrizione->setText(QStringLiteral("Città"));
    window.Controls().cmdAggiorna->click();
    EXPECT_TRUE(pc.dialog.told.empty());
    EXPECT_EQ(Lines().last(),
              QStringLiteral("12 - Strale - Città   \t - Abilitazione\tSì\tPresenze"));
    CloseRegister(state);

    const auto database = Open(jet::OpenMode::ReadOnly);
    const QString csv = TerminalsAsCsv(ReadTerminals(*database));
    EXPECT_TRUE(csv.contains(QStringLiteral("\n12;Strale;1;Città   ;Sì;1;1;")))
        << csv.toStdString();
}

}  // namespace
}  // namespace orlo::registro
