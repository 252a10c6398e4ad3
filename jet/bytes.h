#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>

namespace jet
{

using Bytes = std::span<const std::uint8_t>;

// Little-endian numbers of the file. The caller has checked that the bytes are there.

template <std::size_t kWidth>
constexpr std::uint64_t LittleEndian(Bytes bytes, std::size_t at)
{
    assert(at + kWidth <= bytes.size());
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < kWidth; ++i) {
        number |= std::uint64_t{bytes[at + i]} << (8 * i);
    }
    return number;
}

constexpr std::uint16_t U16(Bytes bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(LittleEndian<2>(bytes, at));
}

constexpr std::uint32_t U24(Bytes bytes, std::size_t at)
{
    return static_cast<std::uint32_t>(LittleEndian<3>(bytes, at));
}

constexpr std::uint32_t U32(Bytes bytes, std::size_t at)
{
    return static_cast<std::uint32_t>(LittleEndian<4>(bytes, at));
}

constexpr std::uint64_t U64(Bytes bytes, std::size_t at)
{
    return LittleEndian<8>(bytes, at);
}

/// Where a row is: number of its page and of its entry in the page's directory.
struct RowPointer {
    std::uint32_t page = 0;
    std::uint16_t row = 0;
    bool operator==(const RowPointer&) const = default;
};

/// The form of definitions, rows and long values: u8 row, u24 page. Page 0 means "nowhere".
constexpr RowPointer RowPointerAt(Bytes bytes, std::size_t at)
{
    assert(at + 4 <= bytes.size());
    return {U24(bytes, at + 1), bytes[at]};
}

// The way back, into bytes that are there.

template <std::size_t kWidth>
constexpr void PutLittleEndian(std::span<std::uint8_t> bytes, std::size_t at, std::uint64_t number)
{
    assert(at + kWidth <= bytes.size());
    for (std::size_t i = 0; i < kWidth; ++i) {
        bytes[at + i] = static_cast<std::uint8_t>(number >> (8 * i));
    }
}

constexpr void PutU16(std::span<std::uint8_t> bytes, std::size_t at, std::uint64_t number)
{
    assert(number <= 0xFFFF);
    PutLittleEndian<2>(bytes, at, number);
}

constexpr void PutU32(std::span<std::uint8_t> bytes, std::size_t at, std::uint64_t number)
{
    assert(number <= 0xFFFFFFFF);
    PutLittleEndian<4>(bytes, at, number);
}

constexpr void PutU64(std::span<std::uint8_t> bytes, std::size_t at, std::uint64_t number)
{
    PutLittleEndian<8>(bytes, at, number);
}

constexpr void PutRowPointer(std::span<std::uint8_t> bytes, std::size_t at, RowPointer pointer)
{
    assert(pointer.row <= 0xFF && pointer.page < 1u << 24);
    bytes[at] = static_cast<std::uint8_t>(pointer.row);
    PutLittleEndian<3>(bytes, at + 1, pointer.page);
}

}  // namespace jet
