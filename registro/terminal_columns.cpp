#include "registro/terminal_columns.h"

#include <cstdint>

namespace orlo::registro
{

using T = jet::ColumnType;
using C = Content;

// Descriptions may be longer than the eight characters that the main window keeps.
// clang-format off
const std::array<TerminalColumn, kColumnCount> kTerminalColumns = {{
    {u"Terminale",           T::Integer, 2,  C::Number, 1, 32,    u"numero del terminale, da 1 a 32"},
    {u"TIPO",                T::Integer, 2,  C::Model,  0, 0,     u"nome del modello"},
    {u"Funzionamento",       T::Integer, 2,  C::Number, 0, 3,     u"1 abilitazione, 2 esonero PIN, 3 funzione allarme, 0 nessuna"},
    {u"Descrizione",         T::Text,    50, C::Text,   0, 0,     u"descrizione; la finestra ne mostra 8 caratteri"},
    {u"Attivo",              T::YesNo,   1,  C::YesNo,  0, 0,     u"sì o no"},
    {u"Modalita",            T::Integer, 2,  C::Number, 0, 3,     u"1 presenze, 2 presenze e accessi, 3 accessi, 0 nessuna"},
    {u"Porta",               T::Integer, 2,  C::Number, 1, 4,     u"porta seriale, da 1 (COM1) a 4 (COM4)"},
    {u"Priorita",            T::Integer, 2,  C::Number, 0, 32767, u"priorità; non conta per i modelli seriali"},
    {u"Priorita_Secondaria", T::Integer, 2,  C::Number, 0, 32767, u"priorità secondaria; come sopra"},
    {u"Velocita",            T::Long,    4,  C::Speed,  0, 0,     u"1200, 2400, 4800, 9600, 14400, 19200 o 38400 bit/s"},
    {u"Ritardo",             T::Single,  4,  C::Delay,  0, 0,     u"secondi fra due scambi, 0 o da ,1 a ,9; come sopra"},
    {u"Modem",               T::Text,    20, C::Text,   0, 0,     u"numero di telefono"},
    {u"Abilitazione_Modem",  T::YesNo,   1,  C::YesNo,  0, 0,     u"sì se si raggiunge con il modem"},
    {u"Impianto",            T::Integer, 2,  C::Number, 0, 32767, u"codice impianto"},
    {u"Tentativi",           T::Integer, 2,  C::Number, 0, 32767, u"quante volte ripetere uno scambio non riuscito"},
    {u"NomeCard",            T::Text,    20, C::Text,   0, 0,     u"nome del formato del badge; seriali: codice impianto"},
    {u"LenCard",             T::Integer, 2,  C::Number, 0, 32767, u"lunghezza del badge"},
    {u"Bidirezionale",       T::YesNo,   1,  C::YesNo,  0, 0,     u"sì se lavora nei due versi"},
    {u"InizioImpianto",      T::Integer, 2,  C::Number, 0, 32767, u"dove comincia il codice impianto nel badge"},
    {u"LenImpianto",         T::Integer, 2,  C::Number, 0, 32767, u"quanto è lungo"},
    {u"InizioAzienda",       T::Integer, 2,  C::Number, 0, 32767, u"dove comincia il codice azienda"},
    {u"LenAzienda",          T::Integer, 2,  C::Number, 0, 32767, u"quanto è lungo"},
    {u"InizioBadge",         T::Integer, 2,  C::Number, 0, 32767, u"dove comincia il numero del badge"},
    {u"LenBadge",            T::Integer, 2,  C::Number, 0, 32767, u"quanto è lungo"},
}};
// clang-format on

int NumberOf(const TerminalValues& values)
{
    const auto* number = std::get_if<std::int32_t>(&values[kTerminale]);
    return number != nullptr ? *number : 0;
}

}  // namespace orlo::registro
