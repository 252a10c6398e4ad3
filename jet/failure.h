#pragma once

#include "jet/error.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

// The errors of the engine, each with its number and text in one place.

namespace jet
{

/// `what` says in Italian what was found on the page.
[[noreturn]] void FailDamaged(std::uint32_t page, std::string_view what);
[[noreturn]] void FailDamaged(std::string_view what);

[[noreturn]] void FailUnrecognised(std::string_view what);
[[noreturn]] void FailEncoded();
/// From the system's error number of an open that failed.
[[noreturn]] void FailOpen(const std::filesystem::path& path, int system_error);
/// The same for a file that cannot be made, removed or given its name.
[[noreturn]] void FailCreate(const std::filesystem::path& path, int system_error);
[[noreturn]] void FailRead(int system_error);
[[noreturn]] void FailWrite(int system_error);
/// From the system's error number of a lock that is not held by somebody else and yet not given.
[[noreturn]] void FailLock(int system_error);
[[noreturn]] void FailReadOnly();
[[noreturn]] void FailTransaction(std::string_view what);
/// The file has reached the size that its version allows.
[[noreturn]] void FailFileFull();
[[noreturn]] void FailInUse(const std::filesystem::path& path);
/// After a write error whose outcome only reopening can tell.
[[noreturn]] void FailReopen();

[[noreturn]] void FailTableNotFound(std::u16string_view table);
/// The text names the column and nothing else: whoever tells one missing column from another
/// looks for the name in it.
[[noreturn]] void FailColumnNotFound(std::u16string_view column);
[[noreturn]] void FailIndexNotFound(std::u16string_view index);
[[noreturn]] void FailNoIndexSelected();
[[noreturn]] void FailNoCurrentRecord();
[[noreturn]] void FailKey(std::string_view what);

// Changes that are refused. Those of a column name it.

[[noreturn]] void FailNoEditBegun();
[[noreturn]] void FailNotForQueries();
/// `rest` is the part of the statement that was not understood.
[[noreturn]] void FailSyntax(std::u16string_view rest);
[[noreturn]] void FailWrongType(std::u16string_view column);
[[noreturn]] void FailFieldOverflow(std::u16string_view column);
[[noreturn]] void FailFieldTooSmall(std::u16string_view column);
/// A character that the file cannot hold.
[[noreturn]] void FailCharacter(std::u16string_view column);
[[noreturn]] void FailNotSupported(std::u16string_view column);
[[noreturn]] void FailRecordTooLong();
[[noreturn]] void FailInvalidName(std::u16string_view name);
/// A type or size that a column cannot have; also a table without columns.
[[noreturn]] void FailInvalidColumn(std::u16string_view column);
[[noreturn]] void FailColumnExists(std::u16string_view column);
[[noreturn]] void FailTooManyColumns();
[[noreturn]] void FailTableExists(std::u16string_view table);
[[noreturn]] void FailInvalidIndex(std::u16string_view index);
[[noreturn]] void FailIndexExists(std::u16string_view index);
[[noreturn]] void FailPrimaryExists(std::u16string_view index);
[[noreturn]] void FailTooManyIndexes();
[[noreturn]] void FailDuplicateKey(std::u16string_view index);
[[noreturn]] void FailNullInKey(std::u16string_view index);
/// An index that the change would have to keep and the engine cannot: `why` in Italian.
[[noreturn]] void FailIndexUnknown(std::u16string_view index, std::string_view why);

}  // namespace jet
