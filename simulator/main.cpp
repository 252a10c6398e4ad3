#include "simulator/modem.h"
#include "simulator/options.h"
#include "simulator/pty_server.h"
#include "simulator/state_report.h"
#include "simulator/usage_error.h"

#include <csignal>
#include <exception>
#include <iostream>
#include <optional>

namespace
{

using namespace orlo::simulator;

template <class AnyTerminal>
std::vector<AnyTerminal> MakeTerminals(const auto& all_settings)
{
    std::vector<AnyTerminal> terminals;
    for (const auto& settings : all_settings) terminals.emplace_back(settings, MachineClock());
    return terminals;
}

Line MakeLine(const Options& options, const Journal& journal)
{
    const FaultPlan faults(options.faults);
    if (options.terminals.empty())
        return {options.line, MakeTerminals<ObjectTerminal>(options.object_terminals), faults,
                journal};
    return {options.line, MakeTerminals<Terminal>(options.terminals), faults, journal};
}

void Serve(const Options& options)
{
    Journal journal;
    if (!options.journal_path.empty()) journal = FileJournal(options.journal_path);
    Line line = MakeLine(options, journal);

    const auto write_state = [&] {
        if (options.state_path.empty()) return;
        WriteStateReport(options.state_path,
                         StateReport(line.Terminals()) + StateReport(line.ObjectTerminals()));
        std::cout << "Stato: " << options.state_path << std::endl;
    };
    std::optional<Modem> modem;
    if (options.modem) modem.emplace(*options.modem, line, journal);
    FarEnd& far_end = modem ? static_cast<FarEnd&>(*modem) : line;
    PtyServer server(options.link, far_end,
                     {.ready = [&] { std::cout << "Pronto: " << options.link << std::endl; },
                      .hung_up = [&] { std::cout << "Caduta: " << options.link << std::endl; },
                      .state_asked_for = write_state});
    server.Run();
    write_state();
}

}  // namespace

int main(int argc, char** argv)
{
    // Who started this may stop listening to it; the line goes on.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        const Options options = ParseOptions(argc, argv);
        if (options.help)
            std::cout << HelpText();
        else
            Serve(options);
        return 0;
    } catch (const UsageError& error) {
        std::cerr << "orlodesk-simulatore: " << error.what() << "\n"
                  << "Vedere orlodesk-simulatore --help.\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "orlodesk-simulatore: " << error.what() << "\n";
        return 1;
    }
}
