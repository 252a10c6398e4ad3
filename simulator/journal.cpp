#include "simulator/journal.h"

#include "simulator/digits.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <fstream>
#include <memory>
#include <system_error>

namespace orlo::simulator
{

namespace
{

std::string Printable(std::string_view bytes)
{
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const unsigned value = static_cast<unsigned char>(c);
        if (value >= 32 && value < 127 && c != '\\') {
            text += c;
        } else {
            text += "\\x";
            text += kHexDigits[value / 16];
            text += kHexDigits[value % 16];
        }
    }
    return text;
}

std::string LocalTimestamp()
{
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() %
        1000;
    std::tm broken_down{};
    localtime_r(&seconds, &broken_down);
    std::array<char, 32> text{};
    const std::size_t length =
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &broken_down);
    return std::string(text.data(), length) + "." + Digits(milliseconds, 3);
}

}  // namespace

std::string JournalLine(std::string_view time, const JournalEntry& entry)
{
    return std::string(time) + "\t" + Digits(entry.address, 2) + "\t" + Printable(entry.command) +
           "\t" + entry.deed + "\t" + Printable(entry.answer);
}

Journal FileJournal(const std::string& path)
{
    const auto file = std::make_shared<std::ofstream>(path, std::ios::app);
    if (!*file) throw std::system_error(errno, std::generic_category(), path);
    return [file](const JournalEntry& entry) {
        *file << JournalLine(LocalTimestamp(), entry) << std::endl;
    };
}

}  // namespace orlo::simulator
