#pragma once

#include "tests/end_to_end/installation.h"
#include "tests/end_to_end/mdb_export.h"

#include <sstream>

namespace orlo::end_to_end
{

/// Table of the register as an independent reader sees it, a line a row.
inline Lines Exported(const Installation& installation, const char* table)
{
    Lines lines;
    std::istringstream text(MdbExport(installation.PathOf("nimbo.mdb"), table));
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

}  // namespace orlo::end_to_end
