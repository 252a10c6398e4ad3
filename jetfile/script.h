#pragma once

#include "jet/database.h"
#include "jet/error.h"

#include <iosfwd>

namespace jetfile
{

/// What an operation ended in, and where in the script it stands.
class ScriptError : public jet::Error
{
public:
    ScriptError(std::size_t line, const jet::Error& error) : jet::Error(error), line_(line) {}

    std::size_t Line() const noexcept { return line_; }

private:
    std::size_t line_;
};

enum class Extent {
    Whole,  ///< one transaction around all operations
    Each,   ///< one around every operation; those before one that fails stay done
};

struct ScriptResult {
    std::size_t operations = 0;
    std::size_t rows = 0;  ///< inserted, changed and deleted
};

/// Performs a script of one operation a line, up to the first one that fails; blank lines are
/// passed over. `done` counts along: with Extent::Each it tells what stays done also when an error
/// ends the run. Errors: ScriptError, JsonError, those of CommitTrans;
/// std::runtime_error when the script cannot be read to its end.
void RunScript(jet::Database& database, Extent extent, std::istream& script, ScriptResult& done);

}  // namespace jetfile
