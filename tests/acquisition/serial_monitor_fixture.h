#pragma once

#include "simulator/frame.h"
#include "tests/acquisition/monitor_fixture.h"

namespace orlo::testing
{

/// The monitor over the simulated serial terminal in memory.
class SerialMonitor : public MonitorTest
{
protected:
    void Connect(const char* model, const std::string& settings,
                 const std::vector<std::string>& faults = {})
    {
        ConnectedWindow::Connect(QString::fromLatin1(model), settings, faults);
    }

    /// A terminal that answers what it is told to, whatever the request.
    void Answering(const char* model, std::vector<std::string> answers)
    {
        Register(kTerminal, QString::fromLatin1(model));
        pc.com1.answer_to = [answers = std::move(answers), next = std::size_t{0},
                             this](std::string_view request) mutable {
            commands << QString::fromLatin1(request.data() + 2,
                                            static_cast<qsizetype>(request.size()) - 4);
            std::vector<Arrival> arrivals;
            if (next < answers.size())
                arrivals.push_back({{}, simulator::AnswerFrame(kTerminal, answers[next++])});
            return arrivals;
        };
    }

    /// Puts another terminal of COM1 into the register and selects it. There is nothing behind
    /// it.
    void SelectAnother(const char* model)
    {
        Register(kTerminal + 1, QString::fromLatin1(model));
        window.SelectTerminalLine(Controls().ListaTerminali->count() - 1);
        commands.clear();
    }

    /// Escape is pressed, and the question answered, when that request goes out.
    void EscapeAt(const QString& request, bool yes)
    {
        pc.dialog.answer_yes = yes;
        pc.com1.answer_to = [this, request, carry = pc.com1.answer_to](std::string_view bytes) {
            std::vector<Arrival> arrivals = carry(bytes);
            pc.escape.pressed = pc.escape.pressed || commands.back() == request;
            return arrivals;
        };
    }

    /// The line falls when that request goes out.
    void LoseLineAt(const QString& request)
    {
        pc.com1.answer_to = [this, request, carry = pc.com1.answer_to](std::string_view bytes) {
            std::vector<Arrival> arrivals = carry(bytes);
            pc.com1.line_lost = commands.back() == request;
            return pc.com1.line_lost ? std::vector<Arrival>() : arrivals;
        };
    }

    /// Requests for blocks, the others apart.
    QStringList Blocks() const
    {
        QStringList blocks;
        for (const QString& command : commands)
            if (command.startsWith(QStringLiteral("30"))) blocks << command.mid(2);
        return blocks;
    }
    static QString NoStatus() { return QStringLiteral("Errore: stato della memoria non arrivato"); }
    /// The same in the box.
    static QString NoStatusTold()
    {
        return QStringLiteral(
            "Attenzione: lo stato della memoria non è arrivato: la lista può non essere completa e "
            "gli stati non valgono.");
    }
    /// How a reading ends that lists what it can get: in the box, below the text of a good end.
    void ExpectDoubt(const QString& outcome, const QString& informative) const
    {
        EXPECT_EQ(Label("EsitoMonitor"), outcome);
        EXPECT_TRUE(Controls().LabelUltimoComando->text().endsWith(outcome));
        ASSERT_FALSE(pc.dialog.told.empty());
        EXPECT_EQ(pc.dialog.told.back().text, QStringLiteral("Ricezione dati OK"));
        EXPECT_EQ(pc.dialog.told.back().informative, informative);
    }
    /// The same for a list that is shorter or longer than the terminal declared.
    void ExpectOtherThanDeclared(const QString& informative) const
    {
        ExpectDoubt(QStringLiteral("Errore: la lista può non essere completa"), informative);
    }
    /// A reading that the operator stopped and whose lines are not what they seem.
    void ExpectStoppedAndTold(const QString& informative) const
    {
        const QString stopped = QStringLiteral("Lettura interrotta");
        EXPECT_EQ(Label("EsitoMonitor"), stopped);
        ASSERT_EQ(Told(), QStringList{QStringLiteral("Comunicazione|") + stopped});
        EXPECT_EQ(pc.dialog.told[0].informative, informative);
    }
    static QString Fewer()
    {
        return QStringLiteral(
            "Attenzione: sono arrivate meno timbrature di quante il terminale ne ha dichiarate: la "
            "lista può "
            "non essere completa.");
    }
    static QString More()
    {
        return QStringLiteral(
            "Attenzione: il terminale contiene più timbrature di quante ne ha dichiarate: la lista "
            "può non "
            "essere completa e gli stati non valgono.");
    }
    static QStringList Texts(std::initializer_list<const char*> texts)
    {
        QStringList list;
        for (const char* text : texts) list << QString::fromLatin1(text);
        return list;
    }
};

inline constexpr const char* kStatus41 = "TPnt 00041 TrInMemory 00042 TpntOld 00000 TpntNew 00041";
inline constexpr const char* kStatus24 = "TPnt 00024 TrInMemory 00025 TpntOld 00000 TpntNew 00024";
inline constexpr const char* kRecord = "9 123456000108300015030601";

inline std::string Records(int count)
{
    std::string records;
    for (int i = 0; i < count; ++i) records += kRecord;
    return records + "END";
}

}  // namespace orlo::testing
