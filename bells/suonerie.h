#pragma once

#include "jet/database.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace orlo
{

// Table Suonerie: the rings of the terminals on the serial line, one row a ring. All functions
// throw jet::Error.

/// Sunday to Saturday, then holidays.
inline constexpr int kDayFlags = 8;

/// One row, in the types of the window; what its columns cannot hold is refused when it is stored.
struct BellRow {
    std::int32_t Terminale = 0;
    std::int32_t Locazione = 0;  ///< position of the ring, 1..32
    std::int32_t Ora = 0;
    std::int32_t Minuti = 0;
    /// kDayFlags flags "0" or "1".
    QString Giorni = QStringLiteral("00000000");
    std::int32_t NumeroRele = 0;  ///< 1 relay A, 2 relay B
    std::int32_t TempoRele = 0;   ///< duration

    bool operator==(const BellRow&) const = default;
};

/// Makes the table, without rows, unless the database has one of that name in whatever case. In a
/// database that can only be read that is kReadOnly.
void CreaTabellaSuonerie(jet::Database& database);

/// The statement that asks for the rows of one terminal.
std::u16string BellQuery(int terminal);

/// The rows of one terminal in the order of the file. A value that is Null leaves its field as in a
/// new BellRow. kTableNotFound without the table; kWrongType, which names the column, for a value
/// that is no number.
std::vector<BellRow> LoadBellRows(jet::Database& database, int terminal);

/// Writes all seven columns into the first row of that terminal and position, or into a new row
/// when there is none. Behind an error, whose text names the column that cannot hold its value,
/// nothing has changed.
void StoreBellRow(jet::Database& database, const BellRow& row);

}  // namespace orlo
