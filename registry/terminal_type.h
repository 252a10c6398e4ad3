#pragma once

#include <QString>

#include <cstddef>
#include <span>
#include <string_view>

namespace orlo
{

/// Model code as stored in column TIPO.
enum class TerminalType : int {
    Orlo = 1,
    Sipa = 2,
    OrloII = 3,
    Strale = 4,
    StraleN = 5,
    Lumo = 6,
    OrloTre = 7,
    SuperStrale = 8,
};

enum class LinkFamily { Object, Serial };

/// How the counters in the answer to "32" are to be understood.
enum class MemoryCounting {
    /// The pointer counts from zero: one punch more than it says; the count to acquire is exact.
    PointerPlusOne,
    /// The pointer is the number of punches; the count to acquire is one too high unless it is 0.
    PointerIsCount,
};

/// Where a model's answer to "03" holds its fields; positions from 1.
struct StatusAnswerLayout {
    /// State at the beginning. Its last position is also the first of the version behind it: that
    /// character is shown in both.
    std::size_t state_length;
    std::size_t date_position;
    std::size_t date_length;
    /// Time at the end.
    std::size_t time_length;
};

/// How long a model may take to store the badge layout that it was sent.
enum class StoreWait { Usual, Long };

/// The form in which a model takes its bell rings.
enum class BellTelegram {
    /// A blank behind the command code, two digits of duration; every ring is sent.
    Spaced,
    /// No blank, three digits of duration; a ring on no day is not sent.
    Dense,
};

/// What happens to the line of the protocol component behind a command. DTR that falls and rises
/// makes a modem hang up, as the line costs money.
enum class LineBehindCommand { Left, DtrPulsed };

/// One row per model: everything that differs by model is here and nowhere else.
struct TerminalModel {
    TerminalType type;
    QString name;
    LinkFamily family;
    /// Punch memory, as shown; empty for models that report it themselves.
    QString capacity;
    MemoryCounting counting;
    /// Event characters that mean entry ("1") and exit ("2"); every other one is "0".
    std::string_view entry_events;
    std::string_view exit_events;
    /// Without meaning for the models of the object link, which have no such telegrams.
    StatusAnswerLayout status_answer;
    /// Number of the first of the five badge parameters, which follow each other.
    int first_badge_parameter;
    StoreWait store_wait;
    /// Without meaning for the models of the object link.
    BellTelegram bell_telegram;
    /// Without meaning for the models of the serial link.
    LineBehindCommand line_behind_command;
    /// Values that fields still empty or "0" receive when the model is picked; empty = none.
    QString default_speed;
    QString default_retries;
    QString default_priority;
    QString default_priority2;
    QString default_delay;
};

/// All eight models in the order of their codes.
std::span<const TerminalModel> TerminalModels();

/// The model of that code, nullptr when the code is none of 1..8.
const TerminalModel* ModelByCode(int code);

/// The model of exactly that name, case and blanks included; nullptr when there is none.
const TerminalModel* ModelByName(const QString& name);

/// "1" entry, "2" exit, "0" other, by the model registered for the terminal. A code that is no
/// serial model's is read like the models without a row of their own.
char DirectionCode(int type_code, char event);

}  // namespace orlo
