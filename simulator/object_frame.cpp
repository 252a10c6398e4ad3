#include "simulator/object_frame.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace orlo::simulator
{

namespace
{

constexpr std::size_t kHeader = 9;
constexpr std::size_t kCrc = 2;
constexpr std::size_t kLength = 2;

unsigned ByteAt(std::string_view bytes, std::size_t offset)
{
    return static_cast<unsigned char>(bytes[offset]);
}

std::uint16_t WordAt(std::string_view bytes, std::size_t offset)
{
    return static_cast<std::uint16_t>(ByteAt(bytes, offset) | ByteAt(bytes, offset + 1) << 8U);
}

void AppendWord(std::string& bytes, std::uint16_t word)
{
    bytes += static_cast<char>(word & 0xFFU);
    bytes += static_cast<char>(word >> 8U);
}

char HeaderCheck(std::string_view header)
{
    const auto add = [](unsigned sum, char c) { return sum + static_cast<unsigned char>(c); };
    return static_cast<char>(255U - std::accumulate(header.begin(), header.end(), 0U, add) % 256U);
}

bool SoundHeader(std::string_view bytes)
{
    return HeaderCheck(bytes.substr(0, kHeader - 1)) == bytes[kHeader - 1] &&
           WordAt(bytes, 6) <= kLongestBody;
}

std::optional<std::vector<std::string>> FieldsOf(std::string_view body)
{
    std::vector<std::string> fields;
    while (!body.empty()) {
        if (body.size() < kLength) return std::nullopt;
        const std::size_t length = WordAt(body, 0);
        if (body.size() - kLength < length) return std::nullopt;
        fields.emplace_back(body.substr(kLength, length));
        body.remove_prefix(kLength + length);
    }
    return fields;
}

std::optional<ObjectMessage> Open(std::string_view frame)
{
    const std::string_view covered = frame.substr(0, frame.size() - kCrc);
    if (Crc16(covered) != WordAt(frame, covered.size())) return std::nullopt;
    std::optional<std::vector<std::string>> fields = FieldsOf(covered.substr(kHeader));
    if (!fields) return std::nullopt;
    return ObjectMessage{static_cast<std::uint8_t>(ByteAt(frame, 1)),
                         static_cast<std::int16_t>(WordAt(frame, 2)),
                         static_cast<std::int16_t>(WordAt(frame, 4)), std::move(*fields)};
}

}  // namespace

std::uint16_t Crc16(std::string_view bytes)
{
    unsigned crc = 0xFFFF;
    for (const char c : bytes) {
        crc ^= static_cast<unsigned>(static_cast<unsigned char>(c)) << 8U;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000U) != 0 ? (crc << 1U ^ 0x1021U) & 0xFFFFU : crc << 1U;
    }
    return static_cast<std::uint16_t>(crc);
}

std::optional<std::string> ObjectFrame(FrameKind kind, const ObjectMessage& message)
{
    std::string body;
    for (const std::string& field : message.fields) {
        if (field.size() > kLongestBody) return std::nullopt;
        AppendWord(body, static_cast<std::uint16_t>(field.size()));
        body += field;
    }
    if (body.size() > kLongestBody) return std::nullopt;
    std::string frame{static_cast<char>(kind), static_cast<char>(message.sequence)};
    AppendWord(frame, static_cast<std::uint16_t>(message.terminal));
    AppendWord(frame, static_cast<std::uint16_t>(message.priority));
    AppendWord(frame, static_cast<std::uint16_t>(body.size()));
    frame += HeaderCheck(frame);
    frame += body;
    AppendWord(frame, Crc16(frame));
    return frame;
}

std::optional<ObjectMessage> ObjectFrameReader::Take(char byte)
{
    collected_ += byte;
    for (;;) {
        collected_.erase(0, collected_.find(static_cast<char>(kind_)));
        if (collected_.size() < kHeader) return std::nullopt;
        if (SoundHeader(collected_)) {
            const std::size_t size = kHeader + WordAt(collected_, 6) + kCrc;
            if (collected_.size() < size) return std::nullopt;
            if (std::optional<ObjectMessage> message =
                    Open(std::string_view(collected_).substr(0, size))) {
                collected_.erase(0, size);
                return message;
            }
        }
        collected_.erase(0, 1);
    }
}

}  // namespace orlo::simulator
