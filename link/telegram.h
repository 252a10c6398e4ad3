#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orlo
{

// A request as sent on the line, and the answer as found in the received text. Every character is
// one byte; the address and the checksum are above 127 and pass through no text codec.
//
//   position  length  request                     answer
//   1         1       STX, 2                      SOH, 1
//   2         1       128 + terminal number       address, not checked
//   3         n       command text                data
//   3 + n     1       checksum of all before it   checksum of all before it
//   4 + n     1       CR, 13                      CR, 13
//
// What stands before the SOH or after the CR of an answer is ignored.

/// Results of an exchange that are not the data of an answer.
inline constexpr std::string_view kTimeout = "TIMEOUT";
inline constexpr std::string_view kRxError = "RX ERROR";

/// Whether an exchange brought the data of an answer: neither kTimeout nor kRxError.
inline bool IsAnswer(std::string_view result)
{
    return result != kTimeout && result != kRxError;
}

/// Checksum of a telegram: 128 plus the sum of all bytes, reduced to 7 bits after each addition.
/// The result is 128..255, so it can never be taken for CR.
std::uint8_t TelegramChecksum(std::string_view bytes);

/// The request frame. Terminal 1 and "03" give the bytes 2, 129, 48, 51, 230, 13.
std::string BuildRequestFrame(int terminal_number, std::string_view command);

/// True when the received text holds the end of an answer.
bool HoldsCompleteAnswer(std::string_view received);

/// The data of the answer in the received text, or kRxError when there is no well-formed frame or
/// its checksum is wrong. The terminal number is accepted and not used: on this line the answer of
/// any terminal is taken.
std::string ParseAnswerFrame(int terminal_number, std::string_view received);

}  // namespace orlo
