#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orlo::simulator
{

//  offset  size  frame between the protocol component and an Orlo or Sipa terminal
//  0       1     E5 request, E6 answer
//  1       1     sequence number of the request, repeated by its answer
//  2       2     terminal number
//  4       2     priority
//  6       2     n, length of the body, at most 1024
//  8       1     255 minus the low byte of the sum of bytes 0..7
//  9       n     body: fields, each 2 bytes of length and its text
//  9+n     2     CRC-16 of everything before it: polynomial 1021, start FFFF, high bit first
//
// Numbers of two bytes have the low byte first. The header has a check of its own because a length
// that noise has spoilt would make the reader wait for bytes that never come.

enum class FrameKind : std::uint8_t { Request = 0xE5, Answer = 0xE6 };

inline constexpr std::size_t kLongestBody = 1024;

struct ObjectMessage {
    std::uint8_t sequence = 0;
    std::int16_t terminal = 0;
    std::int16_t priority = 0;
    /// Of a request its name and arguments, of an answer "OK" and data or the code of a failure.
    std::vector<std::string> fields;
};

std::uint16_t Crc16(std::string_view bytes);

/// The whole frame, ready for the line; nothing when the fields do not fit into a body.
std::optional<std::string> ObjectFrame(FrameKind kind, const ObjectMessage& message);

/// Finds the frames of one kind in what the line brings. Everything else is noise, and what looked
/// like a frame and was none is searched for the beginning of a real one.
class ObjectFrameReader
{
public:
    explicit ObjectFrameReader(FrameKind kind) : kind_(kind) {}

    /// The message that this byte completes, if it does.
    std::optional<ObjectMessage> Take(char byte);

    void Forget() { collected_.clear(); }

private:
    FrameKind kind_;
    std::string collected_;  // empty, or begins where a frame may begin
};

}  // namespace orlo::simulator
