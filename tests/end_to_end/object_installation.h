#pragma once

#include "tests/end_to_end/installation.h"

#include <gtest/gtest.h>

#include <ostream>

namespace orlo::end_to_end
{

/// The models that are reached through the protocol component.
struct ObjectModel {
    const char* name;
    int type;  // column TIPO
};

inline void PrintTo(const ObjectModel& model, std::ostream* out)
{
    *out << model.name;
}

inline std::string NameOf(const testing::TestParamInfo<ObjectModel>& model)
{
    return model.param.name;
}

inline constexpr ObjectModel kOrlo = {"Orlo", 1};
inline constexpr ObjectModel kSipa = {"Sipa", 2};

// Three punches in the simulator's words, and what they make of the punch file of terminal 6.
inline constexpr char kThreeRecords[] =
    "Presenze Entrata 101 00 7 15/03/2006 08:30\n"
    "Presenze Uscita 102 00 0 15/03/2006 12:45\n"
    "Presenze Entrata 103 00 99 16/03/2006 00:01\n";
inline const Lines kThreeLines = {
    "31200603150830000100000001010706",
    "31200603151245000200000001020006",
    "31200603160001000100000001039906",
};

/// Terminal 6, an Orlo or a Sipa without a delay, on COM1; the shipped component is the default.
class ObjectInstallation : public Installation
{
public:
    explicit ObjectInstallation(const ObjectModel& model, int layout = 0) : model_(model)
    {
        Register({{.terminal = 6, .type = model.type}}, Jet::k4, layout);
    }

    /// `records` and `more` in the simulator's words.
    std::unique_ptr<SimulatedLine> Simulate(const std::string& records,
                                            const std::vector<std::string>& more = {}) const
    {
        Write("record", records);
        std::vector<std::string> arguments = {
            "--terminale",
            std::string("numero=6,modello=") + model_.name + ",file=" + PathOf("record")};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Installation::Simulate(arguments);
    }

    Ended Acquire() const { return Run({"--acquisisci", "6"}); }

private:
    ObjectModel model_;
};

}  // namespace orlo::end_to_end
