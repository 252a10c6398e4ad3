#pragma once

#include <string>
#include <vector>

namespace orlo::end_to_end
{

/// The file format of a register: of Access 97, or of Access 2000 and later.
enum class Jet { k3, k4 };

/// What a test wants in one row of table TERMINALI. The sample files hold terminals 1 to 8.
struct TerminalRow {
    int terminal = 0;
    /// Column TIPO: 1 Orlo, 2 Sipa, 3 Orlo II, 4 Strale, 5 Strale N, 6 Lumo, 7 OrloTre, 8
    /// SuperStrale.
    int type = 4;
    int port = 1;
    int speed = 9600;
    int retries = 3;
    bool active = true;
};

/// A full sample register with these rows, the others of serial models; the rows are reached
/// without a modem, and this output layout in table Output, whose plant code stays "AZ0042". The
/// bytes are changed in place, by the format itself and with nothing of the program's own engine.
std::string SampleRegister(Jet version, const std::vector<TerminalRow>& rows, int layout);

}  // namespace orlo::end_to_end
