#pragma once

#include "link/protocol_component.h"
#include "simulator/component/transfer.h"

#include <array>

namespace orlo::simulator
{

class MCFormatData : public component::MCFormatData
{
public:
    explicit MCFormatData(std::shared_ptr<TerminalLine> line) : transfer_(std::move(line)) {}

    bool Receive(std::int16_t& terminal, std::int16_t& priority) override;
    bool Send(std::int16_t& terminal, std::int16_t& priority) override;
    void FieldIndex(std::int16_t index) override { field_index_ = index; }
    double FieldStart() override { return Selected().start; }
    void FieldStart(double position) override { Selected().start = position; }
    double FieldLen() override { return Selected().length; }
    void FieldLen(double length) override { Selected().length = length; }
    void FieldDefault(double value) override { Selected().value = value; }
    std::string IDName() override { return name_; }
    void IDName(const std::string& name) override { name_ = name; }
    double Len() override { return length_; }
    void Len(double length) override { length_ = length; }
    bool Bidirectional() override { return bidirectional_; }
    void Bidirectional(bool bidirectional) override { bidirectional_ = bidirectional; }
    std::string ReceivedCommand() override { return transfer_.Code(); }
    std::string geterror() override;

private:
    struct Field {
        double start = 0;
        double length = 0;
        double value = 0;
    };

    /// An index that there is not selects a field that goes nowhere.
    Field& Selected();

    Transfer transfer_;
    std::array<Field, 3> fields_;
    Field nowhere_;
    std::int16_t field_index_ = 0;
    std::string name_;
    double length_ = 0;
    bool bidirectional_ = false;
};

}  // namespace orlo::simulator
