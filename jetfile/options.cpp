#include "jetfile/options.h"

#include "jetfile/json_reader.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace jetfile
{

namespace
{

struct CommandRow {
    std::string_view name;
    Command command;
    bool takes_table;
    std::string_view flag;  // the one option that it has, if any
};

constexpr std::array kCommands{
    CommandRow{"tables", Command::Tables, false, {}},
    CommandRow{"schema", Command::Schema, true, {}},
    CommandRow{"dump", Command::Dump, true, {}},
    CommandRow{"check", Command::Check, false, {}},
    CommandRow{"run", Command::Run, false, "--each"},
    CommandRow{"create", Command::Create, false, "--jet3"},
};

std::u16string TableName(const std::string& argument)
{
    auto decoded = DecodeUtf8(argument);
    if (const auto* name = std::get_if<std::u16string>(&decoded)) return *name;
    throw UsageError("the table's name is no UTF-8");
}

}  // namespace

Options ReadOptions(const std::vector<std::string>& arguments)
{
    if (arguments.empty()) throw UsageError("a command is missing");
    if (std::ranges::find(arguments, "--help") != arguments.end()) return {};

    const auto row =
        std::ranges::find(kCommands, std::string_view(arguments[0]), &CommandRow::name);
    if (row == kCommands.end()) throw UsageError("unknown command " + arguments[0]);
    bool flag = false;
    std::vector<std::string> names;
    for (auto argument = arguments.begin() + 1; argument != arguments.end(); ++argument) {
        if (!argument->starts_with("--")) {
            names.push_back(*argument);
        } else if (*argument == row->flag) {
            flag = true;
        } else {
            throw UsageError("unknown option " + *argument);
        }
    }
    if (names.empty()) throw UsageError("the file is missing");
    if (names.size() > (row->takes_table ? 2u : 1u)) {
        throw UsageError("too many arguments: " + names.back());
    }

    Options options;
    options.command = row->command;
    options.file = names[0];
    if (names.size() == 2) options.table = TableName(names[1]);
    options.each = flag && row->command == Command::Run;
    options.jet3 = flag && row->command == Command::Create;
    return options;
}

std::string HelpText()
{
    return R"(jetfile: looks into a Jet database (Access 97 to 2003) and changes it.

  jetfile tables FILE           its tables, each with the number of its rows
  jetfile schema FILE [TABLE]   columns and indexes
  jetfile dump FILE [TABLE]     columns, indexes and rows as JSON, an object a line
  jetfile check FILE            looks for damage; a line for each finding, none when it is sound
  jetfile run FILE [--each]     performs the operations that standard input gives, an object a line;
                                all or none of them, with --each every line by itself
  jetfile create FILE [--jet3]  makes a database without tables, of Access 2000 or of Access 97
  jetfile --help                this text

Operations:
  {"op": "insert", "table": "T", "row": {"A": 1}}
  {"op": "update", "table": "T", "where": {"A": 1}, "set": {"B": "x"}}
  {"op": "update", "table": "T", "index": "I", "key": [1], "set": {"B": "x"}}
  {"op": "delete", "table": "T", "where": {"A": 1}}
  {"op": "add-column", "table": "T", "column": {"name": "C", "type": "text", "size": 20}}
  {"op": "create-table", "table": "T", "columns": [{"name": "A", "type": "integer"}],
   "indexes": [{"name": "I", "columns": ["A"], "primary": true}]}

Exit status: 0 done, 1 failed or something found, 2 wrong usage.
)";
}

}  // namespace jetfile
