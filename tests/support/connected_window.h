#pragma once

#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/list_line.h"
#include "simulator/line.h"
#include "tests/support/test_workstation.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace orlo::testing
{

/// The main window over a test PC, with one simulated serial terminal in memory on COM1, whose
/// machine has the PC's time.
class ConnectedWindow : public ::testing::Test
{
protected:
    TestWorkstation pc;
    ProgramState state;
    Contenitore window{state, pc.workstation};
    std::optional<simulator::Line> line;
    /// Commands that reached the line, in order.
    QStringList commands;

    static constexpr int kTerminal = 4;

    void SetUp() override
    {
        window.CaricaComboRitardo();
        window.CaricaComboTipoTerminale();
        window.CaricaComboPorta();
        window.CaricaComboVelocita();
    }

    const Ui::Contenitore& Controls() const { return window.Controls(); }

    /// Puts terminal 4 of that model into the register, where it is the only one, selects it, and
    /// connects it. Nothing has been sent. `settings` and `faults` in the simulator's words.
    void Connect(const QString& model, const std::string& settings = {},
                 const std::vector<std::string>& faults = {})
    {
        Controls().ListaTerminali->clear();
        commands.clear();
        pc.com1.sent.clear();
        Register(kTerminal, model);
        std::vector<simulator::FaultRule> rules;
        rules.reserve(faults.size());
        for (const std::string& fault : faults) rules.push_back(simulator::ParseFaultRule(fault));
        std::string terminal = "numero=4,modello=" + model.toStdString();
        if (!settings.empty()) terminal += "," + settings;
        line.emplace(simulator::LineSettings{},
                     std::vector{simulator::Terminal(simulator::ParseTerminal(terminal),
                                                     [this] { return MachineTime(); })},
                     simulator::FaultPlan(rules));
        pc.com1.answer_to = [this](std::string_view request) { return Carry(request); };
    }

    /// A terminal without anything behind its port, COM1.
    void Register(int number, const QString& model)
    {
        TerminalRecord& slot = state.TerminalTable.at(static_cast<std::size_t>(number - 1));
        slot.Terminale = static_cast<std::int16_t>(number);
        slot.Tipo = static_cast<std::int16_t>(ModelByName(model)->type);
        slot.Descrizione = QStringLiteral("Prova");
        slot.Attivo = kTrue;
        slot.Porta = 1;
        slot.Velocita = 9600;
        slot.Tentativi = 3;
        slot.Modalita = 1;
        slot.Funzionamento = 1;
        window.AddTerminalLine(CostruzioneStringa(state, number));
        window.SelectTerminalLine(0);
    }

    /// Terminal 4 as an Orlo or a Sipa of priorities 7 and 6, selected.
    void RegisterObject(const char* model)
    {
        TerminalRecord& slot = state.TerminalTable.at(kTerminal - 1);
        slot.Priorita = 7;
        slot.PrioritaSecondaria = 6;
        Register(kTerminal, QString::fromLatin1(model));
        window.SelectTerminalLine(Controls().ListaTerminali->count() - 1);
    }

    const simulator::Terminal& Terminal() const { return line->Terminals()[0]; }
    QString Outcome() const { return Controls().PannelloComunicazione->text(); }

private:
    std::chrono::local_seconds MachineTime()
    {
        const QDate date = pc.clock.Date();
        const std::chrono::year_month_day day(
            std::chrono::year(date.year()), std::chrono::month(static_cast<unsigned>(date.month())),
            std::chrono::day(static_cast<unsigned>(date.day())));
        return std::chrono::local_seconds(std::chrono::local_days(day)) +
               std::chrono::seconds(pc.clock.Time().msecsSinceStartOfDay() / 1000);
    }

    std::vector<Arrival> Carry(std::string_view request)
    {
        // What is no telegram is for a modem.
        if (request.size() >= 4)
            commands << QString::fromLatin1(request.data() + 2,
                                            static_cast<qsizetype>(request.size()) - 4);
        std::vector<Arrival> arrivals;
        const simulator::Instant now{pc.clock.Passed()};
        for (const simulator::LineEvent& event : line->Receive(request, now)) {
            const auto delay =
                std::chrono::duration_cast<std::chrono::milliseconds>(event.due - now);
            arrivals.push_back({delay, event.bytes});
            pc.com1.line_lost = pc.com1.line_lost || event.hang_up.has_value();
        }
        return arrivals;
    }
};

}  // namespace orlo::testing
