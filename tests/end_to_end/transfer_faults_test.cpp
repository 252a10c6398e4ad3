#include "tests/end_to_end/fault_case.h"

namespace orlo::end_to_end
{
namespace
{

// Answer 1, 2, 3 or 4 asked for twice.
constexpr char kRetried1[] = "32 33OK 33NO 32 33OK 32 33OK 32 33OK 32";
constexpr char kRetried2[] = "32 33OK 32 33OK 33NO 32 33OK 32 33OK 32";
constexpr char kRetried3[] = "32 33OK 32 33OK 32 33OK 33NO 32 33OK 32";
constexpr char kRetried4[] = "32 33OK 32 33OK 32 33OK 32 33OK 33NO 32";

// The terminal never saw the acknowledgement of the answer before, so "33NO" makes it hand over
// that one again: the one repetition that cannot be told from new punches.
INSTANTIATE_TEST_SUITE_P(
    LostRequest, LineFault,
    testing::Values(FaultCase{"First", "33#1:richiesta-persa", kRetried1, "1 2 3"},
                    FaultCase{"Second", "33#2:richiesta-persa",
                              "32 33OK 32 33OK 33NO 32 33OK 32 33OK 32 33OK 32", "1 1 2 3"},
                    FaultCase{"Third", "33#3:richiesta-persa",
                              "32 33OK 32 33OK 32 33OK 33NO 32 33OK 32 33OK 32", "1 2 2 3"},
                    FaultCase{"Fourth", "33#4:richiesta-persa",
                              "32 33OK 32 33OK 32 33OK 32 33OK 33NO 32 33OK 32", "1 2 3 3"}),
    NameOf);

// The terminal saw the request and counts the answer before as acquired; "33NO" makes it hand over
// the lost answer again.
INSTANTIATE_TEST_SUITE_P(LostAnswer, LineFault,
                         testing::Values(FaultCase{"First", "33#1:silenzio", kRetried1, "1 2 3"},
                                         FaultCase{"Second", "33#2:silenzio", kRetried2, "1 2 3"},
                                         FaultCase{"Third", "33#3:silenzio", kRetried3, "1 2 3"},
                                         FaultCase{"Fourth", "33#4:silenzio", kRetried4, "1 2 3"}),
                         NameOf);

// Without its CR, or with a part of it only, an answer never ends: it is thrown away after the
// time-out and asked for again.
INSTANTIATE_TEST_SUITE_P(TornAnswer, LineFault,
                         testing::Values(FaultCase{"NoCr1", "33#1:senza-cr", kRetried1, "1 2 3"},
                                         FaultCase{"NoCr2", "33#2:senza-cr", kRetried2, "1 2 3"},
                                         FaultCase{"NoCr3", "33#3:senza-cr", kRetried3, "1 2 3"},
                                         FaultCase{"NoCr4", "33#4:senza-cr", kRetried4, "1 2 3"},
                                         FaultCase{"Half1", "33#1:troncata", kRetried1, "1 2 3"},
                                         FaultCase{"Half2", "33#2:troncata", kRetried2, "1 2 3"},
                                         FaultCase{"Half3", "33#3:troncata", kRetried3, "1 2 3"},
                                         FaultCase{"Half4", "33#4:troncata", kRetried4, "1 2 3"},
                                         FaultCase{"OneByte", "33#2:troncata=1", kRetried2,
                                                   "1 2 3"}),
                         NameOf);

// A frame that ends but is not right is known at once and asked for again.
INSTANTIATE_TEST_SUITE_P(
    BadFrame, LineFault,
    testing::Values(FaultCase{"Checksum1", "33#1:checksum-errato", kRetried1, "1 2 3"},
                    FaultCase{"Checksum2", "33#2:checksum-errato", kRetried2, "1 2 3"},
                    FaultCase{"Checksum3", "33#3:checksum-errato", kRetried3, "1 2 3"},
                    FaultCase{"Checksum4", "33#4:checksum-errato", kRetried4, "1 2 3"},
                    FaultCase{"LostByte1", "33#1:byte-mancanti", kRetried1, "1 2 3"},
                    FaultCase{"LostByte2", "33#2:byte-mancanti=7", kRetried2, "1 2 3"},
                    FaultCase{"LostByte3", "33#3:byte-mancanti", kRetried3, "1 2 3"},
                    FaultCase{"LostByte4", "33#4:byte-mancanti", kRetried4, "1 2 3"},
                    FaultCase{"CrBefore1", "33#1:cr-prima", kRetried1, "1 2 3"},
                    FaultCase{"CrBefore2", "33#2:cr-prima", kRetried2, "1 2 3"},
                    FaultCase{"CrBefore3", "33#3:cr-prima", kRetried3, "1 2 3"},
                    FaultCase{"CrBefore4", "33#4:cr-prima", kRetried4, "1 2 3"}),
    NameOf);

// Nothing is wrong with these: what surrounds a frame does not count, nor does its pace within the
// two seconds.
INSTANTIATE_TEST_SUITE_P(
    HarmlessToTransfer, LineFault,
    testing::Values(FaultCase{"NoiseBefore", "33*:rumore-prima", kSmooth, "1 2 3"},
                    FaultCase{"NoiseAfter", "33*:rumore-dopo=40", kSmooth, "1 2 3"},
                    FaultCase{"ByteByByte", "33*:byte-singoli", kSmooth, "1 2 3"},
                    FaultCase{"Late1", "33#1:ritardo=1500", kSmooth, "1 2 3"},
                    FaultCase{"Late2", "33#2:ritardo=1500", kSmooth, "1 2 3"},
                    FaultCase{"Late4", "33#4:ritardo=1500", kSmooth, "1 2 3"},
                    // Answer 3 has only five punches to give.
                    FaultCase{"NotTooManyRecords", "33#3:troppi-record", kSmooth, "1 2 3"}),
    NameOf);

// More than ten punches in an answer are refused whole; the terminal keeps them and hands over ten.
INSTANTIATE_TEST_SUITE_P(
    TooManyRecords, LineFault,
    testing::Values(FaultCase{"First", "33#1:troppi-record", kRetried1, "1 2 3"},
                    FaultCase{"Second", "33#2:troppi-record=12", kRetried2, "1 2 3"}),
    NameOf);

// The line falls in the middle of an answer, which ends the command. The first request of the next
// command is "33OK", as of every command, and the terminal takes it for the acknowledgement of the
// torn answer: its punches are then only in the terminal's memory, already counted as acquired. The
// end of the data has nothing to lose.
INSTANTIATE_TEST_SUITE_P(
    TransferHangUp, LineFault,
    testing::Values(FaultCase{"First", "33#1:caduta", "32 33OK", "", kTimeout, "2 3"},
                    FaultCase{"Second", "33#2:caduta", "32 33OK 32 33OK", "1", kTimeout, "1 3"},
                    FaultCase{"Third", "33#3:caduta", "32 33OK 32 33OK 32 33OK", "1 2", kTimeout,
                              "1 2"},
                    FaultCase{"Fourth", "33#4:caduta", "32 33OK 32 33OK 32 33OK 32 33OK", "1 2 3",
                              kTimeout, "1 2 3"}),
    NameOf);

}  // namespace
}  // namespace orlo::end_to_end
