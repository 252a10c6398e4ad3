#include "registro/column_text.h"
#include "registro/command.h"
#include "registro/failure.h"
#include "registro/given_values.h"
#include "registro/new_terminal.h"
#include "registro/register_file.h"
#include "registro/terminal_list.h"
#include "registro/terminal_rows.h"

#include <algorithm>
#include <ostream>

namespace orlo::registro
{

namespace
{

/// "priorita-secondaria" for Priorita_Secondaria.
QString OptionName(const TerminalColumn& column)
{
    return column.Name().toLower().replace(u'_', u'-');
}

/// One per column; the terminal's number is an argument.
std::vector<Option> ColumnOptions()
{
    std::vector<Option> options;
    options.reserve(kTerminalColumns.size());
    for (const TerminalColumn& column : kTerminalColumns)
        options.push_back(
            {OptionName(column), QStringLiteral("VALORE"), QStringView(column.meaning).toString()});
    options.erase(options.begin() + kTerminale);
    return options;
}

int ReadNumber(const QString& text)
{
    const ReadValue read = ValueOfText(kTerminalColumns[kTerminale], text);
    const auto* number = std::get_if<std::int32_t>(&read.value);
    if (number == nullptr)
        throw UsageError(QStringLiteral("N: %1.").arg(
            read.fault.isEmpty() ? QStringLiteral("manca il numero") : read.fault));
    return *number;
}

/// Of a row that is there already: also a foreign number, because a row that the register has no
/// place for keeps the main window from listing those behind it.
int ReadAnyNumber(const QString& text)
{
    bool is_number = false;
    const int number = text.toInt(&is_number);
    if (!is_number) throw UsageError(QStringLiteral("N: «%1» non è un numero.").arg(text));
    return number;
}

GivenValues ReadOptions(const Arguments& given)
{
    GivenValues values;
    for (std::size_t i = 0; i < kColumnCount; ++i) {
        const QString name = OptionName(kTerminalColumns[i]);
        if (!given.options.contains(name)) continue;
        const ReadValue read = ValueOfText(kTerminalColumns[i], given.options[name]);
        if (!read.fault.isEmpty())
            throw UsageError(QStringLiteral("--%1: %2.").arg(name, read.fault));
        values[static_cast<Column>(i)] = read.value;
    }
    // A row without a model belongs to no terminal.
    if (values.contains(kTipo) && jet::IsNull(values[kTipo]))
        throw UsageError(QStringLiteral("--tipo: manca il modello."));
    return values;
}

std::optional<TerminalValues> Find(jet::Database& database, int number)
{
    const std::vector<TerminalValues> terminals = ReadTerminals(database);
    const auto found = std::ranges::find(terminals, number, NumberOf);
    return found == terminals.end() ? std::nullopt : std::optional(*found);
}

[[noreturn]] void FailNotThere(int number)
{
    throw Failure(QStringLiteral("Nel registro non c'è il terminale %1.").arg(number));
}

void List(const Arguments& given, Streams streams)
{
    const auto database = OpenToRead(given.positional[0]);
    streams.out << TerminalList(ReadTerminals(*database)).toStdString();
}

void Add(const Arguments& given, Streams)
{
    const int number = ReadNumber(given.positional[1]);
    GivenValues values = ReadOptions(given);
    if (!values.contains(kTipo))
        throw UsageError(QStringLiteral("--tipo: manca il modello del nuovo terminale."));
    values[kTerminale] = number;
    RegisterChange change(given.positional[0]);
    if (Find(change.Database(), number))
        throw Failure(
            QStringLiteral("Il terminale %1 c'è già: \"modifica\" lo cambia.").arg(number));
    TerminalValues terminal = NewTerminal();
    ApplyGiven(terminal, values);
    AddMissingColumns(change.Database());
    StoreTerminal(change.Database(), terminal);
    change.Commit();
}

void Modify(const Arguments& given, Streams)
{
    const int number = ReadNumber(given.positional[1]);
    const GivenValues values = ReadOptions(given);
    if (values.empty()) throw UsageError(QStringLiteral("Manca che cosa modificare."));
    RegisterChange change(given.positional[0]);
    AddMissingColumns(change.Database());
    std::optional<TerminalValues> terminal = Find(change.Database(), number);
    if (!terminal) FailNotThere(number);
    ApplyGiven(*terminal, values);
    StoreTerminal(change.Database(), *terminal);
    change.Commit();
}

void Remove(const Arguments& given, Streams)
{
    const int number = ReadAnyNumber(given.positional[1]);
    RegisterChange change(given.positional[0]);
    if (!RemoveTerminal(change.Database(), number)) FailNotThere(number);
    change.Commit();
}

}  // namespace

std::vector<Command> TerminalCommands()
{
    const QString place = QStringLiteral("FILE|CARTELLA");
    const QString number = QStringLiteral("N");
    return {
        {QStringLiteral("elenca"), {place}, QStringLiteral("Elenca i terminali"), {}, List},
        {QStringLiteral("aggiungi"),
         {place, number},
         QStringLiteral("Aggiunge un terminale; vuole almeno --tipo"),
         ColumnOptions(),
         Add},
        {QStringLiteral("modifica"),
         {place, number},
         QStringLiteral("Cambia quello che le opzioni dicono; un valore vuoto lo toglie"),
         ColumnOptions(),
         Modify},
        {QStringLiteral("rimuovi"),
         {place, number},
         QStringLiteral("Toglie un terminale; le sue suonerie restano"),
         {},
         Remove},
    };
}

}  // namespace orlo::registro
