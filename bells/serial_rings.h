#pragma once

#include "registry/contenitore.h"

#include <QStringList>

namespace orlo
{

// The bell table of a serial terminal, a telegram a ring. The terminal must have been prepared. The
// port is opened and closed for each telegram, unless `Verde` shows an open line. An answer that is
// none of the two failures is not examined.

struct BellOutcome {
    /// "Comunicazione OK", "Timeout", "Errore aprendo la COM", or why the open line cannot be used.
    QString status;
    /// What else the operator should know, often nothing: how many were answered in a good frame,
    /// "risposte 31 su 32"; that there was none to send; at which line the sending ended.
    QString note;
};

/// Sends the rings of the list's lines, in their order, until one fails or the program is to end:
/// thirty-two answers that are waited for in vain are half a minute. PannelloComunicazione
/// shows the number of the line that was answered: "5/32 Comunicazione OK".
BellOutcome SendRings(Contenitore& window, BellTelegram form, const QStringList& lines);

/// Takes all rings out of the terminal. The note says that no good frame came back: "risposte 0 su
/// 1".
BellOutcome ClearRings(Contenitore& window);

}  // namespace orlo
