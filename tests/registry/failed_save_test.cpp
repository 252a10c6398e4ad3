#include "tests/registry/start_up_fixture.h"
#include "tests/support/file_size_limit.h"

namespace orlo
{
namespace
{

using testing::FileSizeLimit;

/// A register of that version, terminal 4 selected with a new plant code entered.
class FailedSave : public StartUpTest, public ::testing::WithParamInterface<const char*>
{
protected:
    void SetUp() override
    {
        Database(GetParam());
        Start();
        window.SelectTerminalLine(kPosition);
        before_ = Now();
    }

    void Enter(const char* plant_code)
    {
        window.Controls().CodiceImpianto->setText(QString::fromLatin1(plant_code));
    }
    void Save()
    {
        pc.dialog.told.clear();
        window.Controls().cmdAggiorna->click();
    }
    void ExpectNothingChanged(const char* plant_code) const
    {
        EXPECT_TRUE(Now() == before_);
        const Ui::Contenitore& controls = window.Controls();
        EXPECT_EQ(controls.ListaTerminali->currentRow(), kPosition);
        EXPECT_EQ(controls.LabelTerminale->text(), QStringLiteral("Terminale n°4"));
        EXPECT_EQ(controls.CodiceImpianto->text(), QString::fromLatin1(plant_code));
        EXPECT_EQ(controls.LabelModifiche->text(), QStringLiteral("Modifiche non salvate"));
        EXPECT_TRUE(controls.cmdAggiorna->isEnabled());
    }
    void ExpectSaved(std::int16_t plant_code)
    {
        EXPECT_TRUE(pc.dialog.told.empty());
        EXPECT_EQ(Slot(4).Impianto, plant_code);
        EXPECT_TRUE(Lines().last().startsWith(QStringLiteral("04")));
        CloseRegister(state);
        const QByteArray row = Exported("TERMINALI").split('\n').at(4);
        EXPECT_TRUE(row.startsWith("4,"));
        EXPECT_TRUE(row.contains(',' + QByteArray::number(plant_code) + ',')) << row.constData();
    }
    QString OnlyBox() const
    {
        return pc.dialog.told.size() == 1 ? pc.dialog.told[0].text : QString();
    }

private:
    static constexpr int kPosition = 3;

    struct Everything {
        QStringList lines;
        orlo::TerminalTable slots_of_terminals;
        QByteArray file;
        bool operator==(const Everything&) const = default;
    };
    Everything Now() const { return {Lines(), state.TerminalTable, Content("nimbo.mdb")}; }

    Everything before_;
};

INSTANTIATE_TEST_SUITE_P(Access, FailedSave,
                         ::testing::Values("nimbo-full-97.mdb", "nimbo-full-2000.mdb"),
                         [](const auto& sample) {
                             return QByteArray(sample.param).contains("97") ? "97" : "2000";
                         });

// The journal does not fit at first, then it does and the row's page, further behind, does not.
TEST_P(FailedSave, OnAFullDiskSaysSoChangesNothingAndCanBeRepeated)
{
    Enter("7123");
    constexpr rlim_t kStep = 1024;
    int failures = 0;
    for (rlim_t room = 0;; room += kStep) {
        {
            const FileSizeLimit limit(room);
            Save();
        }
        if (pc.dialog.told.empty()) break;
        ++failures;
        EXPECT_TRUE(OnlyBox().startsWith(QStringLiteral(" 3026 Disco pieno: ")))
            << room << OnlyBox().toStdString();
        ExpectNothingChanged("7123");
        if (HasFailure()) break;
    }
    EXPECT_GT(failures, 5);
    ExpectSaved(7123);
}

TEST_P(FailedSave, OfANumberBeyondItsColumnNamesTheField)
{
    Enter("40000");
    Save();
    EXPECT_EQ(OnlyBox(), QStringLiteral("Il numero scritto nel campo «Codice dell'impianto» è "
                                        "troppo grande."));
    ExpectNothingChanged("40000");
    Enter("7124");
    Save();
    ExpectSaved(7124);
}

TEST_P(FailedSave, WithoutAnyRoomSaysSoAndCanBeRepeated)
{
    Enter("7125");
    {
        const FileSizeLimit limit(0);
        Save();
    }
    EXPECT_EQ(OnlyBox(), QStringLiteral(" 3026 Disco pieno: la modifica non è stata salvata. "
                                        "Liberare spazio e riprovare."));
    ExpectNothingChanged("7125");
    Save();
    ExpectSaved(7125);
}

}  // namespace
}  // namespace orlo
