#include "simulator/object_terminal.h"

#include "simulator/date_text.h"
#include "simulator/digits.h"
#include "simulator/object_requests.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orlo::simulator
{

namespace
{

constexpr std::string_view kPlantCommand = "@@,";
constexpr std::string_view kVersionCommand = "VERSIONE";
constexpr std::string_view kEchoCommand = "ECO";

ObjectReply Done(std::vector<std::string> data, std::string deed)
{
    data.insert(data.begin(), request::kDone);
    return {std::move(data), std::move(deed)};
}

ObjectReply Unknown()
{
    return {{"20,Comando sconosciuto"}, "comando sconosciuto"};
}

ObjectReply Refused()
{
    return {{"22,Valore errato"}, "valore rifiutato"};
}

ObjectReply NoRecord()
{
    return {{request::kNoRecord}, "nessun record"};
}

}  // namespace

struct ObjectTerminal::Known {
    std::string_view name;
    std::size_t arguments;
    Handler handler;
};

ObjectTerminal::ObjectTerminal(ObjectTerminalSettings settings, LocalClock machine)
    : settings_(std::move(settings)),
      records_(settings_.punches, settings_.marked),
      clock_(std::move(machine), settings_.clock_offset)
{
}

ObjectReply ObjectTerminal::Answer(std::span<const std::string> request)
{
    static constexpr std::array<Known, 13> kKnown = {{
        {request::kStatus, 0, &ObjectTerminal::Status},
        {request::kCount, 0, &ObjectTerminal::Count},
        {request::kRecord, 1, &ObjectTerminal::Record},
        {request::kNextRecord, 1, &ObjectTerminal::NextRecord},
        {request::kMark, 1, &ObjectTerminal::Mark},
        {request::kReadClock, 0, &ObjectTerminal::ReadClock},
        {request::kSetClock, 2, &ObjectTerminal::SetClock},
        {request::kVersion, 0, &ObjectTerminal::Version},
        {request::kReadFormat, 0, &ObjectTerminal::ReadLayout},
        {request::kSendFormat, 12, &ObjectTerminal::SendLayout},
        {request::kReadRings, 1, &ObjectTerminal::ReadRings},
        {request::kSendRing, 5, &ObjectTerminal::SendRing},
        {request::kTelegram, 2, &ObjectTerminal::Telegram},
    }};
    if (request.empty()) return Unknown();
    const auto* const known = std::find_if(
        kKnown.begin(), kKnown.end(), [&](const Known& k) { return k.name == request.front(); });
    if (known == kKnown.end() || known->arguments != request.size() - 1) return Unknown();
    return (this->*known->handler)(request.subspan(1));
}

ObjectReply ObjectTerminal::Status(Arguments /*none*/)
{
    const std::size_t free = settings_.capacity - records_.Held();
    return Done({std::to_string(settings_.capacity), std::to_string(free),
                 std::to_string(records_.Marked())},
                "stato della memoria");
}

ObjectReply ObjectTerminal::Count(Arguments /*none*/)
{
    return Done({std::to_string(records_.Held())}, "numero dei record");
}

ObjectReply ObjectTerminal::Record(Arguments arguments)
{
    const int number = NumberOf(arguments[0]).value_or(0);
    return records_.Has(number) ? RecordReply(number) : NoRecord();
}

ObjectReply ObjectTerminal::NextRecord(Arguments arguments)
{
    const std::optional<int> number = records_.NextUnmarked(NumberOf(arguments[0]).value_or(1));
    return number ? RecordReply(*number) : NoRecord();
}

ObjectReply ObjectTerminal::RecordReply(int number) const
{
    const ObjectPunch& punch = records_.At(number);
    return Done({std::to_string(number), std::to_string(Number()), punch.badge, DateText(punch.at),
                 TimeText(punch.at), punch.type, punch.direction, punch.cause,
                 std::to_string(punch.personal_cause), records_.IsMarked(number) ? "1" : "0"},
                "record " + std::to_string(number));
}

ObjectReply ObjectTerminal::Mark(Arguments arguments)
{
    const int number = NumberOf(arguments[0]).value_or(0);
    if (!records_.Has(number)) return NoRecord();
    records_.Mark(number);
    return Done({}, "acquisito " + std::to_string(number));
}

ObjectReply ObjectTerminal::ReadClock(Arguments /*none*/)
{
    const std::chrono::local_seconds now = clock_.Now();
    return Done({DateText(now), TimeText(now)}, "data e ora");
}

ObjectReply ObjectTerminal::SetClock(Arguments arguments)
{
    const std::optional<std::chrono::local_days> day = DateOf(arguments[0]);
    const std::optional<std::chrono::seconds> time = TimeOf(arguments[1]);
    if (!day || !time) return Refused();
    clock_.Set(*day + *time);
    return Done({}, "orologio regolato");
}

ObjectReply ObjectTerminal::Version(Arguments /*none*/)
{
    return Done({settings_.last_build}, "versione");
}

ObjectReply ObjectTerminal::ReadLayout(Arguments /*none*/)
{
    return Done(LayoutTexts(layout_), "formato badge");
}

ObjectReply ObjectTerminal::SendLayout(Arguments arguments)
{
    const std::optional<ObjectLayout> layout = LayoutOf(arguments);
    if (!layout) return Refused();
    layout_ = *layout;
    return Done({}, "formato badge memorizzato");
}

ObjectReply ObjectTerminal::ReadRings(Arguments arguments)
{
    const std::optional<std::string> text = week_.DayText(arguments[0]);
    return text ? Done({*text}, "suonerie del giorno " + arguments[0]) : Refused();
}

ObjectReply ObjectTerminal::SendRing(Arguments arguments)
{
    return week_.Put(arguments) ? Done({}, "suoneria " + arguments[0] + "/" + arguments[1])
                                : Refused();
}

ObjectReply ObjectTerminal::Telegram(Arguments arguments)
{
    const std::string& command = arguments[0];
    if (command.starts_with(kPlantCommand)) {
        if (command.substr(kPlantCommand.size()) == settings_.plant_code)
            return Done({""}, "codice impianto giusto");
        return {{"23,Codice impianto errato"}, "codice impianto errato"};
    }
    if (command == kVersionCommand) return Done({settings_.last_build}, "versione");
    if (command == kEchoCommand) return Done({arguments[1]}, "eco dei parametri");
    return Unknown();
}

}  // namespace orlo::simulator
