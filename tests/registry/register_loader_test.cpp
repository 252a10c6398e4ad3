#include "registry/register_loader.h"

#include "registry/contenitore_controls.h"
#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace orlo
{
namespace
{

using Row = std::map<std::u16string, jet::Value>;

/// A table in memory. A column that a row lacks is missing from the table.
class RowsInMemory : public jet::Recordset
{
public:
    explicit RowsInMemory(std::vector<Row> rows) : rows_(std::move(rows)) {}

    void MoveFirst() override { at_ = 0; }
    void MoveLast() override { at_ = rows_.size() - 1; }
    void MoveNext() override { ++at_; }
    void MovePrevious() override { --at_; }
    bool AtBof() const override { return rows_.empty(); }
    bool AtEof() const override { return at_ >= rows_.size(); }
    std::size_t RecordCount() override { return rows_.size(); }
    jet::Value Field(std::u16string_view column) override
    {
        const auto found = rows_.at(at_).find(std::u16string(column));
        if (found == rows_.at(at_).end()) throw jet::Error(jet::kColumnNotFound, "manca un campo");
        return found->second;
    }
    void SetIndex(std::u16string_view) override {}
    void Seek(const std::vector<jet::Value>&) override {}
    bool NoMatch() const override { return false; }

private:
    std::vector<Row> rows_;
    std::size_t at_ = 0;
};

Row Terminal(std::int32_t number, std::int32_t type)
{
    return {{u"Terminale", number}, {u"TIPO", type},
            {u"Funzionamento", 1},  {u"Attivo", true},
            {u"Modalita", 1},       {u"Descrizione", jet::Text(u"Porta")},
            {u"Porta", 1},          {u"Priorita", jet::Null{}},
            {u"Velocita", 9600}};
}

class RegisterLoader : public ::testing::Test
{
protected:
    testing::TestWorkstation pc;
    ProgramState state;
    Contenitore window{state, pc.workstation};

    bool Load(std::vector<Row> rows)
    {
        state.TerminalsRecordset = std::make_unique<RowsInMemory>(std::move(rows));
        return RiempeListaTerminali(window);
    }
    int Lines() const { return window.Controls().ListaTerminali->count(); }
    QString Remark() const { return window.Controls().PannelloComunicazione->Remark(); }
};

TEST_F(RegisterLoader, TableWithoutRowsLeavesTheListEmptyAndNothingSelected)
{
    EXPECT_FALSE(Load({}));
    EXPECT_EQ(Lines(), 0);
    EXPECT_EQ(window.Controls().ListaTerminali->currentRow(), -1);
    EXPECT_EQ(Remark(), QString());
}

TEST_F(RegisterLoader, TellsWhetherThereIsAnOrloOrASipa)
{
    EXPECT_FALSE(Load({Terminal(1, 3), Terminal(2, 8), Terminal(3, 9)}));
    EXPECT_TRUE(Load({Terminal(1, 3), Terminal(2, 1)}));
    EXPECT_TRUE(Load({Terminal(1, 2)}));
}

TEST_F(RegisterLoader, MissingColumnOfLaterYearsReadsAsNull)
{
    Row old = Terminal(1, 4);
    old.erase(u"TIPO");
    state.TerminalTable[0].Tipo = 6;
    EXPECT_FALSE(Load({old}));
    EXPECT_EQ(Lines(), 1);
    EXPECT_EQ(state.TerminalTable[0].Tipo, 6);
}

TEST_F(RegisterLoader, MissingColumnOfTheBaseEndsTheFillWithoutABox)
{
    Row broken = Terminal(2, 4);
    broken.erase(u"Attivo");
    Load({Terminal(1, 4), broken, Terminal(3, 4)});
    EXPECT_EQ(Lines(), 1) << "the lines before it stay";
    EXPECT_TRUE(Remark().contains(QStringLiteral("3018")));
    EXPECT_TRUE(pc.dialog.told.empty());
}

TEST_F(RegisterLoader, ValueThatItsFieldCannotHoldEndsTheFillAndIsNamed)
{
    Row broken = Terminal(2, 4);
    broken[u"Porta"] = 70000;
    Load({Terminal(1, 4), broken});
    EXPECT_EQ(Lines(), 1);
    EXPECT_TRUE(Remark().contains(QStringLiteral("Porta")));
}

TEST_F(RegisterLoader, OtherNumericColumnTypesAreTaken)
{
    Row row = Terminal(1, 4);
    row[u"Porta"] = jet::Text(u"3");
    row[u"Velocita"] = 19200.0;
    row[u"Attivo"] = -1;
    EXPECT_FALSE(Load({row}));
    EXPECT_EQ(state.TerminalTable[0].Porta, 3);
    EXPECT_EQ(state.TerminalTable[0].Velocita, 19200);
    EXPECT_EQ(state.TerminalTable[0].Attivo, kTrue);
}

}  // namespace
}  // namespace orlo
