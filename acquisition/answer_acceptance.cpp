#include "acquisition/answer_acceptance.h"

#include "acquisition/memory_counters.h"

namespace orlo
{

namespace
{

/// The longest line with its CR LF, as often as an answer may hold records.
constexpr std::size_t kMostBytesOfAnswer = std::size_t{kMostRecordsInAnswer} * (258 + 2);

}  // namespace

AnswerAcceptance::AnswerAcceptance(std::int16_t terminal, const OutputRules& rules, PunchFile& file,
                                   std::set<std::int16_t>& unstored_terminals)
    : terminal_(terminal), rules_(rules), file_(file), unstored_terminals_(unstored_terminals)
{
}

bool AnswerAcceptance::SecureRoom()
{
    return file_.SecureRoom(kMostBytesOfAnswer);
}

bool AnswerAcceptance::AsksAgain() const
{
    return previous_failed_ || unstored_terminals_.contains(terminal_);
}

AnswerAcceptance::Result AnswerAcceptance::Take(std::string_view answer)
{
    if (IsMemoryStatus(answer)) {
        ExchangeFailed();
        return Result::NoPunches;
    }
    last_answer_ = DecodificaTimbrature(answer, rules_);
    if (last_answer_.too_many_records) {
        Unstored();
        return Result::TooManyRecords;
    }
    if (!file_.Append(last_answer_.lines)) {
        Unstored();
        return Result::NotStored;
    }
    return Result::Accepted;
}

bool AnswerAcceptance::Sync()
{
    if (!last_answer_.lines.empty() && !file_.Sync()) return Unstored();
    previous_failed_ = false;
    unstored_terminals_.erase(terminal_);
    return true;
}

bool AnswerAcceptance::Unstored()
{
    previous_failed_ = true;
    unstored_terminals_.insert(terminal_);
    return false;
}

}  // namespace orlo
