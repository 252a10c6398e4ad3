#include "registry/contenitore_controls.h"
#include "registry/start_up.h"
#include "tests/end_to_end/exported_table.h"
#include "tests/support/fake_component.h"
#include "tests/support/test_workstation.h"

namespace orlo::end_to_end
{
namespace
{

/// One session of the main window with the register of the installation.
class Session
{
public:
    explicit Session(const Installation& installation)
    {
        const std::string configuration = installation.PathOf("Configurazione.ini");
        EXPECT_EQ(StartUp(window_, QString::fromStdString(configuration),
                          [this] { return component_.Make(); })
                      .end,
                  StartUpOutcome::End::Complete);
        window_.SelectTerminalLine(3);
        EXPECT_EQ(Controls().LabelTerminale->text(), QStringLiteral("Terminale n°4"));
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session()
    {
        EXPECT_TRUE(pc_.dialog.told.empty());
        CloseRegister(state_);
    }

    const Ui::Contenitore& Controls() const { return window_.Controls(); }
    void SavePlantCode(const char* code)
    {
        Controls().CodiceImpianto->setText(QString::fromLatin1(code));
        Controls().cmdAggiorna->click();
    }

private:
    orlo::testing::TestWorkstation pc_;
    orlo::testing::FakeComponent component_;
    ProgramState state_;
    Contenitore window_{state_, pc_.workstation};
};

class RegisterTurns : public ::testing::TestWithParam<Jet>
{
};

INSTANTIATE_TEST_SUITE_P(Access, RegisterTurns, ::testing::Values(Jet::k3, Jet::k4),
                         [](const auto& version) {
                             return version.param == Jet::k3 ? "97" : "2000";
                         });

TEST_P(RegisterTurns, WindowAndShellSeeEachOthersValues)
{
    const Installation installation;
    installation.Register({{.terminal = 4}}, GetParam());
    Session(installation).SavePlantCode("77");
    EXPECT_EQ(installation.RunRegistro({"modifica", ".", "4", "--tentativi", "9"}).status, 0);
    {
        Session second(installation);
        EXPECT_EQ(second.Controls().CodiceImpianto->text(), QStringLiteral("77"));
        EXPECT_EQ(second.Controls().Tentativi->text(), QStringLiteral("9"));
        second.SavePlantCode("78");
    }
    EXPECT_EQ(installation.RunRegistro({"modifica", ".", "4", "--tentativi", "2"}).status, 0);
    EXPECT_EQ(Session(installation).Controls().Tentativi->text(), QStringLiteral("2"));
    EXPECT_EQ(installation.RunRegistro({"verifica", "."}).output, "Il file è integro.\n");

    const Lines rows = Exported(installation, "TERMINALI");
    ASSERT_EQ(rows.size(), 8U);
    EXPECT_EQ(rows[3].rfind("4,", 0), 0U);
    EXPECT_NE(rows[3].find(",78,"), std::string::npos) << rows[3];
}

}  // namespace
}  // namespace orlo::end_to_end
