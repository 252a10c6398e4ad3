#pragma once

#include "simulator/escape_detector.h"
#include "simulator/far_end.h"
#include "simulator/hayes.h"
#include "simulator/journal.h"
#include "simulator/modem_settings.h"

#include <optional>
#include <string>
#include <vector>

namespace orlo::simulator
{

/// A Hayes modem between the program's port and a telephone line at whose other end the terminals
/// are. They are reached only while a call is connected and the modem passes data on.
///
///   Command    --ATD-->              Dialling
///   Dialling   --after dial_time-->  Data, or Command with the result that is set
///   Dialling   --any byte-->         Command   NO CARRIER, as a key gives a call up
///   Data       --pause +++ pause-->  Command   OK, the call still stands
///   Data       --carrier lost-->     Command   NO CARRIER
///   Command    --ATO, ATH-->         Data, or Command without the call
///   any        --port closed-->      Command   without the call: DTR goes off
///
/// "caduta", the fault of a line, is here the loss of the carrier. The journal gets a line for
/// each command, with -1 for the terminal.
class Modem : public FarEnd
{
public:
    Modem(const ModemSettings& settings, FarEnd& terminals, Journal journal = {});

    std::vector<LineEvent> Receive(std::string_view bytes, Instant now) override;
    std::optional<Instant> WakeAt() const override;
    void HangUp() override;
    void PortClosed() override;

private:
    enum class State { Command, Dialling, Data };

    void Elapse(Instant now);
    void Take(char byte, Instant now);
    void TakeCommandByte(char byte, Instant now);
    void CarryOut(const std::string& line, Instant now);
    /// The result of the command; nullopt when it comes later, or not at all.
    std::optional<HayesResult> CarryOut(const HayesCommand& command, Instant now);
    std::optional<HayesResult> GoOnLine(Instant now);
    void EndDialling(Instant now);
    void PassOn(const LineEvent& event, Instant now);
    void LoseCarrier(Instant now);
    void DropCall();
    void Reset();
    void Say(HayesResult result, Instant now);
    void Note(const std::string& command, const std::string& deed) const;

    const ModemSettings settings_;
    FarEnd& terminals_;
    Journal journal_;

    State state_ = State::Command;
    bool connected_ = false;
    bool echo_ = true;
    bool quiet_ = false;
    bool in_words_ = true;
    bool extended_ = true;
    std::string command_line_;
    Instant result_at_{0};
    EscapeDetector escape_;
    /// From the terminals, on their way.
    std::vector<LineEvent> under_way_;
    std::size_t bytes_of_call_ = 0;
    /// For the program.
    std::vector<LineEvent> events_;
};

}  // namespace orlo::simulator
