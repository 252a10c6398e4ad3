#pragma once

#include <cstdint>
#include <string>

/// The boundary between the program and the library that speaks the protocol of the Orlo and Sipa
/// terminals. The terminals' maker, or whoever bridges to the maker's own component, builds a
/// shared library against this header alone; the program loads it at run time and needs no
/// rebuilding.
///
/// The library exports two functions with C linkage:
///
///     std::int32_t OrloComponentInterface();
///         returns kInterfaceVersion of the header that it was built with
///     orlo::component::Object* OrloCreateObject(const char* class_name,
///                                               const char* const devices[4]);
///         makes one object of the class with that name, e.g. "RecordData"; nullptr when the
///         library has no such class. `devices` are the names of the devices that stand for
///         COM1..COM4. The program calls it once for each class and deletes what it got before it
///         ends.
///
/// The program creates "TelegramComunication" first and the data classes after it, all in one
/// thread; the data classes work over the line that TelegramComunication has opened. Members and
/// classes are spelled as terminals' programs have always spelled them. Texts are Windows-1252
/// bytes. A property that can be read and written is a pair of members of its name.
///
/// `terminal` and `priority` are passed by reference because automation components take them so;
/// the program reads nothing back from them. A transfer returns true on success; after a false,
/// ReceivedCommand() is the code of the failure: "ER", "99,Time Out", or what the terminal said. A
/// member may throw a std::exception, which the program shows and survives.
namespace orlo::component
{

inline constexpr std::int32_t kInterfaceVersion = 1;
inline constexpr const char* kInterfaceFunction = "OrloComponentInterface";
inline constexpr const char* kCreateFunction = "OrloCreateObject";

class Object
{
public:
    virtual ~Object() = default;
};

using InterfaceFunction = std::int32_t (*)();
using CreateFunction = Object* (*)(const char* class_name, const char* const* devices);

/// The line, raw strings for a modem behind it, and telegrams of any content.
class TelegramComunication : public Object
{
public:
    static constexpr const char* kClassName = "TelegramComunication";

    /// `port` 1..4 at `speed` bit/s. A line that cannot be opened shows in the transfers after it.
    virtual void OpenComunication(std::int16_t& port, std::int32_t& speed) = 0;
    virtual void endcomunication() = 0;
    virtual void DTR(bool raised) = 0;

    virtual void SendString(const std::string& text) = 0;
    /// What has arrived, `longest` characters at most. With `at_once` it waits 10 ms at the most
    /// and returns the empty text when nothing came; otherwise a second. `terminator`: the text
    /// ends behind the first character of its kind; may be omitted.
    virtual std::string ReceiveString(std::int32_t longest, bool at_once,
                                      const char* terminator = nullptr) = 0;

    /// True when the terminal acknowledged. `answer` carries the parameters of the command in and
    /// the data of the answer out.
    virtual bool SendTelegram(std::int16_t& terminal, std::int16_t& priority, std::string& command,
                              std::string& answer) = 0;
    /// Data of the last answer.
    virtual std::string ReceivedData() = 0;
    virtual std::string ReceivedCommand() = 0;
};

/// Punches and their counters.
class RecordData : public Object
{
public:
    static constexpr const char* kClassName = "RecordData";

    virtual bool GetRecordsInfo(std::int16_t& terminal, std::int16_t& priority) = 0;
    virtual std::int32_t MaxRecords() = 0;
    virtual std::int32_t FreeRecords() = 0;
    virtual std::int32_t TrasmittedRecords() = 0;

    /// How many records the terminal holds, in Records().
    virtual bool GetNumber(std::int16_t& terminal, std::int16_t& priority) = 0;
    virtual std::int32_t Records() = 0;

    /// Each makes one record the current one, whose fields are below; after a false there is none.
    /// The first one: the oldest that is not marked as deleted.
    virtual bool GetFirstRecord(std::int16_t& terminal, std::int16_t& priority2) = 0;
    /// The oldest record that is not marked as deleted and was not handed over since GetRecordsInfo
    /// or GetFirstRecord, so that a record of a type that the program leaves alone does not come
    /// for ever; "ER" when there is none, and the call after it begins anew. A call that failed
    /// otherwise may be repeated and leaves nothing out. `priority` is a text: callers hand over
    /// what an input field holds at that moment.
    virtual bool GetNextRecord(std::int16_t& terminal, const std::string& priority) = 0;
    /// Record `number`, counted from 1, the oldest first.
    virtual bool GetRecord(std::int16_t& terminal, std::int16_t& priority2,
                           std::int16_t& number) = 0;
    /// Marks the current record as acquired in the terminal; false when the terminal did not take
    /// the mark.
    virtual bool SetAsDeleted() = 0;

    virtual std::string TerminalNo() = 0;
    virtual std::string IdNumber() = 0;   ///< badge
    virtual std::string Date() = 0;       ///< dd/mm/yyyy
    virtual std::string Time() = 0;       ///< hh:mm…
    virtual std::string Type() = 0;       ///< "Presenze", "Informazioni", "Accessi"
    virtual std::string Direction() = 0;  ///< "Entrata", "Uscita", "Info"
    virtual std::string Cause() = 0;
    virtual std::int32_t PersonalCause() = 0;
    virtual bool Deleted() = 0;  ///< already acquired

    virtual std::string ReceivedCommand() = 0;
};

/// The terminal's clock.
class TimeData : public Object
{
public:
    static constexpr const char* kClassName = "TimeData";

    virtual bool Receive(std::int16_t& terminal, std::int16_t& priority) = 0;
    /// Sets the terminal's clock to Date and Time of this object; GetSystem comes before it.
    virtual bool Send(std::int16_t& terminal, std::int16_t& priority) = 0;
    /// Loads the PC's date and time.
    virtual void GetSystem() = 0;
    virtual std::string Time() = 0;
    virtual std::string Date() = 0;
    virtual std::string ReceivedCommand() = 0;
};

/// The terminal's firmware.
class FPrVersion : public Object
{
public:
    static constexpr const char* kClassName = "FPrVersion";

    virtual bool Receive(std::int16_t& terminal, std::int16_t& priority) = 0;
    virtual std::string LastBuild() = 0;
    virtual std::string ReceivedCommand() = 0;
};

/// The badge layout: three fields, selected by FieldIndex 0 plant, 1 company, 2 badge number.
class MCFormatData : public Object
{
public:
    static constexpr const char* kClassName = "MCFormatData";

    virtual bool Receive(std::int16_t& terminal, std::int16_t& priority) = 0;
    virtual bool Send(std::int16_t& terminal, std::int16_t& priority) = 0;
    virtual void FieldIndex(std::int16_t index) = 0;
    virtual double FieldStart() = 0;
    virtual void FieldStart(double position) = 0;
    virtual double FieldLen() = 0;
    virtual void FieldLen(double length) = 0;
    virtual void FieldDefault(double value) = 0;
    virtual std::string IDName() = 0;
    virtual void IDName(const std::string& name) = 0;
    virtual double Len() = 0;
    virtual void Len(double length) = 0;
    virtual bool Bidirectional() = 0;
    virtual void Bidirectional(bool bidirectional) = 0;
    virtual std::string ReceivedCommand() = 0;
    /// The error of the last call, in words.
    virtual std::string geterror() = 0;
};

/// The bells: 24 rings on each of seven days. RingDay 0..6 and RingIndex 1..24 select one.
class Rings : public Object
{
public:
    static constexpr const char* kClassName = "Rings";

    /// Fetches the 24 rings of `day` 0..6.
    virtual bool Receive(std::int16_t& terminal, std::int16_t& priority, std::int16_t& day) = 0;
    /// Sends the ring that is selected.
    virtual bool Send(std::int16_t& terminal, std::int16_t& priority) = 0;
    virtual void RingDay(std::int16_t day) = 0;
    virtual void RingIndex(std::int16_t index) = 0;
    virtual std::int16_t RingHour() = 0;
    virtual void RingHour(std::int16_t hour) = 0;
    virtual std::int16_t RingMinute() = 0;
    virtual void RingMinute(std::int16_t minute) = 0;
    virtual std::int16_t RingHowLong() = 0;
    virtual void RingHowLong(std::int16_t duration) = 0;
    virtual std::string ReceivedCommand() = 0;
};

// Created with the others and not called by this program.
class UserData : public Object
{
public:
    static constexpr const char* kClassName = "UserData";
};

class TimeTemplate : public Object
{
public:
    static constexpr const char* kClassName = "TimeTemplate";
};

class T3Parameter : public Object
{
public:
    static constexpr const char* kClassName = "T3Parameter";
};

}  // namespace orlo::component
