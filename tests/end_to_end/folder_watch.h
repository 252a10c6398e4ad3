#pragma once

#include "tests/end_to_end/child_process.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>

namespace orlo::end_to_end
{

/// Sees files being made, or what else is wanted, in a folder from the moment in which it is set
/// up.
class FolderWatch
{
public:
    /// `events` in the words of inotify.
    explicit FolderWatch(const std::string& folder, std::uint32_t events = IN_CREATE)
        : descriptor_(inotify_init1(IN_CLOEXEC))
    {
        inotify_add_watch(descriptor_, folder.c_str(), events);
    }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;
    ~FolderWatch() { close(descriptor_); }

    /// Waits for that to happen to a file of that name; false when it does not for a long time.
    [[nodiscard]] bool WaitFor(const std::string& name) const
    {
        alignas(inotify_event) std::array<char, 4096> events{};
        while (WaitForInput(descriptor_)) {
            const ssize_t bytes = read(descriptor_, events.data(), events.size());
            // Names follow their events, filled up with zero bytes.
            if (bytes > 0 &&
                std::string(events.data(), static_cast<std::size_t>(bytes)).find(name + '\0') !=
                    std::string::npos)
                return true;
        }
        return false;
    }

private:
    int descriptor_;
};

}  // namespace orlo::end_to_end
