// Acquires a thousand punches over a line of 19200 bit/s with the real program and compares the
// time with that which the bytes need on the line, 10 bits each, both directions:
//
//   acquisition_benchmark [punches [bits per second]]
//
// The line is measured from its first byte to its last by the program's own trace; the processor
// and the whole process in a run of its own, because the trace itself costs time.

#include "tests/end_to_end/installation.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace
{

using namespace orlo::end_to_end;

constexpr double kBitsPerByte = 10;

struct Measured {
    double seconds = 0;
    double processor_seconds = 0;
};

/// What went over the line, by a trace.
struct Traffic {
    std::size_t bytes = 0;
    double seconds = 0;
};

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Measured Acquire(const Installation& installation, std::size_t punches, int speed,
                 const std::vector<std::string>& more)
{
    const auto line = installation.Simulate(
        {"--terminale", "numero=4,modello=Strale,timbrature=" + std::to_string(punches),
         "--velocita", std::to_string(speed)});
    std::vector<std::string> arguments = {"--acquisisci", "4", "--file", "nuove.txt"};
    arguments.insert(arguments.end(), more.begin(), more.end());

    const auto start = std::chrono::steady_clock::now();
    const Ended ended = installation.Run(arguments);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    if (ended.status != 0) throw std::runtime_error(ended.errors);
    if (line->State("4.da_acquisire") != "0") throw std::runtime_error("punches are left");
    return {elapsed.count(), Seconds(ended.used.ru_utime) + Seconds(ended.used.ru_stime)};
}

/// Seconds since midnight of "2026-03-05 14:07:09,123 …".
double TimeOf(const std::string& line)
{
    const auto number = [&](std::size_t at, std::size_t length) {
        return std::atof(line.substr(at, length).c_str());
    };
    return number(11, 2) * 3600 + number(14, 2) * 60 + number(17, 2) + number(20, 3) / 1000;
}

/// A line of the trace: 24 characters of time, "COM1 > " and a blank, 16 bytes of 3 characters.
Traffic TrafficOf(const std::string& trace)
{
    constexpr std::size_t kFirstByte = 32;
    Traffic traffic;
    double first = 0;
    double last = 0;
    std::istringstream lines(trace);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream bytes(line.substr(kFirstByte, 16 * 3));
        for (std::string byte; bytes >> byte;) ++traffic.bytes;
        last = TimeOf(line);
        if (first == 0) first = last;
    }
    traffic.seconds = last - first;
    return traffic;
}

void Report(const char* what, double seconds, double line_seconds)
{
    std::printf("%-34s %8.3f s   ratio %.4f\n", what, seconds, seconds / line_seconds);
}

}  // namespace

int main(int argc, char** argv)
{
    const std::size_t punches = argc > 1 ? static_cast<std::size_t>(std::atoi(argv[1])) : 1000;
    const int speed = argc > 2 ? std::atoi(argv[2]) : 19200;
    const Installation installation;
    installation.Register({{.terminal = 4, .speed = speed}});

    const Measured traced = Acquire(installation, punches, speed, {"--traccia", "traccia"});
    const Traffic traffic = TrafficOf(installation.Read("traccia"));
    const Measured plain = Acquire(installation, punches, speed, {});
    const double line_seconds = static_cast<double>(traffic.bytes) * kBitsPerByte / speed;

    std::printf("%zu punches, %zu bytes at %d bit/s\n", punches, traffic.bytes, speed);
    Report("time that the bytes need", line_seconds, line_seconds);
    Report("first to last byte, with a trace", traffic.seconds, line_seconds);
    Report("whole process, with a trace", traced.seconds, line_seconds);
    Report("whole process", plain.seconds, line_seconds);
    std::printf("%-34s %8.3f s   %.2f %% of the process's time\n", "processor",
                plain.processor_seconds, 100 * plain.processor_seconds / plain.seconds);
    return 0;
}
