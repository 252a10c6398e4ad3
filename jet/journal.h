#pragma once

#include "jet/storage.h"

#include <map>
#include <optional>
#include <vector>

// The journal of a database file: while pages of the database are written, it holds what they were
// before. After a crash in between, the next one to open the file takes the change back.
//
//  1. The journal is complete and synced before the database file is written or grows.
//  2. The database file is synced before the journal is made invalid.
//  3. A journal counts only as a whole. Its header and every record bear a checksum seeded with the
//     nonce of the header, and every change has a nonce of its own: what an earlier change left
//     behind, a tail that was never written, zeros or noise never pass for a record.
//  4. A change is acknowledged after the invalid header has been synced, not before.
//  5. Taking a change back writes the recorded pages, cuts the file to its old length and syncs it
//     before the journal is made invalid. Interrupted, it can be done again from the start.
//  6. The name of a new journal is synced before the database file is written.
//
// The journal stays while the file is open for writing, invalid between the changes.
//
//  offset  size  header, numbers little-endian
//  0       8     "JetUndo1"
//  8       4     bytes of a database page
//  12      4     pages of the database before the change
//  16      4     records
//  20      4     0
//  24      8     nonce, never 0
//  32      8     checksum of the 32 bytes before
//  512           the records
//
//  0       4     record: page number
//  4       4     0
//  8       ...   the page
//  ...     8     checksum of all that

namespace jet
{

using PageImage = std::vector<std::uint8_t>;

/// What a database file was before a change.
struct UndoImages {
    std::uint32_t page_count = 0;
    std::map<std::uint32_t, PageImage> pages;
};

/// "nimbo.mdb-journal" for "nimbo.mdb".
std::filesystem::path JournalNameFor(const std::filesystem::path& database_file);

/// Writes and syncs (invariant 1).
void WriteJournal(StoredFile& journal, const UndoImages& images, std::size_t page_bytes);

/// Nothing when the journal is not valid: the database file then is as a change has left it.
std::optional<UndoImages> ReadJournal(StoredFile& journal, std::size_t page_bytes);

/// Writes and syncs (invariant 4).
void InvalidateJournal(StoredFile& journal);

/// Makes the database file what it was, and syncs it (invariant 5).
void TakeBack(StoredFile& database, const UndoImages& images, std::size_t page_bytes);

}  // namespace jet
