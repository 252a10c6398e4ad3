#pragma once

#include <string>
#include <string_view>

namespace orlo
{

/// What an answer is decoded by: model registered for the terminal, output layout, plant code.
struct OutputRules {
    int type_code = 0;
    int tipo_tracciato = 0;
    std::string codice_azienda;
};

inline constexpr int kMostRecordsInAnswer = 10;

struct DecodedAnswer {
    /// The lines for the punch file, each with its CR LF.
    std::string lines;
    int records = 0;
    /// More records than an answer may hold; there are no lines then.
    bool too_many_records = false;
    /// The last record has fewer characters than a record; its line has short fields.
    bool last_record_cut_short = false;

    int WholeRecords() const { return records - (last_record_cut_short ? 1 : 0); }
};

/// Takes a terminal's answer to "33…" apart: consecutive records up to a piece that is exactly
/// "END" or to the end of the answer.
DecodedAnswer DecodificaTimbrature(std::string_view answer, const OutputRules& rules);

}  // namespace orlo
