#pragma once

#include "jet/table_definition.h"

#include <filesystem>
#include <optional>

namespace jetfile
{

struct TableSchema {
    std::u16string name;
    jet::TableLayout layout;
    bool unicode = false;  ///< a character of its text columns has two bytes
};

/// The user's tables by name, without regard to case; with a name only that table, which may also
/// be one of the engine's own. Errors: those of jet::Database::Open, kTableNotFound.
std::vector<TableSchema> ReadSchema(const std::filesystem::path& path,
                                    const std::optional<std::u16string>& only);

/// For people, the columns and indexes indented, each line with its end:
///
///     TERMINALI
///         Terminale            integer
///         Descrizione          text 20
///         index TERMINALE: primary, unique (Terminale)
///         index PerData: (Data descending)
std::string SchemaText(const TableSchema& table);

}  // namespace jetfile
