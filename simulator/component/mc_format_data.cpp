#include "simulator/component/mc_format_data.h"

#include "simulator/object_requests.h"

#include <charconv>

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kLayoutData = 12;

/// The shortest text of the value, "7" and "2.5".
std::string NumberText(double value)
{
    std::array<char, 32> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    return {text.data(), end};
}

}  // namespace

MCFormatData::Field& MCFormatData::Selected()
{
    const auto index = static_cast<std::size_t>(field_index_);
    if (index < fields_.size()) return fields_.at(index);
    nowhere_ = {};
    return nowhere_;
}

bool MCFormatData::Receive(std::int16_t& terminal, std::int16_t& priority)
{
    if (!transfer_.Ask(terminal, priority, {request::kReadFormat}, kLayoutData)) return false;
    const std::vector<std::string>& data = transfer_.Data();
    name_ = data[0];
    length_ = NumberIn(data[1]);
    bidirectional_ = data[2] == "1";
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const std::size_t first = 3 * (i + 1);
        fields_.at(i) = {static_cast<double>(NumberIn(data[first])),
                         static_cast<double>(NumberIn(data[first + 1])),
                         static_cast<double>(NumberIn(data[first + 2]))};
    }
    return true;
}

bool MCFormatData::Send(std::int16_t& terminal, std::int16_t& priority)
{
    std::vector<std::string> fields = {request::kSendFormat, name_, NumberText(length_),
                                       bidirectional_ ? "1" : "0"};
    for (const Field& field : fields_)
        for (const double value : {field.start, field.length, field.value})
            fields.push_back(NumberText(value));
    return transfer_.Ask(terminal, priority, std::move(fields), 0);
}

std::string MCFormatData::geterror()
{
    // "21,Errore linea": a number for programs, then the words.
    const std::size_t comma = transfer_.Code().find(',');
    return comma == std::string::npos ? transfer_.Code() : transfer_.Code().substr(comma + 1);
}

}  // namespace orlo::simulator
