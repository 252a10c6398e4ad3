#pragma once

#include "bells/week_drawing.h"
#include "registry/widgets/outcome_panel.h"
#include "tests/bells/bell_window_fixture.h"
#include "tests/bells/fake_rings.h"
#include "tests/support/object_window.h"

#include <QProgressBar>

namespace orlo::testing
{

inline constexpr RingEntry kMorning{0, 8, 30, 5};
inline constexpr RingEntry kNoon{0, 12, 0, 10};
inline constexpr RingEntry kFivePastSeven{0, 7, 5, 3};

inline const std::string kUnread =
    "La settimana non è stata letta: inviandola ora si svuota quella del terminale.";
inline const std::string kEdited =
    "La settimana non è stata letta: inviandola, questa sostituisce quella del terminale.";
inline const std::string kNotSent = "Modifiche non inviate al terminale.";
inline const std::string kPartial =
    "La settimana è stata letta solo in parte: inviandola si perde il resto.";
inline const std::string kPartialChanged =
    "Letta solo in parte e modificata: inviandola si perde il resto, rileggendola le modifiche.";

class FrmSuonerie : public BellWindowTest<ObjectWindow>
{
protected:
    FakeRings rings{terminal.component};

    void Open(const char* model = "Orlo")
    {
        Connect(model);
        state.Component->RingsObject = rings.Make();
        OpenBells("FrmSuonerie");
    }
    RingEntry& Entry(int day, int ring) { return RingOf(state.RingTable, kTerminal, day, ring); }

    QString Cell(const char* name, int index) const
    {
        return QLatin1String(name) + u'_' + QString::number(index);
    }
    std::string Times(int count) const
    {
        std::string times;
        for (int index = 0; index < count; ++index)
            times += Text(Cell("Ring", index)) + " " + Text(Cell("TempoRings", index)) + ";";
        return times;
    }
    QString CheckedDays() const
    {
        QString days;
        for (int day = 0; day < kRingDays; ++day)
            days += Control<QAbstractButton>(Cell("Giorno", day)).isChecked() ? u'1' : u'0';
        return days;
    }
    /// The warning that is painted, in full, whatever the outcome beside it says.
    std::string Warning() const
    {
        const auto& panel = Control<OutcomePanel>("Avviso");
        EXPECT_TRUE(panel.isVisible());
        EXPECT_TRUE(panel.text().isEmpty()) << "would be painted in its place";
        EXPECT_TRUE(panel.toolTip().isEmpty()) << "elided";
        return panel.Remark().toStdString();
    }
    const std::vector<RingMark>& Marks() const
    {
        return Control<WeekDrawing>("DisegnoSettimana").Marks();
    }
};

}  // namespace orlo::testing
