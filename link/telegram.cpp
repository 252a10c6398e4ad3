#include "link/telegram.h"

namespace orlo
{

namespace
{

constexpr char kStx = 2;
constexpr char kSoh = 1;
constexpr char kCr = 13;
constexpr std::size_t kShortestAnswer = 4;  // SOH, address, checksum, CR

char Byte(int value)
{
    return static_cast<char>(static_cast<std::uint8_t>(value));
}

}  // namespace

std::uint8_t TelegramChecksum(std::string_view bytes)
{
    unsigned sum = 0;
    for (const char byte : bytes) sum = (sum + static_cast<std::uint8_t>(byte)) & 127U;
    return static_cast<std::uint8_t>(sum + 128U);
}

std::string BuildRequestFrame(int terminal_number, std::string_view command)
{
    std::string frame{kStx, Byte(128 + terminal_number)};
    frame += command;
    frame += Byte(TelegramChecksum(frame));
    frame += kCr;
    return frame;
}

bool HoldsCompleteAnswer(std::string_view received)
{
    return received.find(kCr) != std::string_view::npos;
}

std::string ParseAnswerFrame(int /*terminal_number*/, std::string_view received)
{
    const std::size_t start = received.find(kSoh);
    const std::size_t end = received.find(kCr);
    const bool well_formed = received.size() >= kShortestAnswer &&
                             start != std::string_view::npos && end != std::string_view::npos &&
                             start < end;
    if (!well_formed) return std::string(kRxError);

    const std::string_view checked = received.substr(start, end - start - 1);
    const auto checksum = static_cast<std::uint8_t>(received[end - 1]);
    if (TelegramChecksum(checked) != checksum) return std::string(kRxError);
    return std::string(checked.size() > 2 ? checked.substr(2) : std::string_view());
}

}  // namespace orlo
