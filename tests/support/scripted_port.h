#pragma once

#include "link/serial_port_control.h"
#include "tests/support/fake_clock.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace orlo::testing
{

/// Bytes that arrive some time after the request that they answer.
struct Arrival {
    std::chrono::milliseconds delay{0};
    std::string bytes;
};

/// A port without a device. Whatever is sent is kept in `sent` and answered by `answer_to`.
class ScriptedPort : public SerialPortControl
{
public:
    explicit ScriptedPort(FakeClock& clock) : clock_(clock) {}

    std::vector<std::string> sent;
    std::function<std::vector<Arrival>(std::string_view request)> answer_to;
    bool device_missing = false;
    bool line_lost = false;
    int times_opened = 0;
    /// What the program did with Handshaking, RTS and DTR: "RTS 0".
    std::vector<std::string> line_changes;
    /// "RTS", "DTR" or "Handshaking" that the system refuses.
    std::string refuses;

    /// Bytes on the line from now plus `delay` on.
    void Arrive(std::string bytes, std::chrono::milliseconds delay = {})
    {
        arrivals_.push_back({clock_.Passed() + delay, std::move(bytes)});
    }

    int CommPort() const override { return comm_port_; }
    bool SetCommPort(int port) override
    {
        comm_port_ = port;
        return port >= 1 && port <= 4;
    }
    std::string Settings() const override { return settings_; }
    bool SetSettings(std::string_view settings) override
    {
        settings_ = settings;
        return true;
    }
    bool PortOpen() const override { return open_; }
    bool SetPortOpen(bool open) override
    {
        if (open && device_missing) return false;
        if (open && !open_) ++times_opened;
        const bool was_open = open_;
        open_ = open;
        handshaking_ = kNoHandshaking;
        line_lost = line_lost && open;
        return open || was_open;
    }
    int Handshaking() const override { return handshaking_; }
    bool SetHandshaking(int handshaking) override
    {
        if (!Change("Handshaking", handshaking)) return false;
        handshaking_ = handshaking;
        return true;
    }
    bool SetRTSEnable(bool on) override { return Change("RTS", on ? 1 : 0); }
    bool SetDTREnable(bool on) override { return Change("DTR", on ? 1 : 0); }
    std::string LineError() const override { return line_error_; }
    std::size_t InBufferCount() override
    {
        while (!arrivals_.empty() && arrivals_.front().delay <= clock_.Passed()) {
            waiting_ += arrivals_.front().bytes;
            arrivals_.pop_front();
        }
        return waiting_.size();
    }
    void DiscardInput() override
    {
        InBufferCount();
        waiting_.clear();
    }
    std::string Input() override
    {
        InBufferCount();
        return std::exchange(waiting_, {});
    }
    void Output(std::string_view bytes) override
    {
        sent.emplace_back(bytes);
        if (!answer_to || line_lost) return;
        for (Arrival& arrival : answer_to(bytes)) Arrive(std::move(arrival.bytes), arrival.delay);
    }
    void WaitForInput(std::chrono::milliseconds longest) override
    {
        clock_.SleepUntilInput(*this, longest);
    }
    bool LineLost() const override { return line_lost; }

private:
    bool Change(const std::string& property, int value)
    {
        line_error_ = open_ && property != refuses ? "" : property + ": rifiutato";
        if (!line_error_.empty()) return false;
        line_changes.push_back(property + " " + std::to_string(value));
        return true;
    }

    FakeClock& clock_;
    int comm_port_ = 0;
    std::string settings_;
    bool open_ = false;
    int handshaking_ = kNoHandshaking;
    std::string line_error_;
    std::string waiting_;
    std::deque<Arrival> arrivals_;
};

}  // namespace orlo::testing
