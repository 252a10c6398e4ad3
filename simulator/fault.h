#pragma once

#include <string>
#include <string_view>

namespace orlo::simulator
{

enum class FaultKind {
    LostRequest,     ///< the terminal never saw the request
    LostAnswer,      ///< the terminal obeyed, its answer is lost
    LateAnswer,      ///< so many milliseconds later
    WrongChecksum,   ///< one bit of it is wrong
    NoCr,            ///< the closing CR is lost
    CutAnswer,       ///< only the first so many bytes; 0 = half of them
    MissingBytes,    ///< so many bytes are lost from the middle
    NoiseBefore,     ///< so many bytes of noise before the SOH
    NoiseAfter,      ///< so many bytes of noise after the CR
    ByteByByte,      ///< a byte every so many milliseconds
    HangUp,          ///< the line is lost in the middle, for so many milliseconds
    TooManyRecords,  ///< so many records in one answer
    ShortRecord,     ///< the last record lacks its last so many characters
    CrBeforeSoh,     ///< a CR before the SOH
    Refusal,         ///< an Orlo or Sipa terminal does nothing and answers with a code of failure
};

struct Fault {
    FaultKind kind;
    int value = 0;     // meaning and unit by the kind
    std::string text;  // of a refusal: its code
};

/// The name used on the command line.
std::string_view FaultName(FaultKind kind);

/// A fault from "name" or "name=value", for example "ritardo=900" or "esito=21,Errore linea"; a
/// number has a default where the kind has one.
/// Throws UsageError.
Fault ParseFault(std::string_view text);

}  // namespace orlo::simulator
