#include "jet/header.h"

#include "jet/failure.h"

#include <algorithm>
#include <bit>
#include <numeric>
#include <string_view>
#include <utility>

// Start of page 0. From 0x18 on masked.
//
//  offset  size  field
//  0x00    4     00 01 00 00
//  0x04    16    "Standard Jet DB", 00
//  0x14    1     version: 0 = Jet 3, 1 = Jet 4, above = later engines
//  0x18    4     row pointer of the map of free pages: row 0 of page 1
//  0x1C    4     row pointer of a second map, which lists nothing
//  0x20    16    definition pages of the engine's own tables: 2, 3, 4, 5
//  0x38    2     1 in Jet 3
//  0x3A    2     sort order, Jet 3
//  0x3C    2     code page of the text, significant in Jet 3 only
//  0x3E    4     encoding key, 0 = the pages are not encoded
//  0x42    40    password, Jet 4: masked once more with the day of the date below
//  0x6E    2     sort order, Jet 4
//  0x71    1     its version
//  0x72    8     date of creation, Jet 4
//
// Behind that not masked: at 0x98 the number 654 (hex) and "4.0" in Jet 4; at 0x600 (Jet 3) or
// 0xE00 (Jet 4) two bytes per user, 00 01 at rest.

namespace jet
{

namespace
{

constexpr std::string_view kSignature{"\0\1\0\0Standard Jet DB\0", 20};
constexpr std::size_t kVersion = 0x14;
constexpr std::size_t kMasked = 0x18;
constexpr std::size_t kCodePage = 0x3C;
constexpr std::size_t kEncodingKey = 0x3E;
constexpr std::size_t kSortOrder3 = 0x3A;
constexpr std::size_t kSortOrder4 = 0x6E;
constexpr std::size_t kSortVersion4 = 0x71;
constexpr std::uint16_t kGeneralSortOrder = 0x0409;
constexpr std::uint16_t kWesternCodePage = 1252;

}  // namespace

std::array<std::uint8_t, 128> HeaderMask()
{
    constexpr std::array<std::uint8_t, 4> kKey{0xC7, 0xDA, 0x39, 0x6B};
    std::array<std::uint8_t, 256> state{};
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    for (std::size_t i = 0, j = 0; i < state.size(); ++i) {
        j = (j + state[i] + kKey[i % kKey.size()]) % state.size();
        std::swap(state[i], state[j]);
    }
    std::array<std::uint8_t, 128> mask{};
    std::size_t i = 0;
    std::size_t j = 0;
    for (std::uint8_t& byte : mask) {
        i = (i + 1) % state.size();
        j = (j + state[i]) % state.size();
        std::swap(state[i], state[j]);
        byte = state[(state[i] + state[j]) % state.size()];
    }
    return mask;
}

namespace
{

std::array<std::uint8_t, kHeaderBytes> Unmasked(Bytes page)
{
    std::array<std::uint8_t, kHeaderBytes> plain{};
    std::copy_n(page.begin(), plain.size(), plain.begin());
    const auto mask = HeaderMask();
    for (std::size_t i = 0; i < mask.size(); ++i) {
        plain[kMasked + i] ^= mask[i];
    }
    return plain;
}

}  // namespace

const Format& RecogniseHeader(Bytes page)
{
    if (page.size() < kHeaderBytes) {
        FailUnrecognised("il file è troppo corto");
    }
    if (!std::equal(kSignature.begin(), kSignature.end(), page.begin(),
                    [](char wanted, std::uint8_t byte) {
                        return static_cast<std::uint8_t>(wanted) == byte;
                    })) {
        FailUnrecognised("non è un database Jet");
    }
    if (page[kVersion] > 1) {
        FailUnrecognised("è di una versione successiva");
    }
    const auto plain = Unmasked(page);
    if (U32(plain, kEncodingKey) != 0) {
        FailEncoded();
    }
    const Format& format = page[kVersion] == 0 ? kJet3 : kJet4;
    if (!format.unicode && U16(plain, kCodePage) != kWesternCodePage) {
        FailUnrecognised("la tabella codici non è la 1252");
    }
    return format;
}

TextOrder ReadTextOrder(Bytes page)
{
    const auto plain = Unmasked(page);
    if (page[kVersion] == 0) {
        return {U16(plain, kSortOrder3), 0, U16(plain, kCodePage)};
    }
    return {U16(plain, kSortOrder4), plain[kSortVersion4], U16(plain, kCodePage)};
}

namespace
{

// The day with whose bytes the ids of users in a new Jet 4 file are masked.
constexpr std::array<std::uint8_t, 8> kCreationDate{0x3E, 0x85, 0xD3, 0x3B, 0x3E, 0xAB, 0xE4, 0x40};

void FillJet3(std::span<std::uint8_t> page)
{
    PutU16(page, 0x38, 1);
    PutU16(page, kSortOrder3, kGeneralSortOrder);
}

void FillJet4(std::span<std::uint8_t> page)
{
    constexpr std::size_t kPassword = 0x42;
    constexpr std::size_t kPasswordBytes = 40;
    constexpr std::size_t kDate = 0x72;
    page[kVersion] = 1;
    PutU16(page, kSortOrder4, kGeneralSortOrder);
    std::ranges::copy(kCreationDate, page.begin() + kDate);
    const auto day = static_cast<std::uint32_t>(std::bit_cast<double>(U64(page, kDate)));
    for (std::size_t at = kPassword; at < kPassword + kPasswordBytes; at += 4) {
        PutU32(page, at, day);
    }
    PutU32(page, 0x98, 0x654);
    std::ranges::copy(std::string_view("4.0"), page.begin() + 0x9C);
}

}  // namespace

std::vector<std::uint8_t> NewHeaderPage(const Format& format)
{
    std::vector<std::uint8_t> page(format.page_bytes, 0);
    std::ranges::copy(kSignature, page.begin());
    PutRowPointer(page, 0x18, {1, 0});
    PutRowPointer(page, 0x1C, {1, 1});
    for (std::uint32_t table = 0; table < 4; ++table) {
        PutU32(page, 0x20 + 4 * table, 2 + table);
    }
    PutU16(page, kCodePage, kWesternCodePage);
    format.unicode ? FillJet4(page) : FillJet3(page);
    const auto mask = HeaderMask();
    const std::size_t masked = format.unicode ? mask.size() : mask.size() - 2;
    for (std::size_t i = 0; i < masked; ++i) {
        page[kMasked + i] ^= mask[i];
    }
    const std::size_t users = format.unicode ? 0xE00 : 0x600;
    for (std::size_t at = users; at < users + 512; at += 2) {
        page[at + 1] = 1;
    }
    return page;
}

}  // namespace jet
