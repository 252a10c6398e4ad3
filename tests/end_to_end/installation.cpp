#include "tests/end_to_end/installation.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace orlo::end_to_end
{

namespace
{

namespace fs = std::filesystem;

std::string Content(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string NewFolder()
{
    std::string pattern = fs::temp_directory_path().string() + "/orlodesk.XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    return pattern;
}

/// What a scheduler gives, without display and session, and nothing that the tests themselves run
/// with.
std::vector<std::string> PlainEnvironment(const std::string& folder)
{
    std::vector<std::string> environment = {"HOME=" + folder, "PATH=/usr/bin:/bin",
                                            "LC_ALL=C.UTF-8"};
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"})
        if (const char* value = std::getenv(name))
            environment.push_back(std::string(name) + "=" + value);
    return environment;
}

std::vector<std::string> Joined(std::vector<std::string> first,
                                const std::vector<std::string>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace

SimulatedLine::SimulatedLine(const std::string& link, std::vector<std::string> arguments,
                             const Surroundings& surroundings)
    : state_file_(link + ".stato"),
      journal_file_(link + ".registro"),
      process_(ORLO_SIMULATOR_PATH,
               Joined({"--collegamento", link, "--stato", state_file_, "--registro", journal_file_},
                      arguments),
               surroundings)
{
    process_.Line();
}

void SimulatedLine::WaitForReturn()
{
    while (process_.Line().rfind("Pronto:", 0) != 0) {
    }
}

std::string SimulatedLine::State(const std::string& key)
{
    process_.Signal(SIGUSR1);
    while (process_.Line().rfind("Stato:", 0) != 0) {
    }
    std::istringstream lines(Content(state_file_));
    for (std::string line; std::getline(lines, line);)
        if (line.rfind(key + "=", 0) == 0) return line.substr(key.size() + 1);
    return {};
}

std::string SimulatedLine::Commands(const std::string& beginning) const
{
    std::string commands;
    std::istringstream lines(Content(journal_file_));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string time, number, command;
        std::getline(fields, time, '\t');
        std::getline(fields, number, '\t');
        std::getline(fields, command, '\t');
        if (command.rfind(beginning, 0) == 0) commands += (commands.empty() ? "" : " ") + command;
    }
    return commands;
}

Installation::Installation() : folder_(NewFolder())
{
    surroundings_ = {folder_, PlainEnvironment(folder_), {}};
    Write("Configurazione.ini", "Databases          :" + folder_ + "/\r\n");
    Register({});
}

Installation::~Installation()
{
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

bool Installation::Has(const std::string& name) const
{
    return fs::exists(PathOf(name));
}

void Installation::Write(const std::string& name, const std::string& content) const
{
    std::ofstream(PathOf(name), std::ios::binary) << content;
}

std::string Installation::Read(const std::string& name) const
{
    return Content(PathOf(name));
}

Lines Installation::PunchLines(const std::string& name) const
{
    Lines lines;
    std::istringstream text(Read(name));
    for (std::string line; std::getline(text, line);) {
        const bool ended = !text.eof() && !line.empty() && line.back() == '\r';
        lines.push_back(ended ? line.substr(0, line.size() - 1) : line + " (not ended by CR LF)");
    }
    return lines;
}

void Installation::Register(const std::vector<TerminalRow>& rows, Jet version, int layout) const
{
    Write("nimbo.mdb", SampleRegister(version, rows, layout));
}

std::unique_ptr<SimulatedLine> Installation::Simulate(std::vector<std::string> arguments,
                                                      const std::string& device) const
{
    Surroundings surroundings = surroundings_;
    surroundings.longest_file.reset();
    return std::make_unique<SimulatedLine>(PathOf(device), std::move(arguments), surroundings);
}

std::unique_ptr<SimulatedLine> Installation::SimulateStrale(const std::vector<Punch>& punches,
                                                            std::vector<std::string> more) const
{
    Write("timbrature", PunchSource(punches));
    return Simulate(
        Joined({"--terminale", "numero=4,modello=Strale,file=" + PathOf("timbrature")}, more));
}

std::unique_ptr<ChildProcess> Installation::Start(std::vector<std::string> arguments) const
{
    const std::vector<std::string> usual = {"--configurazione", PathOf("Configurazione.ini"),
                                            "--com1",           PathOf("com1"),
                                            "--com2",           PathOf("com2")};
    return std::make_unique<ChildProcess>(ORLO_DESK_PATH, Joined(usual, arguments), surroundings_);
}

Ended Installation::Run(std::vector<std::string> arguments) const
{
    return Start(std::move(arguments))->Wait();
}

Ended Installation::RunRegistro(const std::vector<std::string>& arguments) const
{
    return ChildProcess(ORLO_REGISTRO_PATH, arguments, surroundings_).Wait();
}

Ended Installation::RunJetfile(const std::vector<std::string>& arguments,
                               const std::string& input) const
{
    Write("input", input);
    const std::vector<std::string> shell = {"-c", "exec \"$0\" \"$@\" <input", JETFILE_PATH};
    return ChildProcess("/bin/sh", Joined(shell, arguments), surroundings_).Wait();
}

Ended Installation::RunBare(const std::vector<std::string>& arguments) const
{
    return ChildProcess(ORLO_DESK_PATH, arguments, surroundings_).Wait();
}

}  // namespace orlo::end_to_end
