#include "status/status_answer.h"

#include "link/fields.h"

namespace orlo
{

//  with weekday                      without weekday
//  1   9   state                     1   10  state
//  9   …   version, to the end       10  …   version, to the end
//  10  12  date, "Mer 15/03/06"      11  8   date, "15/03/06"
//  last 8  time, "08:30:00"          last 9  time, " 08:30:00"

StateAndVersion CutStateAndVersion(const StatusAnswerLayout& layout, std::string_view answer)
{
    return {Field(answer, 1, layout.state_length),
            Field(answer, /*position=*/layout.state_length, answer.size())};
}

DateAndTime CutDateAndTime(const StatusAnswerLayout& layout, std::string_view answer)
{
    return {Field(answer, layout.date_position, layout.date_length),
            LastCharacters(answer, layout.time_length)};
}

}  // namespace orlo
