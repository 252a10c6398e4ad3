#include "jet/long_value.h"

#include "jet/data_page_writer.h"
#include "jet/failure.h"
#include "jet/long_value_writer.h"

//  offset  size  long value in a row
//  0       4     length in the low 30 bits, kind in the two highest
//  4       4     row pointer, for the kinds that have one
//  8       4     of no use for reading
//  12            the value itself, kind 2
//
// Kind 1: the value is one row of a long-value page. Kind 0: it is a chain of such rows, each with
// the row pointer of the next (0 = last) before its piece.

namespace jet
{

namespace
{

enum Kind : std::uint32_t { kChain = 0, kOneRow = 1, kInRow = 2 };

constexpr std::size_t kHeader = 12;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;
constexpr int kKindShift = 30;
constexpr std::size_t kNextBytes = 4;

StoredRow ReadPiece(PageFile& file, RowPointer at)
{
    const DataPage page(file.Format(), file.Read(at.page));
    StoredRow piece = page.Row(at.row);
    if (page.Owner() != DataPage::kLongValueOwner || piece.state != RowState::Live) {
        FailDamaged(at.page, "valore lungo che non c'è");
    }
    return piece;
}

std::vector<std::uint8_t> FirstBytes(Bytes bytes, std::size_t length)
{
    if (bytes.size() < length) {
        FailDamaged("valore lungo incompleto");
    }
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)};
}

// A chain that runs in a circle never ends where its length says.
std::vector<std::uint8_t> JoinChain(PageFile& file, RowPointer at, std::size_t length)
{
    if (length > std::uint64_t{file.PageCount()} * file.Format().page_bytes) {
        FailDamaged("valore lungo più lungo del file");
    }
    std::vector<std::uint8_t> value;
    while (at.page != 0) {
        const StoredRow piece = ReadPiece(file, at);
        if (piece.bytes.size() <= kNextBytes || value.size() >= length) {
            FailDamaged(at.page, "catena di un valore lungo interrotta");
        }
        value.insert(value.end(), piece.bytes.begin() + kNextBytes, piece.bytes.end());
        at = RowPointerAt(piece.bytes, 0);
    }
    return FirstBytes(value, length);
}

}  // namespace

std::vector<std::uint8_t> ReadLongValue(PageFile& file, Bytes field)
{
    if (field.size() < kHeader) {
        FailDamaged("valore lungo senza intestazione");
    }
    const std::uint32_t length = U32(field, 0) & kLengthMask;
    const RowPointer at = RowPointerAt(field, 4);
    switch (U32(field, 0) >> kKindShift) {
        case kInRow:
            return FirstBytes(field.subspan(kHeader), length);
        case kOneRow:
            return FirstBytes(ReadPiece(file, at).bytes, length);
        case kChain:
            return JoinChain(file, at, length);
        default:
            FailDamaged("valore lungo di forma sconosciuta");
    }
}

// A chain that runs in a circle has more pieces than the file can have rows.
std::vector<RowPointer> LongValueRows(PageFile& file, Bytes field)
{
    if (field.size() < kHeader) {
        FailDamaged("valore lungo senza intestazione");
    }
    std::vector<RowPointer> rows;
    const std::uint32_t kind = U32(field, 0) >> kKindShift;
    RowPointer at = kind == kInRow ? RowPointer{} : RowPointerAt(field, 4);
    while (at.page != 0) {
        const StoredRow piece = ReadPiece(file, at);
        rows.push_back(at);
        if (rows.size() > std::uint64_t{file.PageCount()} * DataPageWriter::kMostRows) {
            FailDamaged(at.page, "catena di un valore lungo in circolo");
        }
        at = kind == kChain && piece.bytes.size() >= kNextBytes ? RowPointerAt(piece.bytes, 0)
                                                                : RowPointer{};
    }
    return rows;
}

void EraseLongValue(PageFile& file, Bytes field)
{
    for (const RowPointer at : LongValueRows(file, field)) {
        DataPageWriter page(file.Format(), file.Read(at.page));
        page.Erase(at.row);
        file.Write(at.page, page.Take());
    }
}

}  // namespace jet
