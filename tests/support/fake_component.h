#pragma once

#include "link/component_objects.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orlo::testing
{

/// A punch in the memory of the terminal behind the component.
struct FakeRecord {
    std::string Type = "Presenze";
    std::string Date = "15/03/2006";
    std::string Time = "08:30";
    std::string Direction = "Entrata";
    std::string IdNumber = "123456";
    std::string TerminalNo = "4";
    std::int32_t PersonalCause = 0;
    bool Deleted = false;
    std::string Cause;
};

/// A protocol component with one terminal in memory. Every call is kept in `calls`, written as
/// "GetNextRecord(7, \"6\")"; reads of properties are not. Whatever `on_call` throws comes out of
/// the component.
class FakeComponent
{
public:
    std::vector<std::string> calls;
    std::function<void(const std::string& call)> on_call;

    std::vector<FakeRecord> records;
    /// Codes of GetNextRecord calls that fail, before it delivers.
    std::deque<std::string> failing_fetches;
    /// Codes of GetRecordsInfo calls that fail; an empty one succeeds.
    std::deque<std::string> records_info;
    /// Whether GetNextRecord goes on behind the record that it delivered last, or begins with the
    /// oldest that is not marked.
    bool moves_on = true;
    bool takes_marks = true;
    std::string mark_failure = "99,Time Out";
    std::int32_t max_records = 1000;
    std::optional<std::int32_t> free_records;
    std::optional<std::int32_t> trasmitted_records;

    /// How many records GetNumber tells of, when these are not those in memory; its code when it
    /// fails.
    std::optional<std::int32_t> told_records;
    std::string number_failure;
    /// Codes of GetRecord calls; an empty one delivers.
    std::deque<std::string> record_failures;

    /// What ReceivedData and ReceivedCommand of a telegram return.
    std::string received_data;
    std::string received_command;

    /// What ReceiveString returns, one text a call; nothing behind the last.
    std::deque<std::string> received_texts;
    /// SendTelegram is acknowledged at this try, counted from 1; 0 never.
    int acknowledged_try = 1;

    /// The objects that this program calls; they must not outlive this one.
    std::unique_ptr<ComponentObjects> Make()
    {
        auto objects = std::make_unique<ComponentObjects>();
        objects->TelegramObject = std::make_unique<Telegram>(*this);
        objects->RecordDataObject = std::make_unique<Record>(*this);
        return objects;
    }

    /// A call that is made now.
    void Call(std::string call)
    {
        calls.push_back(std::move(call));
        if (on_call) on_call(std::string(calls.back()));
    }

    std::vector<std::string> CallsOf(const std::string& member) const
    {
        std::vector<std::string> found;
        for (const std::string& call : calls)
            if (call.starts_with(member + "(")) found.push_back(call);
        return found;
    }
    int Marked() const
    {
        int marked = 0;
        for (const FakeRecord& record : records) marked += record.Deleted ? 1 : 0;
        return marked;
    }

private:
    static std::string Quoted(const std::string& text) { return '"' + text + '"'; }
    static std::string Both(std::int16_t terminal, std::int16_t priority)
    {
        return std::to_string(terminal) + ", " + std::to_string(priority);
    }

    class Telegram : public component::TelegramComunication
    {
    public:
        explicit Telegram(FakeComponent& fake) : fake_(fake) {}
        void OpenComunication(std::int16_t& port, std::int32_t& speed) override
        {
            fake_.Call("OpenComunication(" + std::to_string(port) + ", " + std::to_string(speed) +
                       ")");
            port = -1;
            speed = -1;
        }
        void endcomunication() override { fake_.Call("endcomunication()"); }
        void DTR(bool raised) override { fake_.Call(raised ? "DTR(true)" : "DTR(false)"); }
        void SendString(const std::string& text) override
        {
            fake_.Call("SendString(" + Quoted(text) + ")");
        }
        std::string ReceiveString(std::int32_t longest, bool at_once,
                                  const char* terminator) override
        {
            fake_.Call("ReceiveString(" + std::to_string(longest) +
                       (at_once ? ", true" : ", false") + (terminator == nullptr ? ")" : ", …)"));
            if (fake_.received_texts.empty()) return {};
            std::string text = fake_.received_texts.front();
            fake_.received_texts.pop_front();
            return text;
        }
        bool SendTelegram(std::int16_t& terminal, std::int16_t& priority, std::string& command,
                          std::string& answer) override
        {
            fake_.Call("SendTelegram(" + Both(terminal, priority) + ", " + Quoted(command) + ", " +
                       Quoted(answer) + ")");
            terminal = -1;
            priority = -1;
            command = answer = "spoilt";
            return ++tries_ == fake_.acknowledged_try;
        }
        std::string ReceivedData() override { return fake_.received_data; }
        std::string ReceivedCommand() override { return fake_.received_command; }

    private:
        FakeComponent& fake_;
        int tries_ = 0;
    };

    class Record : public component::RecordData
    {
    public:
        explicit Record(FakeComponent& fake) : fake_(fake) {}
        bool GetRecordsInfo(std::int16_t& terminal, std::int16_t& priority) override
        {
            fake_.Call("GetRecordsInfo(" + Both(terminal, priority) + ")");
            terminal = priority = -1;
            if (fake_.records_info.empty()) return true;
            code_ = fake_.records_info.front();
            fake_.records_info.pop_front();
            return code_.empty();
        }
        std::int32_t MaxRecords() override { return fake_.max_records; }
        std::int32_t FreeRecords() override
        {
            return fake_.free_records.value_or(fake_.max_records -
                                               static_cast<std::int32_t>(fake_.records.size()));
        }
        std::int32_t TrasmittedRecords() override
        {
            return fake_.trasmitted_records.value_or(fake_.Marked());
        }
        bool GetNumber(std::int16_t& terminal, std::int16_t& priority) override
        {
            fake_.Call("GetNumber(" + Both(terminal, priority) + ")");
            terminal = priority = -1;
            code_ = fake_.number_failure;
            return code_.empty();
        }
        std::int32_t Records() override
        {
            return fake_.told_records.value_or(static_cast<std::int32_t>(fake_.records.size()));
        }
        bool GetFirstRecord(std::int16_t&, std::int16_t&) override { return false; }
        bool GetNextRecord(std::int16_t& terminal, const std::string& priority) override
        {
            fake_.Call("GetNextRecord(" + std::to_string(terminal) + ", " + Quoted(priority) + ")");
            terminal = -1;
            if (!fake_.failing_fetches.empty()) {
                code_ = fake_.failing_fetches.front();
                fake_.failing_fetches.pop_front();
                return false;
            }
            std::size_t next = fake_.moves_on ? next_ : 0;
            while (next < fake_.records.size() && fake_.records[next].Deleted) ++next;
            code_ = "ER";
            if (next == fake_.records.size()) return false;
            current_ = next;
            next_ = next + 1;
            return true;
        }
        bool GetRecord(std::int16_t& terminal, std::int16_t& priority2,
                       std::int16_t& number) override
        {
            fake_.Call("GetRecord(" + Both(terminal, priority2) + ", " + std::to_string(number) +
                       ")");
            const std::size_t wanted = static_cast<std::size_t>(number) - 1;
            terminal = priority2 = number = -1;
            code_ = wanted < fake_.records.size() ? "" : "ER";
            if (!fake_.record_failures.empty()) {
                code_ = fake_.record_failures.front();
                fake_.record_failures.pop_front();
            }
            if (!code_.empty()) return false;
            current_ = wanted;
            return true;
        }
        bool SetAsDeleted() override
        {
            fake_.Call("SetAsDeleted()");
            code_ = fake_.mark_failure;
            if (fake_.takes_marks) fake_.records.at(current_).Deleted = true;
            return fake_.takes_marks;
        }
        std::string TerminalNo() override { return Current().TerminalNo; }
        std::string IdNumber() override { return Current().IdNumber; }
        std::string Date() override { return Current().Date; }
        std::string Time() override { return Current().Time; }
        std::string Type() override { return Current().Type; }
        std::string Direction() override { return Current().Direction; }
        std::string Cause() override { return Current().Cause; }
        std::int32_t PersonalCause() override { return Current().PersonalCause; }
        bool Deleted() override { return Current().Deleted; }
        std::string ReceivedCommand() override { return code_; }

    private:
        const FakeRecord& Current() const { return fake_.records.at(current_); }

        FakeComponent& fake_;
        std::string code_;
        std::size_t current_ = 0;
        std::size_t next_ = 0;
    };
};

}  // namespace orlo::testing
