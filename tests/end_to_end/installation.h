#pragma once

#include "tests/end_to_end/child_process.h"
#include "tests/end_to_end/punches.h"
#include "tests/end_to_end/sample_register.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orlo::end_to_end
{

/// A simulated line that runs beside the program.
class SimulatedLine
{
public:
    /// `link` is the device that a program opens. Waits until it can be opened.
    SimulatedLine(const std::string& link, std::vector<std::string> arguments,
                  const Surroundings& surroundings);

    /// Waits until the line has fallen and come back.
    void WaitForReturn();

    /// A value of the terminals' state as it is now, e.g. of "4.acquisite".
    std::string State(const std::string& key);

    /// The commands that came over the line so far, blank between them; only those that begin with
    /// `beginning`.
    std::string Commands(const std::string& beginning = {}) const;

private:
    std::string state_file_;
    std::string journal_file_;
    ChildProcess process_;
};

/// A folder of its own with a register and a configuration file, in which the program runs as in
/// daily use, but without any display.
class Installation
{
public:
    /// "Configurazione.ini" names the folder; the register is of Access 2000, as it stands.
    Installation();
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;
    ~Installation();

    std::string PathOf(const std::string& name) const { return folder_ + "/" + name; }
    bool Has(const std::string& name) const;
    void Write(const std::string& name, const std::string& content) const;
    std::string Read(const std::string& name) const;

    /// Lines of a punch file without their CR LF; a line that does not end so keeps what it has.
    Lines PunchLines(const std::string& name = "TIMBRAT.TXT") const;

    /// Puts these rows into a register of that format.
    void Register(const std::vector<TerminalRow>& rows, Jet version = Jet::k4,
                  int layout = 0) const;

    /// Brings up a line; its device is "com1" unless said otherwise.
    std::unique_ptr<SimulatedLine> Simulate(std::vector<std::string> arguments,
                                            const std::string& device = "com1") const;

    /// A Strale, terminal 4, that holds these punches.
    std::unique_ptr<SimulatedLine> SimulateStrale(const std::vector<Punch>& punches,
                                                  std::vector<std::string> more = {}) const;

    /// Starts the program, with the configuration file and "com1" and "com2" for its ports.
    std::unique_ptr<ChildProcess> Start(std::vector<std::string> arguments) const;
    Ended Run(std::vector<std::string> arguments) const;

    /// Starts it with nothing but these arguments.
    Ended RunBare(const std::vector<std::string>& arguments) const;

    /// Run the other programs, which look after the register and the database.
    Ended RunRegistro(const std::vector<std::string>& arguments) const;
    /// `input` is its standard input.
    Ended RunJetfile(const std::vector<std::string>& arguments,
                     const std::string& input = {}) const;

    /// Shows the windows of what is started from now on where nobody sees them.
    void ShowOffScreen() { surroundings_.environment.emplace_back("QT_QPA_PLATFORM=offscreen"); }

    /// The system's loader names every library that the program opens, also while it runs, among
    /// the errors of what is started from now on.
    void NameLoadedLibraries() { surroundings_.environment.emplace_back("LD_DEBUG=files"); }

    /// No file that the program writes may grow beyond so many bytes.
    void LimitFiles(rlim_t bytes) { surroundings_.longest_file = bytes; }
    void LiftLimit() { surroundings_.longest_file.reset(); }

    /// Programs started from now on have no more rights to files than their permissions give.
    void HeedPermissions() { surroundings_.heeds_permissions = true; }
    /// Locks that they want on the database fail with this error number of the system.
    void FailLocks(int error) { surroundings_.lock_error = error; }

private:
    std::string folder_;
    Surroundings surroundings_;
};

}  // namespace orlo::end_to_end
