#include "tests/end_to_end/journal_pipe.h"

#include "tests/end_to_end/child_process.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

namespace orlo::end_to_end
{

JournalPipe::JournalPipe(const std::string& path)
{
    // Open for writing too: the pipe has no end before the simulator comes, and none after it.
    if (mkfifo(path.c_str(), 0600) != 0) std::abort();
    descriptor_ = open(path.c_str(), O_RDWR | O_CLOEXEC);
}

JournalPipe::~JournalPipe()
{
    close(descriptor_);
}

bool JournalPipe::WaitFor(const std::string& command)
{
    std::string line;
    char c = 0;
    while (WaitForInput(descriptor_) && read(descriptor_, &c, 1) == 1) {
        line += c;
        if (c != '\n') continue;
        if (line.find("\t" + command + "\t") != std::string::npos) return true;
        line.clear();
    }
    return false;
}

}  // namespace orlo::end_to_end
