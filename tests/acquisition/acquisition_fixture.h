#pragma once

#include "acquisition/acquisizione.h"
#include "registry/contenitore_controls.h"
#include "registry/list_line.h"
#include "simulator/line.h"
#include "tests/support/test_workstation.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace orlo::testing
{

/// The main window over a test PC, with one simulated terminal in memory on COM1.
class AcquisitionTest : public ::testing::Test
{
protected:
    QTemporaryDir folder;
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
        window.Controls().NomeFile->setText(folder.filePath(QStringLiteral("TIMBRAT.TXT")));
    }

    /// Puts a terminal of that model into the register, selects it, and connects it. `settings` and
    /// `faults` in the simulator's words.
    void Connect(const char* model, const std::string& settings,
                 const std::vector<std::string>& faults = {})
    {
        Register(model, /*retries=*/3);
        std::vector<simulator::FaultRule> rules;
        rules.reserve(faults.size());
        for (const std::string& fault : faults) rules.push_back(simulator::ParseFaultRule(fault));
        const std::string terminal = "numero=4,modello=" + std::string(model) + "," + settings;
        line.emplace(simulator::LineSettings{},
                     std::vector{simulator::Terminal(simulator::ParseTerminal(terminal),
                                                     simulator::MachineClock())},
                     simulator::FaultPlan(rules));
        pc.com1.answer_to = [this](std::string_view request) { return Carry(request); };
    }

    void Register(const char* model, std::int16_t retries)
    {
        TerminalRecord& slot = state.TerminalTable[kTerminal - 1];
        slot.Terminale = kTerminal;
        slot.Tipo = static_cast<std::int16_t>(ModelByName(QString::fromLatin1(model))->type);
        slot.Descrizione = QStringLiteral("Prova");
        slot.Attivo = kTrue;
        slot.Porta = 1;
        slot.Velocita = 9600;
        slot.Tentativi = retries;
        slot.Modalita = 1;
        slot.Funzionamento = 1;
        window.AddTerminalLine(CostruzioneStringa(state, kTerminal));
        window.SelectTerminalLine(0);
    }

    AcquisitionOutcome Acquire() { return cmdAcquisisce_Click(window); }

    /// Commands of the punch transfer only.
    QStringList Transfers() const { return commands.filter(QStringLiteral("33")); }

    QByteArray PunchFile() const
    {
        QFile file(window.Controls().NomeFile->text());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    QList<QByteArray> PunchLines() const
    {
        QList<QByteArray> lines = PunchFile().split('\n');
        EXPECT_EQ(lines.takeLast(), QByteArray()) << "the last line ends with CR LF";
        return lines;
    }
    const simulator::PunchMemory& Punches() const { return line->Terminals()[0].Punches(); }
    QString Outcome() const { return window.Controls().PannelloComunicazione->text(); }

private:
    std::vector<Arrival> Carry(std::string_view request)
    {
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
