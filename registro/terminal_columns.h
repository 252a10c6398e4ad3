#pragma once

#include "jet/column_type.h"
#include "jet/schema.h"
#include "jet/value.h"

#include <QString>

#include <array>
#include <string_view>

namespace orlo::registro
{

/// The columns of table TERMINALI, by their place in kTerminalColumns.
enum Column : std::size_t {
    kTerminale,
    kTipo,
    kFunzionamento,
    kDescrizione,
    kAttivo,
    kModalita,
    kPorta,
    kPriorita,
    kPrioritaSecondaria,
    kVelocita,
    kRitardo,
    kModem,
    kAbilitazioneModem,
    kImpianto,
    kTentativi,
    kNomeCard,
    kLenCard,
    kBidirezionale,
    kInizioImpianto,
    kLenImpianto,
    kInizioAzienda,
    kLenAzienda,
    kInizioBadge,
    kLenBadge,
    kColumnCount
};

/// What a column's values say, and so how they are written and checked.
enum class Content { Number, Model, Speed, Delay, YesNo, Text };

struct TerminalColumn {
    std::u16string_view name;
    jet::ColumnType type{};
    int size = 0;  ///< as in jet::ColumnDefinition
    Content content{};
    int lowest = 0;  ///< bounds of a Number
    int highest = 0;
    std::u16string_view meaning;  ///< for the help, in Italian

    QString Name() const { return QStringView(name).toString(); }
    jet::ColumnDefinition Definition() const { return {std::u16string(name), type, size}; }
};

/// One row per column: everything that differs by column is here and nowhere else.
extern const std::array<TerminalColumn, kColumnCount> kTerminalColumns;

/// One row of the table. Numbers are std::int32_t, delays float, texts jet::Text, and a column that
/// an older table lacks is Null.
using TerminalValues = std::array<jet::Value, kColumnCount>;

/// The terminal number of a row, 0 when there is none.
int NumberOf(const TerminalValues& values);

}  // namespace orlo::registro
