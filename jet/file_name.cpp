#include "jet/file_name.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>

namespace jet
{

namespace
{

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameButForCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, Lower, Lower);
}

}  // namespace

std::filesystem::path FindFile(const std::filesystem::path& path)
{
    namespace fs = std::filesystem;
    std::error_code error;
    if (fs::exists(path, error)) {
        return path;
    }
    const std::string wanted = path.filename().string();
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    std::string best;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (SameButForCase(name, wanted) && (best.empty() || name < best)) {
            best = name;
        }
    }
    return best.empty() ? path : path.parent_path() / best;
}

}  // namespace jet
