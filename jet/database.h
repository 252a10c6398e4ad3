#pragma once

#include "jet/column_type.h"
#include "jet/open_mode.h"
#include "jet/recordset.h"
#include "jet/schema.h"
#include "jet/storage.h"
#include "jet/version.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace jet
{

using ColumnInfo = ColumnDefinition;

struct IndexInfo {
    std::u16string name;
    std::vector<std::u16string> columns;
    bool primary = false;
    bool unique = false;
};

struct TableInfo {
    std::u16string name;
    std::vector<ColumnInfo> columns;
    std::vector<IndexInfo> indexes;
};

/// An open Jet 3 or Jet 4 file (Access 97 to 2003). Table, column and index names are found without
/// regard to case. Not to be used from two threads at once.
class Database
{
public:
    /// Opens the file in place. A name that differs from the file's only in case is found too.
    /// What a crash has left half written is taken back first. Who opens for writing keeps other
    /// writers out until the database is closed; readers may come and go.
    /// Errors: kFileNotFound, kAccessDenied, kUnrecognisedFormat, kEncodedFile, kDamagedFile,
    /// kDiskError, kDiskFull; kInUse when another one writes; kCannotLock.
    static std::unique_ptr<Database> Open(const std::filesystem::path& path,
                                          OpenMode mode = OpenMode::ReadOnly,
                                          Storage& storage = SystemStorage());
    /// Makes a database without tables, to be opened afterwards. It is written under another name
    /// and gets its own when it is whole and safe on the disk.
    /// Errors: kFileExists, kAccessDenied, kDiskError, kDiskFull.
    static void Create(const std::filesystem::path& path, Version version,
                       Storage& storage = SystemStorage());
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// The user's tables, in the order of the catalog. Errors: kDamagedFile.
    std::vector<TableInfo> TableDefs() const;

    /// A cursor on a table, standing on its first row; rows come in the file's own order until an
    /// index is chosen. The database must outlive it. Errors: kTableNotFound, kDamagedFile.
    std::unique_ptr<Recordset> OpenTable(std::u16string_view name);

    /// A cursor on the rows that a statement asks for, in the file's own order, and with only the
    /// columns that it names:
    ///
    ///     SELECT [DISTINCTROW] column, ... FROM table [WHERE column = value] [;]
    ///
    /// Its rows can be changed like those of a table; SetIndex ends in kNotSupported.
    /// Errors: kSyntaxError for any other statement, kTableNotFound, kColumnNotFound.
    std::unique_ptr<Recordset> OpenQuery(std::u16string_view statement);

    /// Adds a column behind the others of a table. Its rows read as Null, or False, there.
    /// Errors: kReadOnly; kTableNotFound; kColumnExists, kTooManyColumns, kInvalidName;
    /// kInvalidColumn for a type or size that cannot be; kRecordTooLong; kDiskFull.
    void AppendColumn(std::u16string_view table, const ColumnDefinition& column);

    /// Makes a table without rows. Errors: kReadOnly; kTableExists, also for a query of that name;
    /// kColumnExists, kColumnNotFound (an index names it), kIndexExists, kPrimaryExists,
    /// kTooManyColumns, kTooManyIndexes, kInvalidName, kInvalidColumn, kInvalidIndex;
    /// kRecordTooLong; kNotSupported in a file of another sort order; kDiskFull.
    void CreateTable(const TableDefinition& table);

    // Each change, by whatever cursor, is done as a whole or not at all, and is on the disk when it
    // returns. Between BeginTrans and CommitTrans that holds for all of them together. Closing the
    // database rolls back. Errors: kTransaction, kReadOnly; CommitTrans also kDiskError, kDiskFull.

    void BeginTrans();
    void CommitTrans();
    void Rollback();

private:
    struct Impl;
    explicit Database(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace jet
