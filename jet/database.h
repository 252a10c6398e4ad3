#pragma once

#include "jet/column_type.h"
#include "jet/recordset.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace jet
{

struct ColumnInfo {
    std::u16string name;
    ColumnType type{};
    int size = 0;  ///< characters for Text, bytes for the others, 0 for Memo and Ole
};

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
    /// Errors: kFileNotFound, kAccessDenied, kUnrecognisedFormat, kEncodedFile, kDamagedFile,
    /// kDiskError.
    static std::unique_ptr<Database> Open(const std::filesystem::path& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// The user's tables, in the order of the catalog. Errors: kDamagedFile.
    std::vector<TableInfo> TableDefs() const;

    /// A cursor on a table, standing on its first row; rows come in the file's own order until an
    /// index is chosen. The database must outlive it. Errors: kTableNotFound, kDamagedFile.
    std::unique_ptr<Recordset> OpenTable(std::u16string_view name);

private:
    struct Impl;
    explicit Database(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> impl_;
};

}  // namespace jet
