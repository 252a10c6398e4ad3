#include "simulator/options.h"

#include "simulator/digits.h"
#include "simulator/usage_error.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <optional>

namespace orlo::simulator
{

namespace
{

constexpr int kMostBitsPerSecond = 4000000;
constexpr int kLongestTurnaroundMs = 600000;

// clang-format off
const std::array<option, 10> kOptions = {{
    {"collegamento", required_argument, nullptr, 'c'},
    {"terminale",    required_argument, nullptr, 't'},
    {"velocita",     required_argument, nullptr, 'v'},
    {"attesa",       required_argument, nullptr, 'a'},
    {"modem",        required_argument, nullptr, 'm'},
    {"guasto",       required_argument, nullptr, 'g'},
    {"registro",     required_argument, nullptr, 'r'},
    {"stato",        required_argument, nullptr, 's'},
    {"help",         no_argument,       nullptr, 'h'},
    {nullptr,        0,                 nullptr, 0},
}};
// clang-format on

int Number(const char* name, const std::string& text, int least, int most)
{
    const std::optional<int> value = NumberOf(text);
    if (!value || *value < least || *value > most)
        throw UsageError(std::string("--") + name + " va da " + std::to_string(least) + " a " +
                         std::to_string(most) + ": " + text);
    return *value;
}

template <class Settings>
void Add(std::vector<Settings>& terminals, Settings terminal)
{
    const auto same_number = [&](const Settings& other) { return other.number == terminal.number; };
    if (std::any_of(terminals.begin(), terminals.end(), same_number))
        throw UsageError("due terminali col numero " + std::to_string(terminal.number));
    terminals.push_back(std::move(terminal));
}

void AddTerminal(Options& options, const std::string& text)
{
    if (IsObjectModel(text))
        Add(options.object_terminals, ParseObjectTerminal(text));
    else
        Add(options.terminals, ParseTerminal(text));
    if (!options.terminals.empty() && !options.object_terminals.empty())
        throw UsageError("Orlo e Sipa non stanno su una linea con altri modelli");
}

void Take(Options& options, int option, const std::string& value)
{
    switch (option) {
        case 'c':
            options.link = value;
            break;
        case 't':
            AddTerminal(options, value);
            break;
        case 'v':
            options.line.bits_per_second = Number("velocita", value, 1, kMostBitsPerSecond);
            break;
        case 'a':
            options.line.turnaround =
                std::chrono::milliseconds(Number("attesa", value, 0, kLongestTurnaroundMs));
            break;
        case 'm':
            options.modem = ParseModem(value);
            break;
        case 'g':
            options.faults.push_back(ParseFaultRule(value));
            break;
        case 'r':
            options.journal_path = value;
            break;
        case 's':
            options.state_path = value;
            break;
        case 'h':
            options.help = true;
            break;
        default:
            throw UsageError("opzione sconosciuta o senza valore");
    }
}

}  // namespace

Options ParseOptions(int argc, char** argv)
{
    Options options;
    opterr = 0;  // its own messages are not in Italian
    optind = 0;  // begins anew, also on a second call
    for (;;) {
        const int option = getopt_long(argc, argv, "h", kOptions.data(), nullptr);
        if (option == -1) break;
        Take(options, option, optarg == nullptr ? "" : optarg);
    }
    if (options.help) return options;
    if (optind < argc) throw UsageError(std::string("argomento di troppo: ") + argv[optind]);
    if (options.link.empty()) throw UsageError("manca --collegamento");
    if (options.terminals.empty() && options.object_terminals.empty())
        throw UsageError("manca --terminale");
    return options;
}

std::string_view HelpText()
{
    return R"(Uso: orlodesk-simulatore --collegamento PERCORSO --terminale DESCRIZIONE [opzioni]

Fa la parte di uno o più terminali su uno pseudo-terminale.

  --collegamento PERCORSO   collegamento simbolico da creare verso la linea
  --terminale DESCRIZIONE   un terminale della linea; ripetibile. Chiavi separate da virgole:
                              numero=1..32      modello="Orlo II", OrloTre, SuperStrale,
                                                        "Strale N", Lumo o Strale
                              timbrature=N      quante inventarne (0)
                              seme=N            con quale seme (1)
                              file=PERCORSO     timbrature da un file, una per riga:
                                                evento badge causale gg/mm/aaaa hh:mm[:ss]
                              acquisite=N       quante risultano già acquisite (0)
                              record=1..12      timbrature per risposta (10)
                              capacita=N        capienza della memoria (del modello)
                              scarto=SECONDI    errore dell'orologio, anche negativo (0)
                              badge=I/L/I/L/C   inizio e lunghezza del codice impianto, inizio e
                                                lunghezza del badge, codice impianto
                              versione=TESTO    versione dichiarata (del modello)
                            Con modello=Orlo o Sipa, che non si mescolano agli altri: numero,
                            timbrature, seme, acquisite, capacita, scarto, versione e
                              file=PERCORSO     una timbratura per riga: tipo verso badge causale
                                                causale-personale gg/mm/aaaa hh:mm[:ss]
                              impianto=CODICE   codice impianto che accetta (00001)
  --velocita BPS            rispetta i tempi di una linea di questa velocità
  --attesa MS               pausa fra la richiesta e la risposta
  --modem DESCRIZIONE       mette un modem davanti alla linea; chiavi separate da virgole, tutte
                            facoltative:
                              esito=ESITO       della chiamata: CONNECT (se manca), NO CARRIER,
                                                NO DIAL TONE, BUSY o silenzio
                              attesa=MS         fra il comando e l'esito (1000)
                              eco=0|1           eco dei comandi dopo un azzeramento (1)
                              byte-singoli=MS   le risposte un byte alla volta
                              cade=BYTE         la linea cade dopo tanti byte dei terminali
  --guasto QUANDO:NOME[=V]  un guasto; ripetibile. QUANDO: N, l'N-esima richiesta; 33#2, la
                              seconda che comincia con 33; 33*, tutte queste; *, tutte.
                            NOME: richiesta-persa, silenzio, ritardo=MS, checksum-errato,
                              senza-cr, troncata=BYTE, byte-mancanti=N, rumore-prima=N,
                              rumore-dopo=N, byte-singoli=MS, caduta=MS, troppi-record=N,
                              record-corto=N, cr-prima; con Orlo e Sipa anche esito=CODICE
  --registro FILE           aggiunge al file una riga per telegramma
  --stato FILE              scrive lo stato dei terminali alla fine e a ogni SIGUSR1
  -h, --help                questo testo

Scrive "Pronto: PERCORSO" quando la linea si può aprire. Termina con SIGTERM,
SIGINT o SIGHUP.
Esito: 0 regolare, 1 errore del sistema, 2 uso errato.
)";
}

}  // namespace orlo::simulator
