#include "simulator/object_terminal_settings.h"

#include "simulator/punch_settings.h"
#include "simulator/setting_pairs.h"

#include <algorithm>
#include <array>

namespace orlo::simulator
{

namespace
{

struct ObjectModel {
    std::string_view name;
    int capacity;  // records
    /// Date and time as a compiler stamps them: readers cut it at fixed positions.
    std::string_view last_build;
};

constexpr std::array<ObjectModel, 2> kModels = {{
    {"Orlo", 4000, "Mar 15 2006 14:30:00"},
    {"Sipa", 4000, "Sep 21 2005 09:12:45"},
}};

constexpr int kMostRecords = 32767;  // what a 16-bit record number can say

const ObjectModel* Find(std::string_view name)
{
    const auto* const found = std::find_if(kModels.begin(), kModels.end(),
                                           [&](const ObjectModel& m) { return m.name == name; });
    return found == kModels.end() ? nullptr : &*found;
}

}  // namespace

bool IsObjectModel(std::string_view text)
{
    return Find(SettingPairs(text).Text("modello").value_or("")) != nullptr;
}

ObjectTerminalSettings ParseObjectTerminal(std::string_view text)
{
    SettingPairs pairs(text);
    ObjectTerminalSettings settings;
    settings.model = pairs.Text("modello").value_or("");
    const ObjectModel* const model = Find(settings.model);
    if (model == nullptr) RefuseTerminal("modello sconosciuto: " + settings.model);
    settings.number = pairs.TerminalNumber();
    settings.punches = TakePunches(pairs, kMostRecords, InventObjectPunches, ReadObjectPunches);
    settings.capacity = static_cast<std::size_t>(
        pairs.Number("capacita", 1, kMostRecords).value_or(model->capacity));
    if (settings.punches.size() > settings.capacity)
        RefuseTerminal("più timbrature della capacità di " + std::to_string(settings.capacity));
    const int held = static_cast<int>(settings.punches.size());
    settings.marked = static_cast<std::size_t>(pairs.Number("acquisite", 0, held).value_or(0));
    settings.clock_offset = pairs.Seconds("scarto");
    settings.plant_code = pairs.Text("impianto").value_or("00001");
    settings.last_build = pairs.Text("versione").value_or(std::string(model->last_build));
    pairs.RefuseTheRest();
    return settings;
}

}  // namespace orlo::simulator
