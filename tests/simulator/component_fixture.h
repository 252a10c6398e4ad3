#pragma once

#include "link/component_library.h"
#include "tests/simulator/simulator_process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orlo::simulator
{

/// The component, loaded as the program loads it, on COM1; COM2 is not assigned.
class Client
{
public:
    explicit Client(const std::string& device, std::int32_t speed = 9600)
        : objects_(LoadComponent(ORLO_COMPONENT_PATH, {device, "", "", ""}))
    {
        Open(1, speed);
    }

    void Open(std::int16_t port, std::int32_t speed = 9600)
    {
        objects_->TelegramObject->OpenComunication(port, speed);
    }

    component::TelegramComunication& Telegram() { return *objects_->TelegramObject; }
    component::RecordData& Records() { return *objects_->RecordDataObject; }
    component::TimeData& Time() { return *objects_->TimeDataObject; }
    component::FPrVersion& Version() { return *objects_->FPrVersionObject; }
    component::MCFormatData& Format() { return *objects_->MCFormatDataObject; }
    component::Rings& Rings() { return *objects_->RingsObject; }

    bool Status() { return Records().GetRecordsInfo(terminal, priority); }
    bool Next() { return Records().GetNextRecord(terminal, "1"); }
    bool Record(std::int16_t number) { return Records().GetRecord(terminal, priority, number); }
    bool Tell(std::string command, std::string& parameters)
    {
        return Telegram().SendTelegram(terminal, priority, command, parameters);
    }

    std::int16_t terminal = 4;
    std::int16_t priority = 1;

private:
    std::unique_ptr<ComponentObjects> objects_;
};

/// A simulated terminal 4 on a line of its own, and clients of it.
class ComponentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = testing::TempDir() + "/componente.XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string PathOf(const char* name) const { return (folder_ / name).string(); }
    std::string Line() const { return PathOf("linea"); }

    /// `terminal`: keys beside number and model.
    void StartTerminal(const std::string& terminal, std::vector<std::string> options = {})
    {
        std::vector<std::string> arguments = {"--collegamento", Line(),
                                              "--stato",        PathOf("stato"),
                                              "--terminale",    "numero=4,modello=Orlo" + terminal};
        arguments.insert(arguments.end(), options.begin(), options.end());
        simulator_.emplace(arguments);
        ASSERT_EQ(simulator_->Line(), "Pronto: " + Line());
    }

    SimulatorProcess& Simulator() { return *simulator_; }

    /// The state report of this moment.
    std::string State();

private:
    std::filesystem::path folder_;
    std::optional<SimulatorProcess> simulator_;
};

}  // namespace orlo::simulator
