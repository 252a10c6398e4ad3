#pragma once

#include "registry/contenitore_controls.h"
#include "tests/end_to_end/desk_on_a_line.h"
#include "tests/support/test_workstation.h"

#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace orlo::end_to_end
{

struct Model {
    const char* test_name;
    const char* name;
    int type;
    bool serial;
};

inline void PrintTo(const Model& model, std::ostream* out)
{
    *out << model.name;
}

inline const Model kModels[] = {
    {"Orlo", "Orlo", 1, false},       {"Sipa", "Sipa", 2, false},
    {"OrloII", "Orlo II", 3, true},   {"Strale", "Strale", 4, true},
    {"StraleN", "Strale N", 5, true}, {"Lumo", "Lumo", 6, true},
    {"OrloTre", "OrloTre", 7, true},  {"SuperStrale", "SuperStrale", 8, true},
};

/// The models that are reached by telegrams, or those behind the component.
inline std::vector<Model> ModelsOnLine(bool serial)
{
    std::vector<Model> models;
    std::ranges::copy_if(kModels, std::back_inserter(models),
                         [serial](const Model& model) { return model.serial == serial; });
    return models;
}

/// The program's own window, with its buttons wired, over a simulated line with terminal 7.
class WindowOnALine : public ::testing::TestWithParam<Model>
{
protected:
    const Installation installation;
    std::unique_ptr<SimulatedLine> line;
    orlo::testing::FakeDialog dialog;
    NoTrace trace;
    std::unique_ptr<Desk> desk;

    ~WindowOnALine() override { EndProgram(); }

    /// The simulated terminal, with these settings and these arguments behind it, and the program.
    void Start(const std::string& settings, std::vector<std::string> more = {})
    {
        std::vector<std::string> arguments = {
            "--terminale", std::string("numero=7,modello=") + GetParam().name + settings};
        arguments.insert(arguments.end(), more.begin(), more.end());
        line = installation.Simulate(arguments);
        installation.Register({{.terminal = 7, .type = GetParam().type}});
        StartProgram();
    }
    void StartProgram()
    {
        desk = DeskOnALine(installation, 7, dialog, trace);
        desk->Window().show();
    }
    void EndProgram()
    {
        if (desk) CloseRegister(desk->State());
        desk.reset();
    }

    QString Path(const char* name) const { return PathOf(installation, name); }
    const Ui::Contenitore& Controls() { return desk->Window().Controls(); }
};

}  // namespace orlo::end_to_end
