#pragma once

#include "acquisition/decodifica_timbrature.h"
#include "acquisition/punch_file.h"

#include <QString>

#include <cstdint>
#include <set>
#include <string_view>

namespace orlo
{

/// The one place where a serial terminal's answer is accepted: checked, stored, then acknowledged.
///
/// The acknowledgement of an answer is the next request: "33OK" lets the terminal forget the
/// punches of the answer before, "33NO" asks for them again. So "33OK" leaves only
///  1. after the lines of the answer before are on the disk, or
///  2. when the answer before was bad in an earlier acquisition, or there was none.
/// An answer that belongs to another request, a memory status that was late, is a failed exchange.
/// An answer that came and could not be stored is asked for again by the next request to that
/// terminal in this run, whichever acquisition makes it.
class AnswerAcceptance
{
public:
    enum class Result { Accepted, NoPunches, TooManyRecords, NotStored };

    /// `unstored_terminals` outlives this acquisition: the terminals whose last answer came and was
    /// not stored.
    AnswerAcceptance(std::int16_t terminal, const OutputRules& rules, PunchFile& file,
                     std::set<std::int16_t>& unstored_terminals);

    /// Room for the lines of the next answer. When it is missing nothing must be asked for.
    [[nodiscard]] bool SecureRoom();

    /// True after a failed exchange of this acquisition or an answer not stored.
    bool AsksAgain() const;

    /// "33NO" to ask again, otherwise "33OK".
    std::string_view NextRequest() const { return AsksAgain() ? "33NO" : "33OK"; }

    /// A time-out or a bad frame.
    void ExchangeFailed() { previous_failed_ = true; }

    /// Checks a good answer and writes its lines; Sync puts them on the disk.
    [[nodiscard]] Result Take(std::string_view answer);

    /// Puts on the disk what Take wrote; the answer may be acknowledged when that succeeds.
    [[nodiscard]] bool Sync();

    /// Records in the answer taken last.
    const DecodedAnswer& LastAnswer() const { return last_answer_; }
    const QString& StoreError() const { return file_.Error(); }

private:
    bool Unstored();

    std::int16_t terminal_;
    OutputRules rules_;
    PunchFile& file_;
    std::set<std::int16_t>& unstored_terminals_;
    bool previous_failed_ = false;
    DecodedAnswer last_answer_;
};

}  // namespace orlo
