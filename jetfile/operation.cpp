#include "jetfile/operation.h"

#include "jet/error.h"
#include "jet/utf8.h"
#include "jetfile/type_name.h"

#include <charconv>
#include <set>

namespace jetfile
{

namespace
{

[[noreturn]] void Fail(const std::string& what)
{
    throw jet::Error(jet::kInvalidArgument, what + ".");
}

template <typename Kind>
const Kind& Held(const JsonValue& value, const std::string& what)
{
    const Kind* held = value.As<Kind>();
    if (held == nullptr) Fail(what + " has the wrong kind of value");
    return *held;
}

/// The members of an object, each to be taken once.
class Members
{
public:
    Members(const JsonValue& value, const std::string& what)
        : object_(Held<JsonObject>(value, what))
    {
    }

    /// Null pointer when it is missing.
    template <typename Kind>
    const Kind* Find(std::u16string_view name)
    {
        taken_.insert(name);
        const JsonValue* value = object_.Find(name);
        return value != nullptr ? &Held<Kind>(*value, Quoted(name)) : nullptr;
    }

    template <typename Kind>
    const Kind& Take(std::u16string_view name)
    {
        const Kind* value = Find<Kind>(name);
        if (value == nullptr) Fail(Quoted(name) + " is missing");
        return *value;
    }

    bool Flag(std::u16string_view name)
    {
        const bool* flag = Find<bool>(name);
        return flag != nullptr && *flag;
    }

    void EndHere() const
    {
        for (const auto& [name, value] : object_.members) {
            if (!taken_.contains(name)) Fail(Quoted(name) + " does not belong here");
        }
    }

private:
    static std::string Quoted(std::u16string_view name) { return '"' + jet::ToUtf8(name) + '"'; }

    const JsonObject& object_;
    std::set<std::u16string_view> taken_;
};

int Size(const JsonNumber* number)
{
    if (number == nullptr) return 0;
    int size = 0;
    const char* end = number->text.data() + number->text.size();
    const auto result = std::from_chars(number->text.data(), end, size);
    if (result.ptr != end || result.ec != std::errc{}) Fail("\"size\" is no whole number");
    return size;
}

jet::ColumnDefinition ReadColumn(const JsonValue& form)
{
    Members members(form, "a column");
    jet::ColumnDefinition column;
    column.name = members.Take<std::u16string>(u"name");
    const auto& type_name = members.Take<std::u16string>(u"type");
    const auto type = TypeOfName(type_name);
    if (!type) Fail("There is no type \"" + jet::ToUtf8(type_name) + "\"");
    column.type = *type;
    column.size = Size(members.Find<JsonNumber>(u"size"));
    members.EndHere();
    return column;
}

/// "A" or ["A", "asc"] or ["A", "desc"].
jet::TableDefinition::IndexColumn ReadIndexColumn(const JsonValue& form)
{
    if (const auto* name = form.As<std::u16string>()) return {*name};
    const auto& pair = Held<JsonArray>(form, "a column of an index");
    if (pair.size() != 2) Fail("A column of an index is a name, or a name and a direction");
    const auto& direction = Held<std::u16string>(pair[1], "a direction");
    if (direction != u"asc" && direction != u"desc") Fail(R"(A direction is "asc" or "desc")");
    return {Held<std::u16string>(pair[0], "a column of an index"), direction == u"asc"};
}

jet::TableDefinition::Index ReadIndex(const JsonValue& form)
{
    Members members(form, "an index");
    jet::TableDefinition::Index index;
    index.name = members.Take<std::u16string>(u"name");
    for (const JsonValue& column : members.Take<JsonArray>(u"columns")) {
        index.columns.push_back(ReadIndexColumn(column));
    }
    index.primary = members.Flag(u"primary");
    index.unique = members.Flag(u"unique");
    index.required = members.Flag(u"required");
    index.ignore_nulls = members.Flag(u"ignorenull");
    members.EndHere();
    return index;
}

jet::TableDefinition ReadTable(Members& members)
{
    jet::TableDefinition table;
    table.name = members.Take<std::u16string>(u"table");
    for (const JsonValue& column : members.Take<JsonArray>(u"columns")) {
        table.columns.push_back(ReadColumn(column));
    }
    if (const auto* indexes = members.Find<JsonArray>(u"indexes")) {
        for (const JsonValue& index : *indexes) table.indexes.push_back(ReadIndex(index));
    }
    return table;
}

Selection ReadSelection(Members& members)
{
    const auto* where = members.Find<JsonObject>(u"where");
    const auto* index = members.Find<std::u16string>(u"index");
    const auto* key = members.Find<JsonArray>(u"key");
    if (where != nullptr && index == nullptr && key == nullptr) return RowsWhere{*where};
    if (where == nullptr && index != nullptr && key != nullptr) return RowByKey{*index, *key};
    Fail(R"(Rows are chosen by "where", or by "index" and "key")");
}

Operation Read(const std::u16string& op, Members& members)
{
    if (op == u"create-table") return ReadTable(members);
    const auto table = members.Take<std::u16string>(u"table");
    if (op == u"insert") return Insert{table, members.Take<JsonObject>(u"row")};
    if (op == u"update") {
        Selection selection = ReadSelection(members);
        return Update{table, std::move(selection), members.Take<JsonObject>(u"set")};
    }
    if (op == u"delete") return Delete{table, ReadSelection(members)};
    if (op == u"add-column") {
        const JsonValue column{members.Take<JsonObject>(u"column")};
        return AddColumn{table, ReadColumn(column)};
    }
    Fail("There is no operation \"" + jet::ToUtf8(op) + "\"");
}

}  // namespace

Operation ReadOperation(const JsonValue& form)
{
    Members members(form, "An operation");
    const auto& op = members.Take<std::u16string>(u"op");
    Operation operation = Read(op, members);
    members.EndHere();
    return operation;
}

}  // namespace jetfile
