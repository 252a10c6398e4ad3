#pragma once

#include "registro/arguments.h"

#include <QString>

#include <functional>
#include <iosfwd>
#include <vector>

namespace orlo::registro
{

struct Streams {
    std::istream& in;
    std::ostream& out;
};

struct Command {
    QString name;
    QStringList arguments;  ///< as the help shows them; those in brackets may be left out
    QString meaning;
    std::vector<Option> options;
    /// Throws Failure, jet::Error.
    std::function<void(const Arguments&, Streams)> run;

    QString Usage() const;
    QString Help() const;
    /// Throws UsageError when there are too many or too few.
    void CheckCount(const Arguments& given) const;
};

/// In the order of the help.
std::vector<Command> Commands();

/// The commands on single terminals and those on the register as a whole.
std::vector<Command> TerminalCommands();
std::vector<Command> RegisterCommands();

/// `arguments` begin behind the program's name. Throws UsageError, Failure, jet::Error.
void RunCommandLine(const QStringList& arguments, Streams streams);

}  // namespace orlo::registro
