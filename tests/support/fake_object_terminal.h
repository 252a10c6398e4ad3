#pragma once

#include "tests/support/fake_component.h"

#include <array>
#include <cmath>

namespace orlo::testing
{

/// What the fake component's terminal says about itself, its clock and its badge layout. Calls are
/// kept in the component's list; a call fails with its code when that is not empty.
class FakeObjectTerminal
{
public:
    FakeComponent component;
    std::string last_build = "ABCDEFGHIJ";
    std::string version_failure;

    std::string terminal_time = "08:00:03";
    std::string terminal_date = "05/03/2026";
    std::string pc_time = "08:00:00";
    std::string pc_date = "05/03/2026";
    std::string clock_read_failure;
    std::string clock_set_failure;

    struct Field {
        double start = 0;
        double length = 0;
        double preset = -1;  ///< FieldDefault
        bool operator==(const Field&) const = default;
    };
    std::array<Field, 3> fields{{{1, 4}, {5, 3}, {8, 6}}};
    std::string card_name = "Tessera aziendale";
    double card_length = 16;
    bool bidirectional = true;
    std::string badge_failure;
    /// Writes of the layout's properties, and its transfers, in their order.
    std::vector<std::string> badge_calls;

    /// The component with all that this terminal knows; must not outlive it.
    std::unique_ptr<ComponentObjects> Make()
    {
        auto objects = component.Make();
        objects->FPrVersionObject = std::make_unique<Version>(*this);
        objects->TimeDataObject = std::make_unique<TimeObject>(*this);
        objects->MCFormatDataObject = std::make_unique<Format>(*this);
        return objects;
    }

private:
    /// Spoils what is passed by reference, as an automation component may.
    void Call(const std::string& member, std::int16_t& terminal, std::int16_t& priority)
    {
        component.Call(member + "(" + std::to_string(terminal) + ", " + std::to_string(priority) +
                       ")");
        terminal = priority = -1;
    }

    class Version : public component::FPrVersion
    {
    public:
        explicit Version(FakeObjectTerminal& fake) : fake_(fake) {}
        bool Receive(std::int16_t& terminal, std::int16_t& priority) override
        {
            fake_.Call("FPrVersion.Receive", terminal, priority);
            return fake_.version_failure.empty();
        }
        std::string LastBuild() override { return fake_.last_build; }
        std::string ReceivedCommand() override { return fake_.version_failure; }

    private:
        FakeObjectTerminal& fake_;
    };

    class TimeObject : public component::TimeData
    {
    public:
        explicit TimeObject(FakeObjectTerminal& fake) : fake_(fake) {}
        bool Receive(std::int16_t& terminal, std::int16_t& priority) override
        {
            fake_.Call("TimeData.Receive", terminal, priority);
            code_ = fake_.clock_read_failure;
            time_ = fake_.terminal_time;
            date_ = fake_.terminal_date;
            return code_.empty();
        }
        bool Send(std::int16_t& terminal, std::int16_t& priority) override
        {
            fake_.Call("TimeData.Send", terminal, priority);
            code_ = fake_.clock_set_failure;
            if (!code_.empty()) return false;
            fake_.terminal_time = time_;
            fake_.terminal_date = date_;
            return true;
        }
        void GetSystem() override
        {
            fake_.component.Call("TimeData.GetSystem()");
            time_ = fake_.pc_time;
            date_ = fake_.pc_date;
        }
        std::string Time() override { return time_; }
        std::string Date() override { return date_; }
        std::string ReceivedCommand() override { return code_; }

    private:
        FakeObjectTerminal& fake_;
        std::string time_;
        std::string date_;
        std::string code_;
    };

    class Format : public component::MCFormatData
    {
    public:
        explicit Format(FakeObjectTerminal& fake) : fake_(fake) {}
        bool Receive(std::int16_t& terminal, std::int16_t& priority) override
        {
            fake_.Call("MCFormatData.Receive", terminal, priority);
            fake_.badge_calls.emplace_back("Receive");
            return fake_.badge_failure.empty();
        }
        bool Send(std::int16_t& terminal, std::int16_t& priority) override
        {
            fake_.Call("MCFormatData.Send", terminal, priority);
            fake_.badge_calls.emplace_back("Send");
            return fake_.badge_failure.empty();
        }
        void FieldIndex(std::int16_t index) override
        {
            fake_.badge_calls.push_back("FieldIndex " + std::to_string(index));
            index_ = static_cast<std::size_t>(index);
        }
        double FieldStart() override { return fake_.fields.at(index_).start; }
        void FieldStart(double position) override
        {
            Write("FieldStart", fake_.fields.at(index_).start, position);
        }
        double FieldLen() override { return fake_.fields.at(index_).length; }
        void FieldLen(double length) override
        {
            Write("FieldLen", fake_.fields.at(index_).length, length);
        }
        void FieldDefault(double value) override
        {
            Write("FieldDefault", fake_.fields.at(index_).preset, value);
        }
        std::string IDName() override { return fake_.card_name; }
        void IDName(const std::string& name) override
        {
            fake_.badge_calls.push_back("IDName " + name);
            fake_.card_name = name;
        }
        double Len() override { return fake_.card_length; }
        void Len(double length) override { Write("Len", fake_.card_length, length); }
        bool Bidirectional() override { return fake_.bidirectional; }
        void Bidirectional(bool both) override
        {
            fake_.badge_calls.emplace_back(both ? "Bidirectional true" : "Bidirectional false");
            fake_.bidirectional = both;
        }
        std::string ReceivedCommand() override { return {}; }
        std::string geterror() override
        {
            fake_.component.Call("MCFormatData.geterror()");
            return fake_.badge_failure;
        }

    private:
        void Write(const char* property, double& value, double written)
        {
            fake_.badge_calls.push_back(std::string(property) + " " +
                                        std::to_string(std::lround(written)));
            value = written;
        }

        FakeObjectTerminal& fake_;
        std::size_t index_ = 0;
    };
};

}  // namespace orlo::testing
