#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orlo::simulator
{

//  offset  size  request to a terminal        answer of a terminal
//  0       1     STX, 2                       SOH, 1
//  1       1     128 + terminal number        128 + terminal number
//  2       n     command text                 data
//  2+n     1     checksum                     checksum
//  3+n     1     CR, 13                       CR, 13

inline constexpr char kSoh = '\x01';
inline constexpr char kStx = '\x02';
inline constexpr char kCr = '\x0D';

/// Number that addresses every terminal of the line; none answers to it.
inline constexpr int kAllTerminals = 0;

/// Sum of the bytes kept to 7 bits, with the eighth bit set: 128..255, never a CR.
std::uint8_t Checksum(std::string_view bytes);

/// The whole answer, ready for the line.
std::string AnswerFrame(int terminal, std::string_view data);

struct Telegram {
    /// False when the checksum or the address byte is wrong: a terminal keeps silent then.
    bool sound = false;
    /// 0 addresses all terminals; -1 when there was no address byte.
    int terminal = -1;
    std::string command;
};

/// Finds requests in what the line brings. Bytes before an STX are noise; an STX always begins
/// anew, because it occurs in no command text.
class RequestReader
{
public:
    /// The telegram that this byte completes, if it does.
    std::optional<Telegram> Take(char byte);

    void Forget();

private:
    bool inside_ = false;
    std::string collected_;  // from the STX
};

}  // namespace orlo::simulator
