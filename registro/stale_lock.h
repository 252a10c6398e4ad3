#pragma once

#include <filesystem>

namespace orlo::registro
{

enum class LockRemoval { Removed, NotThere, Held };

/// Removes a lock file, whatever the case of its name, unless a running program holds it. Throws
/// Failure when the system does not let it go.
LockRemoval RemoveStaleLock(const std::filesystem::path& lock_file);

}  // namespace orlo::registro
