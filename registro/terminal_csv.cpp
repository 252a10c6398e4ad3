#include "registro/terminal_csv.h"

#include "registro/column_text.h"
#include "registro/csv.h"
#include "registro/failure.h"
#include "registro/given_values.h"
#include "registro/new_terminal.h"
#include "registro/terminal_rows.h"

#include <algorithm>
#include <set>

namespace orlo::registro
{

namespace
{

[[noreturn]] void FailAt(int line, const QString& what)
{
    throw Failure(QStringLiteral("Riga %1: %2. Niente è stato cambiato.").arg(line).arg(what));
}

[[noreturn]] void FailAt(int line, Column column, const QString& what)
{
    FailAt(line, QStringLiteral("colonna %1, %2").arg(kTerminalColumns[column].Name(), what));
}

Column ColumnOfHeader(const CsvRecord& header, const QString& name)
{
    const auto found = std::ranges::find_if(kTerminalColumns, [&](const TerminalColumn& column) {
        return column.Name().compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == kTerminalColumns.end())
        FailAt(header.line, QStringLiteral("colonna «%1» sconosciuta").arg(name));
    return static_cast<Column>(found - kTerminalColumns.begin());
}

std::vector<Column> ReadHeader(const CsvRecord& header)
{
    std::vector<Column> columns;
    for (const QString& name : header.fields) {
        const Column column = ColumnOfHeader(header, name);
        if (std::ranges::count(columns, column) > 0)
            FailAt(header.line, column, QStringLiteral("c'è due volte"));
        columns.push_back(column);
    }
    if (std::ranges::count(columns, kTerminale) == 0)
        FailAt(header.line, QStringLiteral("manca la colonna Terminale"));
    return columns;
}

class CsvStore
{
public:
    CsvStore(jet::Database& database, std::vector<Column> columns)
        : database_(database), columns_(std::move(columns)), exported_(ReadTerminals(database))
    {
        AddMissingColumns(database);
        known_ = ReadTerminals(database);
    }

    void Store(const CsvRecord& record)
    {
        const qsizetype wanted = static_cast<qsizetype>(columns_.size());
        if (record.fields.size() != wanted)
            FailAt(record.line,
                   QStringLiteral("%1 campi invece di %2").arg(record.fields.size()).arg(wanted));
        const int number = ReadNumber(record);
        const auto old = std::ranges::find(known_, number, NumberOf);
        if (old == known_.end())
            Add(record);
        else
            Change(record, static_cast<std::size_t>(old - known_.begin()));
    }

    ImportCount Count() const { return count_; }

private:
    int ReadNumber(const CsvRecord& record)
    {
        const auto place = std::ranges::find(columns_, kTerminale) - columns_.begin();
        const ReadValue read = NumberOfText(record.fields[place]);
        const auto* number = std::get_if<std::int32_t>(&read.value);
        if (number == nullptr)
            FailAt(record.line, kTerminale,
                   read.fault.isEmpty() ? QStringLiteral("manca il numero") : read.fault);
        if (!stored_.insert(*number).second)
            FailAt(record.line, kTerminale,
                   QStringLiteral("il terminale %1 c'è due volte").arg(*number));
        return *number;
    }

    /// A number outside the register is one where a row has it.
    ReadValue NumberOfText(const QString& text) const
    {
        for (const TerminalValues& terminal : known_)
            if (!text.isEmpty() &&
                text == WrittenValue(kTerminalColumns[kTerminale], terminal[kTerminale]))
                return {terminal[kTerminale], {}};
        return ValueOfText(kTerminalColumns[kTerminale], text);
    }

    GivenValues ReadCells(const CsvRecord& record, const TerminalValues* exported) const
    {
        GivenValues given;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const TerminalColumn& column = kTerminalColumns[columns_[i]];
            const QString& text = record.fields[static_cast<qsizetype>(i)];
            if (exported != nullptr && text == WrittenValue(column, (*exported)[columns_[i]]))
                continue;
            const ReadValue read = ValueOfText(column, text);
            if (!read.fault.isEmpty()) FailAt(record.line, columns_[i], read.fault);
            given[columns_[i]] = read.value;
        }
        return given;
    }

    void Add(const CsvRecord& record)
    {
        const GivenValues given = ReadCells(record, nullptr);
        const auto model = given.find(kTipo);
        if (model == given.end() || jet::IsNull(model->second))
            FailAt(record.line, kTipo, QStringLiteral("manca il modello del nuovo terminale"));
        TerminalValues terminal = NewTerminal();
        ApplyGiven(terminal, given);
        StoreTerminal(database_, terminal);
        ++count_.added;
    }

    void Change(const CsvRecord& record, std::size_t row)
    {
        TerminalValues terminal = known_[row];
        ApplyGiven(terminal, ReadCells(record, &exported_[row]));
        if (terminal == known_[row]) return;
        StoreTerminal(database_, terminal);
        ++count_.changed;
    }

    jet::Database& database_;
    std::vector<Column> columns_;
    std::vector<TerminalValues> exported_;  // as an export would have told them
    std::vector<TerminalValues> known_;     // the same with the columns of an older table added
    std::set<int> stored_;
    ImportCount count_;
};

}  // namespace

QString TerminalsAsCsv(const std::vector<TerminalValues>& terminals)
{
    QStringList names;
    for (const TerminalColumn& column : kTerminalColumns) names << column.Name();
    QString text = CsvLine(names);
    for (const TerminalValues& terminal : terminals) {
        QStringList fields;
        for (std::size_t i = 0; i < terminal.size(); ++i)
            fields << WrittenValue(kTerminalColumns[i], terminal[i]);
        text += CsvLine(fields);
    }
    return text;
}

ImportCount StoreCsv(jet::Database& database, const QString& text)
{
    const CsvText csv = ReadCsv(text);
    if (!csv.fault.isEmpty()) FailAt(csv.fault_line, csv.fault);
    if (csv.records.empty()) FailAt(1, QStringLiteral("manca la riga dei nomi delle colonne"));
    CsvStore store(database, ReadHeader(csv.records.front()));
    for (auto record = csv.records.begin() + 1; record != csv.records.end(); ++record)
        store.Store(*record);
    return store.Count();
}

}  // namespace orlo::registro
