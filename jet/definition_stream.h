#pragma once

#include "jet/page_file.h"

#include <vector>

namespace jet
{

/// The bytes of a table definition, joined from its pages: the first page whole, the others
/// without their 8-byte headers, cut at the length that the definition gives.
/// Errors: kDamagedFile, kDiskError.
std::vector<std::uint8_t> ReadDefinitionStream(PageFile& file, std::uint32_t first_page);

/// The pages it lies on. Errors: the same.
std::vector<std::uint32_t> DefinitionPages(PageFile& file, std::uint32_t first_page);

/// Writes it back over its pages and adds further ones when it has grown. The length is put in
/// here. Inside PageFile::Change only. Errors: also kDiskFull.
void WriteDefinitionStream(PageFile& file, std::uint32_t first_page,
                           std::vector<std::uint8_t> stream);

/// A definition page without content.
PageImage EmptyDefinitionPage(const Format& format);

}  // namespace jet
