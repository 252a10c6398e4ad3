#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace jetfile
{

/// A command line that means nothing.
class UsageError : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

enum class Command { Help, Tables, Schema, Dump, Check, Run, Create };

struct Options {
    Command command = Command::Help;
    std::filesystem::path file;
    std::optional<std::u16string> table;
    bool each = false;
    bool jet3 = false;
};

/// The arguments behind the program's name. Errors: UsageError.
Options ReadOptions(const std::vector<std::string>& arguments);

std::string HelpText();

}  // namespace jetfile
