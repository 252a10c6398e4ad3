#include "tests/jet/damaged_file.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

// libFuzzer's input is a database file. It is read whole, checked, changed and read again. Every
// jet::Error is a good end; another exception, a report of a sanitizer or a time-out is a finding.

extern "C" size_t LLVMFuzzerMutate(std::uint8_t* data, size_t size, size_t max_size);

namespace
{

constexpr std::size_t kSmallestPage = 2048;

}  // namespace

// Changes bytes of one page and keeps the others where they are: a file whose pages have shifted is
// refused at once.
extern "C" size_t LLVMFuzzerCustomMutator(std::uint8_t* data, size_t size, size_t max_size,
                                          unsigned seed)
{
    std::mt19937 random(seed);
    if (size < kSmallestPage) {
        return LLVMFuzzerMutate(data, size, max_size);
    }
    // One page in eight is copied over another one.
    const std::size_t pages = size / kSmallestPage;
    std::uint8_t* const page = data + random() % pages * kSmallestPage;
    if (random() % 8 == 0) {
        std::copy_n(data + random() % pages * kSmallestPage, kSmallestPage, page);
        return size;
    }
    // A structure at the start of a page, or a piece of it anywhere.
    const std::size_t from = random() % 2 == 0 ? 0 : random() % kSmallestPage;
    const std::size_t bytes = std::min<std::size_t>(1 + random() % 64, kSmallestPage - from);
    LLVMFuzzerMutate(page + from, bytes, bytes);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size)
{
    using namespace jet::test;
    const FileBytes file(data, data + size);
    Outcomes outcomes;
    ReadAll(file, outcomes);
    const bool sound = Findings(file, outcomes).empty() && outcomes.size() == 1;

    std::mt19937 random(static_cast<unsigned>(size));
    for (int round = 0; round < 2; ++round) {
        const FileBytes changed = ChangeAll(file, random, outcomes);
        ReadAll(changed, outcomes);
        const auto findings = Findings(changed, outcomes);
        if (sound && !findings.empty()) {
            std::cerr << "a change has damaged a sound file: " << findings.front() << '\n';
            std::abort();
        }
    }
    return 0;
}
