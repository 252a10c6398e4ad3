#include "tests/jet/sample_files.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace jet::test
{

namespace
{

constexpr std::size_t kPage = 4096;

}  // namespace

std::filesystem::path Sample(std::string_view name)
{
    return std::filesystem::path(SAMPLE_FOLDER) / name;
}

std::vector<std::filesystem::path> Samples()
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLE_FOLDER)) {
        if (entry.path().extension() == ".mdb") {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

FileBytes ReadFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return {std::istreambuf_iterator<char>(in), {}};
}

ScratchFolder::ScratchFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "jet-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make " + name);
    }
    path_ = name;
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path ScratchFolder::Write(std::string_view name, const FileBytes& bytes) const
{
    auto path = path_ / name;
    std::ofstream out(path, std::ios::binary);
    std::ranges::copy(bytes, std::ostreambuf_iterator<char>(out));
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
    return path;
}

FileBytes Hex(std::string_view digits)
{
    FileBytes bytes;
    std::string dense(digits);
    std::erase(dense, ' ');
    for (std::size_t i = 0; i + 1 < dense.size(); i += 2) {
        std::uint8_t byte = 0;
        std::from_chars(dense.data() + i, dense.data() + i + 2, byte, 16);
        bytes.push_back(byte);
    }
    return bytes;
}

void Put16(FileBytes& bytes, std::size_t at, std::uint32_t number)
{
    bytes.at(at) = static_cast<std::uint8_t>(number & 0xFF);
    bytes.at(at + 1) = static_cast<std::uint8_t>(number >> 8 & 0xFF);
}

void Put32(FileBytes& bytes, std::size_t at, std::uint32_t number)
{
    Put16(bytes, at, number);
    Put16(bytes, at + 2, number >> 16);
}

FileBytes EmptyPages(std::size_t pages)
{
    FileBytes file = ReadFile(Sample("nimbo-empty-jet4.mdb"));
    file.resize(kPage);
    file.resize(kPage * (1 + pages), 0);
    return file;
}

void PutDataPage(FileBytes& file, std::size_t page, std::uint32_t owner,
                 const std::vector<FileBytes>& rows)
{
    const std::size_t base = page * kPage;
    Put16(file, base, 0x0101);
    Put32(file, base + 4, owner);
    Put16(file, base + 12, static_cast<std::uint32_t>(rows.size()));
    std::size_t start = kPage;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        start -= rows[i].size();
        std::ranges::copy(rows[i], file.begin() + static_cast<std::ptrdiff_t>(base + start));
        Put16(file, base + 14 + 2 * i, static_cast<std::uint32_t>(start));
    }
}

void PutIndexPage(FileBytes& file, std::size_t page, std::uint32_t owner,
                  const IndexPageContent& content)
{
    const std::size_t base = page * kPage;
    Put16(file, base, 0x0100u | content.type);
    Put32(file, base + 4, owner);
    Put32(file, base + 12, content.previous);
    Put32(file, base + 16, content.next);
    Put32(file, base + 20, content.tail);
    Put16(file, base + 24, content.prefix);
    std::size_t end = 0;
    for (const FileBytes& entry : content.entries) {
        std::ranges::copy(entry, file.begin() + static_cast<std::ptrdiff_t>(base + 480 + end));
        end += entry.size();
        file[base + 27 + end / 8] |= static_cast<std::uint8_t>(1 << end % 8);
    }
}

int ErrorNumberOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace jet::test
