#include "jetfile/script.h"

#include "jet/failure.h"
#include "jet/name_map.h"
#include "jetfile/json_reader.h"
#include "jetfile/operation.h"
#include "jetfile/value_form.h"
#include "jetfile/value_reader.h"

#include <algorithm>
#include <istream>
#include <map>
#include <stdexcept>

namespace jetfile
{

namespace
{

struct NamedValue {
    std::u16string column;
    jet::Value value;
};

/// A table in use: its cursor, and what is needed to read values for it.
class OpenTable
{
public:
    OpenTable(jet::Database& database, std::u16string_view name)
        : rows_(database.OpenTable(name)), info_(Describe(database, name))
    {
        for (std::size_t i = 0; i < info_.columns.size(); ++i) {
            columns_.Add(info_.columns[i].name, i);
        }
    }

    jet::Recordset& Rows() { return *rows_; }

    std::vector<NamedValue> Values(const JsonObject& object)
    {
        std::vector<NamedValue> values;
        for (const auto& [name, form] : object.members) {
            values.push_back({name, ReadValue(form, Column(name))});
        }
        return values;
    }

    /// A value for each column of the index. Errors: kIndexNotFound, kInvalidArgument.
    std::vector<jet::Value> Key(std::u16string_view index_name, const JsonArray& forms)
    {
        jet::NameMap indexes;
        for (std::size_t i = 0; i < info_.indexes.size(); ++i) {
            indexes.Add(info_.indexes[i].name, i);
        }
        const auto found = indexes.Find(index_name);
        if (!found) jet::FailIndexNotFound(index_name);
        const auto& columns = info_.indexes[*found].columns;
        if (columns.size() != forms.size()) {
            throw jet::Error(jet::kInvalidArgument,
                             "The key needs a value for each column of the index.");
        }
        std::vector<jet::Value> key;
        for (std::size_t i = 0; i < forms.size(); ++i) {
            key.push_back(ReadValue(forms[i], Column(columns[i])));
        }
        return key;
    }

private:
    static jet::TableInfo Describe(const jet::Database& database, std::u16string_view name)
    {
        const auto tables = database.TableDefs();
        jet::NameMap names;
        for (std::size_t i = 0; i < tables.size(); ++i) names.Add(tables[i].name, i);
        const auto found = names.Find(name);
        // The engine's own tables are there, but not for changes.
        if (!found) jet::FailTableNotFound(name);
        return tables[*found];
    }

    const jet::ColumnInfo& Column(std::u16string_view name)
    {
        const auto found = columns_.Find(name);
        if (!found) jet::FailColumnNotFound(name);
        return info_.columns[*found];
    }

    std::unique_ptr<jet::Recordset> rows_;
    jet::TableInfo info_;
    jet::NameMap columns_;
};

void SetFields(jet::Recordset& rows, const std::vector<NamedValue>& values)
{
    for (const NamedValue& field : values) rows.SetField(field.column, field.value);
    rows.Update();
}

// Values are the same when they are written the same: what a dump shows can be searched for.
bool Matches(jet::Recordset& rows, const std::vector<NamedValue>& values)
{
    return std::ranges::all_of(values, [&rows](const NamedValue& wanted) {
        return ValueForm(rows.Field(wanted.column)) == ValueForm(wanted.value);
    });
}

class Performer
{
public:
    explicit Performer(jet::Database& database) : database_(database) {}

    /// Each gives the number of rows that it inserted, changed or deleted.
    std::size_t operator()(const Insert& insert)
    {
        OpenTable& table = Table(insert.table);
        const auto values = table.Values(insert.row);
        table.Rows().AddNew();
        SetFields(table.Rows(), values);
        return 1;
    }

    std::size_t operator()(const Update& update)
    {
        OpenTable& table = Table(update.table);
        const auto values = table.Values(update.set);
        return ForEach(table, update.selection, [&values](jet::Recordset& rows) {
            rows.Edit();
            SetFields(rows, values);
        });
    }

    std::size_t operator()(const Delete& erase)
    {
        return ForEach(Table(erase.table), erase.selection,
                       [](jet::Recordset& rows) { rows.Delete(); });
    }

    std::size_t operator()(const AddColumn& add)
    {
        tables_.clear();
        database_.AppendColumn(add.table, add.column);
        return 0;
    }

    std::size_t operator()(const jet::TableDefinition& table)
    {
        database_.CreateTable(table);
        return 0;
    }

private:
    OpenTable& Table(const std::u16string& name)
    {
        const auto known = tables_.find(name);
        if (known != tables_.end()) return known->second;
        return tables_.try_emplace(name, database_, name).first->second;
    }

    template <typename Change>
    std::size_t ForEach(OpenTable& table, const Selection& selection, const Change& change)
    {
        jet::Recordset& rows = table.Rows();
        if (const auto* by_key = std::get_if<RowByKey>(&selection)) {
            const auto key = table.Key(by_key->index, by_key->key);
            rows.SetIndex(by_key->index);
            rows.Seek(key);
            if (rows.NoMatch()) return 0;
            change(rows);
            return 1;
        }
        const auto wanted = table.Values(std::get<RowsWhere>(selection).values);
        std::size_t count = 0;
        // In the file's own order a row keeps its place whatever is changed in it.
        rows.SetIndex(u"");
        for (rows.MoveFirst(); !rows.AtEof(); rows.MoveNext()) {
            if (!Matches(rows, wanted)) continue;
            change(rows);
            ++count;
        }
        return count;
    }

    jet::Database& database_;
    std::map<std::u16string, OpenTable> tables_;  // by the spellings used
};

/// The one line's operation, in a transaction of its own if it is to be.
std::size_t PerformLine(jet::Database& database, Performer& perform, Extent extent,
                        const Operation& operation)
{
    if (extent == Extent::Each) database.BeginTrans();
    const std::size_t rows = std::visit(perform, operation);
    if (extent == Extent::Each) database.CommitTrans();
    return rows;
}

bool IsBlank(const std::string& text)
{
    return text.find_first_not_of(" \t\r") == std::string::npos;
}

}  // namespace

void RunScript(jet::Database& database, Extent extent, std::istream& script, ScriptResult& done)
{
    Performer perform(database);
    std::string text;
    if (extent == Extent::Whole) database.BeginTrans();
    for (std::size_t line = 1; std::getline(script, text); ++line) {
        if (IsBlank(text)) continue;
        const JsonValue form = ReadJson(text, line);
        try {
            done.rows += PerformLine(database, perform, extent, ReadOperation(form));
            ++done.operations;
        } catch (const jet::Error& error) {
            throw ScriptError(line, error);
        }
    }
    if (script.bad()) throw std::runtime_error("the script cannot be read");
    if (extent == Extent::Whole) database.CommitTrans();
}

}  // namespace jetfile
