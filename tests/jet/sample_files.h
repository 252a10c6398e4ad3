#pragma once

#include "jet/database.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The sample databases of tests/data, and files made from them.

namespace jet::test
{

using FileBytes = std::vector<std::uint8_t>;

std::filesystem::path Sample(std::string_view name);
/// All of them, by name.
std::vector<std::filesystem::path> Samples();

FileBytes ReadFile(const std::filesystem::path& path);

/// A folder that goes away with the test.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path Write(std::string_view name, const FileBytes& bytes) const;

private:
    std::filesystem::path path_;
};

/// Bytes written as hexadecimal digits, blanks for the eye: "7F 8005".
FileBytes Hex(std::string_view digits);

void Put16(FileBytes& bytes, std::size_t at, std::uint32_t number);
void Put32(FileBytes& bytes, std::size_t at, std::uint32_t number);

/// A file of Jet 4 pages: the header of a sample, then as many pages of zeros as asked for.
FileBytes EmptyPages(std::size_t pages);

/// Makes a page of EmptyPages a data page with these rows, row 0 at its end.
void PutDataPage(FileBytes& file, std::size_t page, std::uint32_t owner,
                 const std::vector<FileBytes>& rows);

/// An index page, its entries as they are stored.
struct IndexPageContent {
    std::uint8_t type;
    std::vector<FileBytes> entries;
    std::uint32_t previous = 0;
    std::uint32_t next = 0;
    std::uint32_t tail = 0;
    std::uint32_t prefix = 0;
};

/// Makes a page of EmptyPages an index page. Its level and its free space stay 0.
void PutIndexPage(FileBytes& file, std::size_t page, std::uint32_t owner,
                  const IndexPageContent& content);

/// The number of the jet::Error that `action` ends in, 0 when it ends in none.
int ErrorNumberOf(const std::function<void()>& action);

}  // namespace jet::test
