#include "simulator/fault.h"

#include "simulator/digits.h"
#include "simulator/usage_error.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace orlo::simulator
{

namespace
{

constexpr int kNoValue = -1;
constexpr int kText = -2;

struct FaultRow {
    FaultKind kind;
    std::string_view name;
    int value;  // when none is given; kNoValue: takes none; kText: needs a text
};

using enum FaultKind;

// clang-format off
constexpr std::array<FaultRow, 15> kFaults = {{
    {LostRequest,    "richiesta-persa", kNoValue},
    {LostAnswer,     "silenzio",        kNoValue},
    {LateAnswer,     "ritardo",         2500},  // longer than a reader waits
    {WrongChecksum,  "checksum-errato", kNoValue},
    {NoCr,           "senza-cr",        kNoValue},
    {CutAnswer,      "troncata",        0},
    {MissingBytes,   "byte-mancanti",   1},
    {NoiseBefore,    "rumore-prima",    5},
    {NoiseAfter,     "rumore-dopo",     5},
    {ByteByByte,     "byte-singoli",    5},
    {HangUp,         "caduta",          300},
    {TooManyRecords, "troppi-record",   11},
    {ShortRecord,    "record-corto",    4},
    {CrBeforeSoh,    "cr-prima",        kNoValue},
    {Refusal,        "esito",           kText},
}};
// clang-format on

Fault TextFault(FaultKind kind, std::string_view text, std::size_t equals)
{
    const bool given = equals != std::string_view::npos && equals + 1 < text.size();
    if (!given) throw UsageError("guasto senza testo: " + std::string(text));
    return {kind, 0, std::string(text.substr(equals + 1))};
}

}  // namespace

std::string_view FaultName(FaultKind kind)
{
    return std::find_if(kFaults.begin(), kFaults.end(),
                        [&](const FaultRow& row) { return row.kind == kind; })
        ->name;
}

Fault ParseFault(std::string_view text)
{
    const std::size_t equals = text.find('=');
    const std::string_view name = text.substr(0, equals);
    const auto* const row = std::find_if(kFaults.begin(), kFaults.end(),
                                         [&](const FaultRow& r) { return r.name == name; });
    if (row == kFaults.end()) throw UsageError("guasto sconosciuto: " + std::string(name));
    if (row->value == kText) return TextFault(row->kind, text, equals);
    if (equals == std::string_view::npos)
        return {row->kind, row->value == kNoValue ? 0 : row->value, {}};
    if (row->value == kNoValue) throw UsageError("guasto senza valore: " + std::string(name));
    const std::optional<int> value = NumberOf(text.substr(equals + 1));
    if (!value || *value == 0)
        throw UsageError("valore del guasto non valido: " + std::string(text));
    return {row->kind, *value, {}};
}

}  // namespace orlo::simulator
