#include "jet/header.h"

#include "jet/failure.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

// Start of page 0. From 0x18 on masked.
//
//  offset  size  field
//  0x00    4     00 01 00 00
//  0x04    16    "Standard Jet DB", 00
//  0x14    1     version: 0 = Jet 3, 1 = Jet 4, above = later engines
//  0x3C    2     code page of the text, significant in Jet 3 only
//  0x3E    4     encoding key, 0 = the pages are not encoded

namespace jet
{

namespace
{

constexpr std::string_view kSignature{"\0\1\0\0Standard Jet DB\0", 20};
constexpr std::size_t kVersion = 0x14;
constexpr std::size_t kMasked = 0x18;
constexpr std::size_t kCodePage = 0x3C;
constexpr std::size_t kEncodingKey = 0x3E;

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
    std::array<std::uint8_t, kHeaderBytes> plain{};
    std::copy_n(page.begin(), plain.size(), plain.begin());
    const auto mask = HeaderMask();
    for (std::size_t i = 0; i < mask.size(); ++i) {
        plain[kMasked + i] ^= mask[i];
    }
    if (U32(plain, kEncodingKey) != 0) {
        FailEncoded();
    }
    const Format& format = page[kVersion] == 0 ? kJet3 : kJet4;
    if (!format.unicode && U16(plain, kCodePage) != 1252) {
        FailUnrecognised("la tabella codici non è la 1252");
    }
    return format;
}

}  // namespace jet
