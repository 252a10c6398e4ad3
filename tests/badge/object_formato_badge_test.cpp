#include "badge/formato_badge.h"
#include "tests/support/object_window.h"

namespace orlo::testing
{
namespace
{

using Field = FakeObjectTerminal::Field;

class ObjectBadgeFormat : public ObjectWindow
{
protected:
    int clock_reads = 0;

    void Receive()
    {
        cmdRiceveCard_Click(window, [this] { ++clock_reads; });
    }
    void Send() { cmdTrasmetteCard_Click(window); }

    QStringList Numbers() const
    {
        const Ui::Contenitore& controls = Controls();
        return {controls.InizioImpianto->text(), controls.LenImpianto->text(),
                controls.InizioAzienda->text(),  controls.LenAzienda->text(),
                controls.InizioBadge->text(),    controls.LenBadge->text(),
                controls.LenCard->text()};
    }
    void EnterNumbers(const QStringList& numbers)
    {
        const Ui::Contenitore& controls = Controls();
        QLineEdit* const fields[] = {controls.InizioImpianto, controls.LenImpianto,
                                     controls.InizioAzienda,  controls.LenAzienda,
                                     controls.InizioBadge,    controls.LenBadge,
                                     controls.LenCard};
        for (qsizetype i = 0; i < numbers.size(); ++i) fields[i]->setText(numbers[i]);
    }
    QStringList Words(const char* words) const { return QString::fromLatin1(words).split(u' '); }
    QString LastCommand(const std::function<void()>& command)
    {
        window.RunCommand(Controls().cmdRiceveCard, QStringLiteral("Prova in corso…"),
                          EscapeUse::Ignored, command);
        return Controls().LabelUltimoComando->text().section(u' ', 1);
    }
};

TEST_F(ObjectBadgeFormat, IsReadFieldByFieldAndTheClockAfterIt)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        clock_reads = 0;
        Connect(model);
        Receive();
        EXPECT_EQ(Numbers(), Words("1 4 5 3 8 6 16"));
        EXPECT_EQ(Controls().NomeCard->text(), QStringLiteral("Tessera aziendale"));
        EXPECT_TRUE(Controls().BidirectionalCheck->isChecked());
        EXPECT_EQ(clock_reads, 1);
        EXPECT_TRUE(pc.dialog.told.empty());
    }
}

TEST_F(ObjectBadgeFormat, IsSentAsNumbersWithADefaultOf0)
{
    Connect();
    EnterNumbers({QStringLiteral("2"), QStringLiteral(" 5"), QStringLiteral("7"),
                  QStringLiteral("abc"), QString(), QStringLiteral("123"), QStringLiteral("24")});
    Controls().NomeCard->setText(QStringLiteral("Visitatori città"));
    Controls().BidirectionalCheck->setChecked(false);
    Send();
    EXPECT_EQ(terminal.fields, (std::array<Field, 3>{{{2, 5, 0}, {7, 0, 0}, {0, 123, 0}}}));
    EXPECT_EQ(terminal.card_name, "Visitatori citt\xE0");
    EXPECT_EQ(terminal.card_length, 24);
    EXPECT_FALSE(terminal.bidirectional);
    EXPECT_EQ(Told(DialogIcon::Information), QStringLiteral("Trasmissione Dati Ok"));
    EXPECT_EQ(clock_reads, 0);
}

TEST_F(ObjectBadgeFormat, EachFieldIsSelectedBeforeItIsWrittenAndTheTransferIsTheLast)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        Connect(model);
        EnterNumbers(Words("3 6 9 2 11 8 20"));
        Controls().NomeCard->setText(QStringLiteral("Mensa"));
        Controls().BidirectionalCheck->setChecked(true);
        terminal.badge_calls.clear();
        Send();
        EXPECT_EQ(terminal.badge_calls,
                  (Calls{"FieldIndex 0", "FieldStart 3", "FieldLen 6", "FieldDefault 0",
                         "FieldIndex 1", "FieldStart 9", "FieldLen 2", "FieldDefault 0",
                         "FieldIndex 2", "FieldStart 11", "FieldLen 8", "FieldDefault 0",
                         "IDName Mensa", "Len 20", "Bidirectional true", "Send"}))
            << model;
    }
}

TEST_F(ObjectBadgeFormat, EachFieldIsSelectedBehindTheTransferAndNothingIsWritten)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        Connect(model);
        terminal.badge_calls.clear();
        Receive();
        EXPECT_EQ(terminal.badge_calls,
                  (Calls{"Receive", "FieldIndex 0", "FieldIndex 1", "FieldIndex 2"}))
            << model;
    }
}

TEST_F(ObjectBadgeFormat, ReadBackEqualsWhatWasSent)
{
    for (const char* model : {"Orlo", "Sipa"}) {
        Connect(model);
        EnterNumbers(Words("3 6 9 2 11 8 20"));
        Controls().NomeCard->setText(QStringLiteral("Mensa"));
        Controls().BidirectionalCheck->setChecked(false);
        Send();
        EnterNumbers(Words("0 0 0 0 0 0 0"));
        Controls().NomeCard->clear();
        Controls().BidirectionalCheck->setChecked(true);
        Receive();
        EXPECT_EQ(Numbers(), Words("3 6 9 2 11 8 20")) << model;
        EXPECT_EQ(Controls().NomeCard->text(), QStringLiteral("Mensa")) << model;
        EXPECT_FALSE(Controls().BidirectionalCheck->isChecked()) << model;
    }
}

TEST_F(ObjectBadgeFormat, OutcomeOfEachTransferStandsInTheLineOfTheLastCommand)
{
    Connect();
    EXPECT_EQ(LastCommand([this] { Receive(); }),
              QStringLiteral("Prova, terminale 4: Comunicazione OK"));
    EXPECT_EQ(LastCommand([this] { Send(); }),
              QStringLiteral("Prova, terminale 4: Trasmissione Dati Ok"));
    terminal.badge_failure = "formato non valido";
    EXPECT_EQ(LastCommand([this] { Receive(); }),
              QStringLiteral("Prova, terminale 4: Errore = formato non valido"));
    EXPECT_EQ(LastCommand([this] { Send(); }),
              QStringLiteral("Prova, terminale 4: Errore = formato non valido"));
}

TEST_F(ObjectBadgeFormat, RefusalIsToldInTheComponentsWords)
{
    Connect();
    EnterNumbers(Words("9 9 9 9 9 9 9"));
    terminal.badge_failure = "formato non valido";
    Receive();
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore = formato non valido"));
    EXPECT_EQ(Numbers(), Words("9 9 9 9 9 9 9"));
    EXPECT_EQ(clock_reads, 1);
    pc.dialog.told.clear();
    Send();
    EXPECT_EQ(Told(DialogIcon::Critical), QStringLiteral("Errore = formato non valido"));
}

TEST_F(ObjectBadgeFormat, LineOfAnOrloIsResetAfterwardsThatOfASipaIsNot)
{
    Connect("Orlo");
    Receive();
    EXPECT_EQ(CallsMade(), (Calls{"OpenComunication(1, 38400)", "MCFormatData.Receive(4, 7)",
                                  "DTR(false)", "DTR(true)"}));
    terminal.component.calls.clear();
    Send();
    EXPECT_EQ(CallsMade(), (Calls{"endcomunication()", "OpenComunication(1, 38400)",
                                  "MCFormatData.Send(4, 7)", "DTR(false)", "DTR(true)"}));
    Connect("Sipa");
    terminal.component.calls.clear();
    Send();
    EXPECT_EQ(CallsMade().back(), "MCFormatData.Send(4, 7)");
}

TEST_F(ObjectBadgeFormat, LineThatIsNotOpenIsNotReset)
{
    Connect();
    LetThrow("OpenComunication(1, 38400)");
    Receive();
    EXPECT_EQ(CallsMade(), Calls{"OpenComunication(1, 38400)"});
    EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto"));
    EXPECT_EQ(clock_reads, 0);
}

TEST_F(ObjectBadgeFormat, WhatTheComponentThrowsIsTheCaptionAndTheLineIsReset)
{
    Connect();
    for (const char* call : {"MCFormatData.Receive(4, 7)", "MCFormatData.Send(4, 7)"}) {
        LetThrow(call);
        terminal.component.calls.clear();
        if (std::string(call).find("Send") == std::string::npos)
            Receive();
        else
            Send();
        EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto")) << call;
        EXPECT_EQ(CallsMade().back(), "DTR(true)") << call;
    }
}

TEST_F(ObjectBadgeFormat, ResetThatThrowsIsTheCaptionAndWhatWasReadStays)
{
    Connect();
    for (const char* call : {"DTR(false)", "DTR(true)"}) {
        LetThrow(call);
        Receive();
        EXPECT_EQ(Numbers(), Words("1 4 5 3 8 6 16")) << call;
        EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto")) << call;
        window.AzzeraLabel();
        Send();
        EXPECT_EQ(Outcome(), QStringLiteral("Errore del componente: guasto")) << call;
    }
    EXPECT_EQ(clock_reads, 2);
}

TEST_F(ObjectBadgeFormat, ResetThatThrowsStandsInTheLineOfTheLastCommand)
{
    Connect();
    LetThrow("DTR(false)");
    const QString failed = QStringLiteral("Prova, terminale 4: Errore del componente: guasto");
    EXPECT_EQ(LastCommand([this] { Receive(); }), failed);
    EXPECT_EQ(LastCommand([this] { Send(); }), failed);
}

TEST_F(ObjectBadgeFormat, NonsenseFromTheComponentIsShownAndSurvived)
{
    Connect();
    terminal.fields = {{{-1, 1e300}, {std::numeric_limits<double>::quiet_NaN(), 2.5}, {0, 0}}};
    terminal.card_name = std::string(1 << 20, 'x') + '\0' + "\r";
    Receive();
    EXPECT_EQ(Numbers().mid(0, 4), (QStringList{QStringLiteral("-1"), QStringLiteral("1e+300"),
                                                QStringLiteral("0"), QStringLiteral("2.5")}));
    EXPECT_EQ(Controls().NomeCard->text(), QString(20, u'x'));
}

}  // namespace
}  // namespace orlo::testing
