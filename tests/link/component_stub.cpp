// A protocol component for the tests of its loader. It notes in the file named by ORLO_STUB_LOG
// what is made, destroyed and unloaded, and is spoilt in one way per build:
//
//   STUB_VERSION=2          made for another version of the interface
//   STUB_WITHOUT_INTERFACE  does not export OrloComponentInterface
//   STUB_WITHOUT_CREATE     does not export OrloCreateObject
//   STUB_LACKS="Rings"      has no such class
//   STUB_MIXES_UP="Rings"   makes an object of another class under this name
//   STUB_THROWS="TimeData"  cannot make an object of this class
//   STUB_THROWS_NUMBER="…"  cannot either, and throws no std::exception

#include "simulator/component/fpr_version.h"
#include "simulator/component/mc_format_data.h"
#include "simulator/component/record_data.h"
#include "simulator/component/rings.h"
#include "simulator/component/telegram_comunication.h"
#include "simulator/component/time_data.h"

#include <cstdlib>
#include <fstream>
#include <map>
#include <stdexcept>

#ifndef STUB_VERSION
#define STUB_VERSION 1
#endif
#ifndef STUB_LACKS
#define STUB_LACKS "-"
#endif
#ifndef STUB_MIXES_UP
#define STUB_MIXES_UP "-"
#endif
#ifndef STUB_THROWS
#define STUB_THROWS "-"
#endif
#ifndef STUB_THROWS_NUMBER
#define STUB_THROWS_NUMBER "-"
#endif

namespace
{

using namespace orlo;

void Note(const std::string& event)
{
    if (const char* const file = std::getenv("ORLO_STUB_LOG"))
        std::ofstream(file, std::ios::app) << event << "\n";
}

struct Unloading {
    ~Unloading() { Note("unloaded"); }
} unloading;

std::shared_ptr<simulator::TerminalLine> NoLine()
{
    return std::make_shared<simulator::TerminalLine>(std::array<std::string, 4>{});
}

template <class Class>
class Noted : public Class
{
public:
    Noted() { Note(std::string("made ") + Class::kClassName); }
    ~Noted() override { Note(std::string("destroyed ") + Class::kClassName); }
    Noted(const Noted&) = delete;
    Noted& operator=(const Noted&) = delete;
};

template <class Class>
class OverNoLine : public Class
{
public:
    OverNoLine() : Class(NoLine()) {}
};

template <class Class>
component::Object* Make()
{
    return new Noted<Class>;
}

using Maker = component::Object* (*)();

const std::map<std::string, Maker, std::less<>> kMakers = {
    {"TelegramComunication", Make<OverNoLine<simulator::TelegramComunication>>},
    {"RecordData", Make<OverNoLine<simulator::RecordData>>},
    {"TimeData", Make<OverNoLine<simulator::TimeData>>},
    {"FPrVersion", Make<OverNoLine<simulator::FPrVersion>>},
    {"MCFormatData", Make<OverNoLine<simulator::MCFormatData>>},
    {"Rings", Make<OverNoLine<simulator::Rings>>},
    {"UserData", Make<component::UserData>},
    {"TimeTemplate", Make<component::TimeTemplate>},
    {"T3Parameter", Make<component::T3Parameter>},
};

}  // namespace

#ifndef STUB_WITHOUT_INTERFACE
extern "C" std::int32_t OrloComponentInterface()
{
    return STUB_VERSION;
}
#endif

#ifndef STUB_WITHOUT_CREATE
extern "C" component::Object* OrloCreateObject(const char* class_name, const char* const* devices)
{
    const std::string_view name = class_name;
    if (name == STUB_LACKS) return nullptr;
    if (name == STUB_MIXES_UP) return Make<component::UserData>();
    if (name == STUB_THROWS) throw std::runtime_error("licenza scaduta");
    if (name == STUB_THROWS_NUMBER) throw 7;
    if (name == "TelegramComunication")
        for (int port = 0; port < 4; ++port) Note(std::string("device ") + devices[port]);
    return kMakers.find(name)->second();
}
#endif
