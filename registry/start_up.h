#pragma once

#include "registry/contenitore.h"

namespace orlo
{

/// How the start-up ended.
struct StartUpOutcome {
    enum class End {
        Complete,
        /// It ended at a step that failed; the window shows what was filled so far.
        Incomplete,
        /// The database is in use: the program ends at once.
        InUse,
    };
    End end = End::Complete;
    /// Why it is not complete, in Italian; said here also when the window says nothing.
    QString reason;
};

/// The start-up of the program, before its window is shown: configuration, lock test, database,
/// register, protocol component, choice lists. The component is made only when the register holds
/// an Orlo or a Sipa.
StartUpOutcome StartUp(Contenitore& window, const QString& configuration_file,
                       const ComponentFactory& make_component);

/// The end of the program: closes the cursor, then the database. The window is the caller's.
void CloseRegister(ProgramState& state);

}  // namespace orlo
