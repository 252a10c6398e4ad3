#include "simulator/frame.h"

#include <numeric>

namespace orlo::simulator
{

namespace
{

// Longer than any command: what goes on without a CR is no request.
constexpr std::size_t kLongestRequest = 512;
constexpr std::size_t kShortestRequest = 3;  // STX, address, checksum
constexpr int kAddressBase = 128;

int ByteValue(char c)
{
    return static_cast<unsigned char>(c);
}

Telegram Open(std::string_view bytes)
{
    Telegram telegram;
    if (bytes.size() < kShortestRequest) return telegram;
    const std::string_view covered = bytes.substr(0, bytes.size() - 1);
    telegram.command = covered.substr(2);
    if (ByteValue(bytes[1]) < kAddressBase) return telegram;
    telegram.terminal = ByteValue(bytes[1]) - kAddressBase;
    telegram.sound = Checksum(covered) == ByteValue(bytes.back());
    return telegram;
}

}  // namespace

std::uint8_t Checksum(std::string_view bytes)
{
    const int sum = std::accumulate(bytes.begin(), bytes.end(), 0, [](int so_far, char c) {
        return (so_far + ByteValue(c)) % 128;
    });
    return static_cast<std::uint8_t>(128 + sum);
}

std::string AnswerFrame(int terminal, std::string_view data)
{
    std::string frame{kSoh, static_cast<char>(kAddressBase + terminal)};
    frame += data;
    frame += static_cast<char>(Checksum(frame));
    return frame + kCr;
}

std::optional<Telegram> RequestReader::Take(char byte)
{
    if (byte == kStx) {
        inside_ = true;
        collected_ = byte;
        return std::nullopt;
    }
    if (!inside_) return std::nullopt;
    if (byte == kCr) {
        const Telegram telegram = Open(collected_);
        Forget();
        return telegram;
    }
    collected_ += byte;
    if (collected_.size() > kLongestRequest) Forget();
    return std::nullopt;
}

void RequestReader::Forget()
{
    inside_ = false;
    collected_.clear();
}

}  // namespace orlo::simulator
