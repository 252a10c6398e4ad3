#include "tests/end_to_end/fault_case.h"

namespace orlo::end_to_end
{
namespace
{

constexpr char kNoPort[] = "Terminale 4 non acquisito: Errore aprendo la COM\n";
constexpr char kRxError[] = "Terminale 4 non acquisito: RX Error\n";

// Without the first status there is no count to begin with: nothing is asked for, and the run says
// that it is not done.
INSTANTIATE_TEST_SUITE_P(
    FirstStatus, LineFault,
    testing::Values(FaultCase{"LostRequest", "32#1:richiesta-persa", "32", "", kTimeout, "1 2 3"},
                    FaultCase{"LostAnswer", "32#1:silenzio", "32", "", kTimeout, "1 2 3"},
                    FaultCase{"NoCr", "32#1:senza-cr", "32", "", kTimeout, "1 2 3"},
                    FaultCase{"Half", "32#1:troncata", "32", "", kTimeout, "1 2 3"},
                    // The device is gone when the acquisition wants to open it again.
                    FaultCase{"HangUp", "32#1:caduta=1000", "32", "", kNoPort, "1 2 3"},
                    // A bad frame is shown as if it were good and its counters read 0.
                    FaultCase{"Checksum", "32#1:checksum-errato", "32", "", kRxError, "1 2 3"},
                    FaultCase{"LostByte", "32#1:byte-mancanti", "32", "", kRxError, "1 2 3"},
                    FaultCase{"CrBefore", "32#1:cr-prima", "32", "", kRxError, "1 2 3"}),
    NameOf);

// A status that does not come leaves the count of the one before, and the acquisition goes on with
// it. Without the last one it asks once more, gets an empty answer and the status behind that.
constexpr char kOnceMore[] = "32 33OK 32 33OK 32 33OK 32 33OK 32 33OK 32";
INSTANTIATE_TEST_SUITE_P(
    LaterStatusMissing, LineFault,
    testing::Values(FaultCase{"LostRequest2", "32#2:richiesta-persa", kSmooth, "1 2 3"},
                    FaultCase{"LostRequest3", "32#3:richiesta-persa", kSmooth, "1 2 3"},
                    FaultCase{"LostRequest5", "32#5:richiesta-persa", kOnceMore, "1 2 3"},
                    FaultCase{"LostAnswer2", "32#2:silenzio", kSmooth, "1 2 3"},
                    FaultCase{"LostAnswer4", "32#4:silenzio", kSmooth, "1 2 3"},
                    FaultCase{"LostAnswer5", "32#5:silenzio", kOnceMore, "1 2 3"},
                    FaultCase{"NoCr3", "32#3:senza-cr", kSmooth, "1 2 3"},
                    FaultCase{"NoCr5", "32#5:senza-cr", kOnceMore, "1 2 3"},
                    FaultCase{"Half3", "32#3:troncata", kSmooth, "1 2 3"},
                    FaultCase{"Half5", "32#5:troncata", kOnceMore, "1 2 3"}),
    NameOf);

// A bad frame reads 0 and ends the acquisition with what is stored so far. The next command begins
// with "33OK", which acknowledges exactly that.
INSTANTIATE_TEST_SUITE_P(
    LaterStatusBad, LineFault,
    testing::Values(
        FaultCase{"Checksum2", "32#2:checksum-errato", "32 33OK 32", "1", kRxError, "1 2 3"},
        FaultCase{"Checksum3", "32#3:checksum-errato", "32 33OK 32 33OK 32", "1 2", kRxError,
                  "1 2 3"},
        FaultCase{"Checksum5", "32#5:checksum-errato", kSmooth, "1 2 3", kRxError, "1 2 3"},
        FaultCase{"LostByte2", "32#2:byte-mancanti=3", "32 33OK 32", "1", kRxError, "1 2 3"},
        FaultCase{"LostByte5", "32#5:byte-mancanti", kSmooth, "1 2 3", kRxError, "1 2 3"},
        FaultCase{"CrBefore2", "32#2:cr-prima", "32 33OK 32", "1", kRxError, "1 2 3"},
        FaultCase{"CrBefore5", "32#5:cr-prima", kSmooth, "1 2 3", kRxError, "1 2 3"}),
    NameOf);

// The answer before the lost line is stored: acknowledging it with the first request of the next
// command is right.
INSTANTIATE_TEST_SUITE_P(
    StatusHangUp, LineFault,
    testing::Values(FaultCase{"Second", "32#2:caduta", "32 33OK 32", "1", kTimeout, "1 2 3"},
                    FaultCase{"Fourth", "32#4:caduta", "32 33OK 32 33OK 32 33OK 32", "1 2 3",
                              kTimeout, "1 2 3"},
                    FaultCase{"Fifth", "32#5:caduta", kSmooth, "1 2 3", kTimeout, "1 2 3"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    HarmlessToStatus, LineFault,
    testing::Values(FaultCase{"NoiseBefore", "32*:rumore-prima", kSmooth, "1 2 3"},
                    FaultCase{"NoiseAfter", "32*:rumore-dopo=40", kSmooth, "1 2 3"},
                    FaultCase{"ByteByByte", "32*:byte-singoli=3", kSmooth, "1 2 3"},
                    FaultCase{"Late1", "32#1:ritardo=1500", kSmooth, "1 2 3"},
                    FaultCase{"Late3", "32#3:ritardo=1500", kSmooth, "1 2 3"},
                    FaultCase{"Late5", "32#5:ritardo=1500", kSmooth, "1 2 3"},
                    // These two concern answers with punches only.
                    FaultCase{"TooManyRecords", "32*:troppi-record", kSmooth, "1 2 3"},
                    FaultCase{"ShortRecord", "32*:record-corto", kSmooth, "1 2 3"}),
    NameOf);

}  // namespace
}  // namespace orlo::end_to_end
