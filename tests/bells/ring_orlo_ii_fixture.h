#pragma once

#include "bells/ring_line.h"
#include "bells/ring_list.h"
#include "jet/integrity_check.h"
#include "registry/widgets/outcome_panel.h"
#include "tests/bells/bell_window_fixture.h"
#include "tests/bells/full_sample.h"
#include "tests/end_to_end/mdb_export.h"
#include "tests/jet/sample_files.h"
#include "tests/support/connected_window.h"

namespace orlo::testing
{

/// Terminal 4, which has four rings in the full sample and none in the older one.
class FrmRingOrloII : public BellWindowTest<ConnectedWindow>
{
protected:
    const jet::test::ScratchFolder folder;
    std::filesystem::path file;

    void UseDatabase(const char* sample, jet::OpenMode mode = jet::OpenMode::ReadWrite)
    {
        state.Database.reset();
        file = folder.Write("nimbo.mdb", jet::test::ReadFile(jet::test::Sample(sample)));
        state.Database = jet::Database::Open(file, mode);
    }
    void Open(const char* model = "Orlo II", const std::vector<std::string>& faults = {})
    {
        if (state.Database == nullptr) UseDatabase("nimbo-full-2000.mdb");
        Connect(QString::fromLatin1(model), {}, faults);
        OpenBells("frmRingOrloII");
    }
    /// Done while the telegram of that number, from 1, is on its way.
    void DuringTelegram(int number, std::function<void()> event)
    {
        pc.com1.answer_to = [this, number, event = std::move(event),
                             carry = pc.com1.answer_to](std::string_view request) {
            const std::vector<Arrival> arrivals = carry(request);
            if (commands.size() == number) event();
            return arrivals;
        };
    }
    RingList& List() const { return Control<RingList>("ListaSuonerie"); }
    void ClickLine(int row)
    {
        List().scrollToItem(List().item(row));
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                          List().visualItemRect(List().item(row)).center());
    }
    std::string Line(int row) const { return List().item(row)->text().toStdString(); }
    std::string Days() const
    {
        std::string days;
        for (const char* day : {"Domenica", "Lunedi", "Martedi", "Mercoledi", "Giovedi", "Venerdi",
                                "Sabato", "Festivo"})
            days += Ticked(day) ? '1' : '0';
        return days;
    }
    /// The remark on what is not saved.
    std::string Unsaved() const
    {
        return Control<OutcomePanel>("LabelModifiche").Remark().toStdString();
    }
    std::string Status() const { return Text("PannelloSuonerie"); }
    /// What is painted there.
    std::string StatusAndNote() const
    {
        return Control<OutcomePanel>("PannelloSuonerie").Caption().toStdString();
    }
    /// The line of the last command, behind its time.
    std::string LastCommand() const
    {
        return Controls().LabelUltimoComando->text().section(u' ', 1).toStdString();
    }
    std::string Exported() const { return end_to_end::MdbExport(file, "Suonerie"); }
};

}  // namespace orlo::testing
