#pragma once

#include "jet/bytes.h"
#include "jet/format.h"

#include <array>
#include <vector>

namespace jet
{

/// Bytes of page 0 that the recognition looks at; both versions have more on it.
inline constexpr std::size_t kHeaderBytes = 0x98;

/// The bytes with which page 0 is masked from offset 0x18 on: the RC4 key stream of C7 DA 39 6B.
/// Jet 3 masks the first 126, Jet 4 all 128.
std::array<std::uint8_t, 128> HeaderMask();

/// Recognises the file by the start of its page 0 (at least kHeaderBytes). A database password
/// leaves the pages as they are, so it is not looked at.
/// Errors: kUnrecognisedFormat, kEncodedFile.
const Format& RecogniseHeader(Bytes page);

/// How the file's new columns order their texts.
struct TextOrder {
    std::uint16_t sort_order = 0;
    std::uint8_t version = 0;     ///< Jet 4
    std::uint16_t code_page = 0;  ///< Jet 3
};

/// From a page 0 that has been recognised.
TextOrder ReadTextOrder(Bytes page);

/// Page 0 of a new database.
std::vector<std::uint8_t> NewHeaderPage(const Format& format);

}  // namespace jet
