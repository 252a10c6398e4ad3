#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace orlo
{

/// Booleans of the register are numbers: -1 true, 0 false.
inline constexpr std::int16_t kTrue = -1;
inline constexpr std::int16_t kFalse = 0;

/// Widths of the fixed-character fields of a slot, in characters.
inline constexpr int kDescriptionWidth = 8;
inline constexpr int kPhoneWidth = 20;
inline constexpr int kCardNameWidth = 20;

/// One slot of the register: the last known values of one row of table TERMINALI. The three texts
/// are padded with blanks to their widths when a row is loaded and trimmed when the terminal is
/// selected.
struct TerminalRecord {
    std::int16_t Terminale = 0;
    std::int16_t Tipo = 0;
    std::int16_t Funzionamento = 0;
    QString Descrizione;
    std::int16_t Attivo = kFalse;
    std::int16_t Modalita = 0;
    std::int16_t Porta = 0;
    std::int16_t Priorita = 0;
    std::int16_t PrioritaSecondaria = 0;
    std::int32_t Velocita = 0;
    QString Modem;
    std::int16_t AbilitazioneModem = kFalse;
    std::int16_t Impianto = 0;
    std::int16_t Tentativi = 0;
    QString NomeCard;
    std::int16_t LenCard = 0;
    std::int16_t Bidirezionale = kFalse;
    std::int16_t InizioImpianto = 0;
    std::int16_t LenImpianto = 0;
    std::int16_t InizioAzienda = 0;
    std::int16_t LenAzienda = 0;
    std::int16_t InizioBadge = 0;
    std::int16_t LenBadge = 0;
    float Ritardo = 0;  // seconds

    bool operator==(const TerminalRecord&) const = default;
};

inline constexpr int kTerminalSlots = 32;

/// Slot i belongs to terminal i + 1. Slots are never cleared when rows disappear.
using TerminalTable = std::array<TerminalRecord, kTerminalSlots>;

}  // namespace orlo
