#pragma once

#include "jet/database.h"
#include "jet/lock_file.h"
#include "jet/recordset.h"
#include "link/component_objects.h"
#include "registry/ring_table.h"
#include "registry/terminal_record.h"
#include "registry/terminal_type.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <set>
#include <string>

namespace orlo
{

/// What is process-wide: made once by the program, handed down by reference.
struct ProgramState {
    // Folders from the configuration file. DatabasesPath is a prefix: it ends with a separator.
    QString ApplicationsPath;
    QString DatabasesPath;
    QString ReportsPath;

    // The register: one database and one cursor on TERMINALI for the whole run.
    std::unique_ptr<jet::Database> Database;
    std::unique_ptr<jet::LockFile> DatabaseLock;
    std::unique_ptr<jet::Recordset> TerminalsRecordset;
    orlo::TerminalTable TerminalTable;

    // The protocol component: there only when the register holds an Orlo or Sipa terminal.
    // TelegramLinkOpen: OpenComunication was called and endcomunication not yet.
    std::unique_ptr<ComponentObjects> Component;
    bool TelegramLinkOpen = false;

    // Current-terminal block, rewritten before every command. CurrentModel: what the terminal was
    // when it was prepared, nullptr before the first command and for a type that is none.
    std::int16_t CurrentPort = 0;
    std::int32_t CurrentSpeed = 0;
    std::int16_t CurrentTerminalNumber = 0;
    std::int16_t CurrentRetries = 0;
    std::int16_t CurrentPriority = 0;
    std::int16_t CurrentPriority2 = 0;
    bool CurrentModem = false;
    QString CurrentPhoneNumber;
    QString CurrentPlantCode;
    const TerminalModel* CurrentModel = nullptr;

    // Line. SerialPortOk: the last open or close of the current terminal's port succeeded.
    std::string LineReceiveBuffer;
    bool SerialPortOk = false;

    // The line that `Verde` shows: its port, 0 while there is none, and whether it was dialled.
    std::int16_t SessionPort = 0;
    bool SessionDialled = false;

    // Counters of the last answer to "32", five characters each, kept until the next, and the
    // terminal whose they are, 0 before the first.
    std::int16_t CountersTerminal = 0;
    std::string TPnt;
    std::string TrInMemory;
    std::string TpntOld;
    std::string TpntNew;

    // Terminals whose last answer came and could not be stored: they are asked for it again.
    std::set<std::int16_t> UnstoredTerminals;

    // Bell rings of the Orlo and Sipa terminals, kept for the whole run.
    orlo::RingTable RingTable{};

    // Output layout: 0 standard, 1 extended; plant code of the extended layout.
    std::int16_t TipoTracciato = 0;
    QString CodiceAzienda;
};

}  // namespace orlo
