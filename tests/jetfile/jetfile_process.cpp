#include "tests/jetfile/jetfile_process.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace jetfile::test
{

namespace
{

/// For the shell.
std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? "'\\''" : std::string(1, c);
    return quoted + '\'';
}

std::string TextOf(const std::filesystem::path& path)
{
    const auto bytes = jet::test::ReadFile(path);
    return {bytes.begin(), bytes.end()};
}

Ended Run(const std::vector<std::string>& words, const std::string& input)
{
    const jet::test::ScratchFolder folder;
    const auto in = folder.Write("in", {input.begin(), input.end()});
    const auto out = folder.Path() / "out";
    const auto err = folder.Path() / "err";
    std::string command;
    for (const std::string& word : words) command += Quoted(word) + ' ';
    command += '<' + Quoted(in) + " >" + Quoted(out) + " 2>" + Quoted(err);
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, TextOf(out), TextOf(err)};
}

}  // namespace

Ended Jetfile(const std::vector<std::string>& arguments, const std::string& input)
{
    std::vector<std::string> words{JETFILE_PATH};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return Run(words, input);
}

std::string Exported(const std::filesystem::path& file, const std::string& table)
{
    const Ended ended =
        Run({"mdb-export", "-b", "raw", "-T", "%Y-%m-%d %H:%M:%S", file.string(), table}, {});
    if (ended.status != 0) throw std::runtime_error("mdb-export failed: " + ended.errors);
    return ended.output;
}

std::filesystem::path CopyOf(const std::string& sample, const jet::test::ScratchFolder& folder)
{
    return folder.Write(sample, jet::test::ReadFile(jet::test::Sample(sample)));
}

}  // namespace jetfile::test
