#pragma once

#include <string>

namespace orlo::end_to_end
{

/// The simulator's journal as a pipe: a test waits on it for the moment in which a request has
/// reached the terminal and its answer has not left.
class JournalPipe
{
public:
    explicit JournalPipe(const std::string& path);
    ~JournalPipe();
    JournalPipe(const JournalPipe&) = delete;
    JournalPipe& operator=(const JournalPipe&) = delete;

    /// Reads on until that command has come once more; false when it does not come for a long time.
    [[nodiscard]] bool WaitFor(const std::string& command);

private:
    int descriptor_;
};

}  // namespace orlo::end_to_end
