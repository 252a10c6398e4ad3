#include "jet/journal.h"

#include "jet/failure.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>

namespace jet
{

namespace
{

constexpr std::string_view kMagic = "JetUndo1";
constexpr std::size_t kPageBytes = 8;
constexpr std::size_t kPageCount = 12;
constexpr std::size_t kRecordCount = 16;
constexpr std::size_t kNonce = 24;
constexpr std::size_t kHeaderChecksum = 32;
constexpr std::size_t kHeaderBytes = 40;
constexpr std::uint64_t kRecords = 512;
constexpr std::size_t kImage = 8;
constexpr std::size_t kChecksumBytes = 8;

using Header = std::array<std::uint8_t, kHeaderBytes>;

// Eight bytes at a time, each step a bijection: one changed step changes the result.
std::uint64_t Checksum(std::uint64_t nonce, Bytes bytes)
{
    constexpr std::uint64_t kOdd = 0xFF51AFD7ED558CCD;
    std::uint64_t sum = nonce;
    for (std::size_t i = 0; i < bytes.size(); i += 8) {
        sum = (sum ^ U64(bytes, i)) * kOdd;
        sum ^= sum >> 32;
    }
    return sum;
}

// Never 0: with it, the checksum of zeros would be zero.
std::uint64_t NewNonce()
{
    std::random_device random;
    return std::uint64_t{random()} << 32 | random() | 1;
}

Header MakeHeader(const UndoImages& images, std::size_t page_bytes, std::uint64_t nonce)
{
    Header header{};
    std::ranges::copy(kMagic, header.begin());
    PutU32(header, kPageBytes, page_bytes);
    PutU32(header, kPageCount, images.page_count);
    PutU32(header, kRecordCount, images.pages.size());
    PutU64(header, kNonce, nonce);
    PutU64(header, kHeaderChecksum, Checksum(nonce, Bytes(header).first(kHeaderChecksum)));
    return header;
}

bool IsValid(const Header& header)
{
    const std::uint64_t nonce = U64(header, kNonce);
    return std::ranges::equal(kMagic, Bytes(header).first(kMagic.size()),
                              [](char wanted, std::uint8_t byte) {
                                  return static_cast<std::uint8_t>(wanted) == byte;
                              }) &&
           nonce != 0 &&
           U64(header, kHeaderChecksum) == Checksum(nonce, Bytes(header).first(kHeaderChecksum));
}

/// Where there is no room for the write, none is needed when the change did not reach the page.
void WriteBack(StoredFile& database, std::uint64_t at, const PageImage& image)
{
    try {
        database.Write(at, image);
    } catch (const Error&) {
        PageImage content(image.size());
        if (database.Read(at, content) != content.size() || content != image) {
            throw;
        }
    }
}

}  // namespace

std::filesystem::path JournalNameFor(const std::filesystem::path& database_file)
{
    std::filesystem::path name = database_file;
    name += "-journal";
    return name;
}

void WriteJournal(StoredFile& journal, const UndoImages& images, std::size_t page_bytes)
{
    const std::uint64_t nonce = NewNonce();
    std::vector<std::uint8_t> content(kRecords, 0);
    std::ranges::copy(MakeHeader(images, page_bytes, nonce), content.begin());
    std::vector<std::uint8_t> record(kImage + page_bytes + kChecksumBytes, 0);
    for (const auto& [number, image] : images.pages) {
        PutU32(record, 0, number);
        std::ranges::copy(image, record.begin() + kImage);
        PutU64(record, kImage + page_bytes,
               Checksum(nonce, Bytes(record).first(kImage + page_bytes)));
        content.insert(content.end(), record.begin(), record.end());
    }
    journal.Write(0, content);
    journal.Sync();
}

std::optional<UndoImages> ReadJournal(StoredFile& journal, std::size_t page_bytes)
{
    Header header{};
    if (journal.Read(0, header) != header.size() || !IsValid(header)) {
        return std::nullopt;
    }
    if (U32(header, kPageBytes) != page_bytes) {
        FailDamaged("il file di ripristino è di un altro database");
    }
    UndoImages images{U32(header, kPageCount), {}};
    std::vector<std::uint8_t> record(kImage + page_bytes + kChecksumBytes);
    std::uint64_t at = kRecords;
    for (std::uint32_t i = 0; i < U32(header, kRecordCount); ++i, at += record.size()) {
        if (journal.Read(at, record) != record.size() ||
            U64(record, kImage + page_bytes) !=
                Checksum(U64(header, kNonce), Bytes(record).first(kImage + page_bytes))) {
            // Not all of it reached the disk, so no page of the database was written (1 and 3).
            return std::nullopt;
        }
        images.pages[U32(record, 0)] = {
            record.begin() + kImage,
            record.begin() + static_cast<std::ptrdiff_t>(kImage + page_bytes)};
    }
    return images;
}

void InvalidateJournal(StoredFile& journal)
{
    journal.Write(0, Header{});
    journal.Sync();
}

void TakeBack(StoredFile& database, const UndoImages& images, std::size_t page_bytes)
{
    for (const auto& [number, image] : images.pages) {
        WriteBack(database, std::uint64_t{number} * page_bytes, image);
    }
    database.Truncate(std::uint64_t{images.page_count} * page_bytes);
    database.Sync();
}

}  // namespace jet
