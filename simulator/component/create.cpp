#include "simulator/component/create.h"

#include "simulator/component/fpr_version.h"
#include "simulator/component/mc_format_data.h"
#include "simulator/component/record_data.h"
#include "simulator/component/rings.h"
#include "simulator/component/telegram_comunication.h"
#include "simulator/component/time_data.h"

#include <algorithm>
#include <array>

namespace orlo::simulator
{

namespace
{

using LinePointer = std::shared_ptr<TerminalLine>;
using Maker = component::Object* (*)(const LinePointer&);

template <class Class>
component::Object* Over(const LinePointer& line)
{
    return new Class(line);
}

template <class Class>
component::Object* WithoutLine(const LinePointer& /*line*/)
{
    return new Class;
}

struct ClassRow {
    std::string_view name;
    Maker make;
};

constexpr std::array<ClassRow, 9> kClasses = {{
    {TelegramComunication::kClassName, Over<TelegramComunication>},
    {RecordData::kClassName, Over<RecordData>},
    {TimeData::kClassName, Over<TimeData>},
    {FPrVersion::kClassName, Over<FPrVersion>},
    {MCFormatData::kClassName, Over<MCFormatData>},
    {Rings::kClassName, Over<Rings>},
    {component::UserData::kClassName, WithoutLine<component::UserData>},
    {component::TimeTemplate::kClassName, WithoutLine<component::TimeTemplate>},
    {component::T3Parameter::kClassName, WithoutLine<component::T3Parameter>},
}};

LinePointer NewLine(const char* const* devices)
{
    std::array<std::string, 4> names;
    for (std::size_t port = 0; port < names.size(); ++port)
        names.at(port) = devices[port] == nullptr ? "" : devices[port];
    return std::make_shared<TerminalLine>(std::move(names));
}

}  // namespace

component::Object* CreateObject(std::string_view class_name, const char* const* devices)
{
    // The objects are made one by one and nothing but this ties them together.
    static std::weak_ptr<TerminalLine> latest;
    const auto* const row = std::find_if(kClasses.begin(), kClasses.end(),
                                         [&](const ClassRow& r) { return r.name == class_name; });
    if (row == kClasses.end()) return nullptr;
    LinePointer line = latest.lock();
    if (line == nullptr || class_name == TelegramComunication::kClassName) {
        line = NewLine(devices);
        latest = line;
    }
    return row->make(line);
}

}  // namespace orlo::simulator
