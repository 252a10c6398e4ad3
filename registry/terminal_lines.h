#pragma once

namespace orlo
{

class Contenitore;

/// Selects the line of that terminal, with the effect of a click; false when the list has none.
bool SelectTerminal(Contenitore& window, int terminal);

}  // namespace orlo
