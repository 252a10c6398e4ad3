#include "jetfile/commands.h"

#include "jet/integrity_check.h"
#include "jet/utf8.h"
#include "jetfile/dump.h"
#include "jetfile/schema.h"
#include "jetfile/script.h"

#include <ostream>

namespace jetfile
{

namespace
{

void ListTables(const Options& options, std::ostream& out)
{
    const auto database = jet::Database::Open(options.file);
    for (const TableSchema& table : ReadSchema(options.file, std::nullopt)) {
        out << jet::ToUtf8(table.name) << ' ' << database->OpenTable(table.name)->RecordCount()
            << '\n';
    }
}

void ShowSchema(const Options& options, std::ostream& out)
{
    for (const TableSchema& table : ReadSchema(options.file, options.table)) {
        out << SchemaText(table);
    }
}

void Dump(const Options& options, std::ostream& out)
{
    const auto database = jet::Database::Open(options.file);
    for (const TableSchema& table : ReadSchema(options.file, options.table)) {
        DumpTable(table, *database->OpenTable(table.name), out);
    }
}

bool Check(const Options& options, std::ostream& out)
{
    const auto findings = jet::CheckIntegrity(options.file);
    for (const std::string& finding : findings) out << finding << '\n';
    return findings.empty();
}

std::unique_ptr<jet::Database> OpenForChanges(const std::filesystem::path& file)
{
    try {
        return jet::Database::Open(file, jet::OpenMode::ReadWrite);
    } catch (const jet::Error& error) {
        if (error.Number() != jet::kInUse) throw;
        throw jet::Error(jet::kInUse,
                         "Another program has the file open for changes. Until it "
                         "closes it, the file can only be read.");
    }
}

void Run(const Options& options, std::istream& script, std::ostream& out)
{
    const auto database = OpenForChanges(options.file);
    ScriptResult done;
    const auto report = [&] {
        out << done.operations << " operations, " << done.rows << " rows\n";
    };
    try {
        RunScript(*database, options.each ? Extent::Each : Extent::Whole, script, done);
    } catch (const std::exception&) {
        if (options.each) report();
        throw;
    }
    report();
}

}  // namespace

bool RunCommand(const Options& options, std::istream& script, std::ostream& out)
{
    switch (options.command) {
        case Command::Help:
            out << HelpText();
            break;
        case Command::Tables:
            ListTables(options, out);
            break;
        case Command::Schema:
            ShowSchema(options, out);
            break;
        case Command::Dump:
            Dump(options, out);
            break;
        case Command::Check:
            return Check(options, out);
        case Command::Run:
            Run(options, script, out);
            break;
        case Command::Create:
            jet::Database::Create(options.file,
                                  options.jet3 ? jet::Version::Jet3 : jet::Version::Jet4);
            break;
    }
    return true;
}

}  // namespace jetfile
