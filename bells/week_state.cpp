#include "bells/week_state.h"

#include "registry/ring_table.h"

namespace orlo
{

WeekState AfterRead(int rings)
{
    if (rings == 0) return WeekState::Unread;
    return rings == kRingSlots ? WeekState::Known : WeekState::Partial;
}

WeekState AfterEdit(WeekState before)
{
    switch (before) {
        case WeekState::Unread:
            return WeekState::Edited;
        case WeekState::Partial:
            return WeekState::PartialChanged;
        case WeekState::Known:
            return WeekState::Changed;
        case WeekState::Edited:
        case WeekState::PartialChanged:
        case WeekState::Changed:
            break;
    }
    return before;
}

bool IsToBeSent(WeekState state)
{
    return state != WeekState::Unread && state != WeekState::Partial &&
           state != WeekState::PartialChanged;
}

QString WeekWarning(WeekState state)
{
    switch (state) {
        case WeekState::Unread:
            return QStringLiteral(
                "La settimana non è stata letta: inviandola ora si svuota quella del terminale.");
        case WeekState::Edited:
            return QStringLiteral(
                "La settimana non è stata letta: inviandola, questa sostituisce quella del "
                "terminale.");
        case WeekState::Partial:
            return QStringLiteral(
                "La settimana è stata letta solo in parte: inviandola si perde il resto.");
        case WeekState::PartialChanged:
            return QStringLiteral(
                "Letta solo in parte e modificata: inviandola si perde il resto, rileggendola le "
                "modifiche.");
        case WeekState::Changed:
            return QStringLiteral("Modifiche non inviate al terminale.");
        case WeekState::Known:
            break;
    }
    return {};
}

}  // namespace orlo
