#pragma once

#include "jetfile/options.h"

#include <iosfwd>

namespace jetfile
{

/// Runs one command. `script` is read by Run only. False when Check has found something.
/// Errors: jet::Error, and those of RunScript.
bool RunCommand(const Options& options, std::istream& script, std::ostream& out);

}  // namespace jetfile
