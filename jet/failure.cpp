#include "jet/failure.h"

#include "jet/utf8.h"

#include <cerrno>
#include <string>
#include <system_error>

namespace jet
{

namespace
{

std::string Quoted(std::u16string_view name)
{
    return "\"" + ToUtf8(name) + "\"";
}

std::string Reason(int system_error)
{
    return std::generic_category().message(system_error);
}

}  // namespace

void FailDamaged(std::uint32_t page, std::string_view what)
{
    FailDamaged("pagina " + std::to_string(page) + ", " + std::string(what));
}

void FailDamaged(std::string_view what)
{
    throw Error(kDamagedFile, "Il database è danneggiato (" + std::string(what) +
                                  "). Ripristinarlo da una copia di riserva.");
}

void FailUnrecognised(std::string_view what)
{
    throw Error(kUnrecognisedFormat, "Formato del database non riconosciuto: " + std::string(what) +
                                         ". Serve un file di Access 97, 2000, 2002 o 2003.");
}

void FailEncoded()
{
    throw Error(kEncodedFile,
                "Il database è codificato e non può essere letto. Decodificarlo con il programma "
                "che lo ha codificato, poi riaprirlo.");
}

void FailOpen(const std::filesystem::path& path, int system_error)
{
    const std::string file = "\"" + path.string() + "\"";
    switch (system_error) {
        case ENOENT:
        case ENOTDIR:
            throw Error(kFileNotFound,
                        "Il database " + file + " non esiste. Controllare cartella e nome.");
        case EACCES:
        case EPERM:
        case EROFS:
            throw Error(kAccessDenied,
                        "Accesso negato al database " + file + ". Controllare i permessi.");
        default:
            throw Error(kDiskError, "Impossibile aprire il database " + file + " (" +
                                        Reason(system_error) + "). Controllare il disco.");
    }
}

void FailRead(int system_error)
{
    throw Error(kDiskError, "Lettura del database non riuscita (" + Reason(system_error) +
                                "). Controllare il disco e riprovare.");
}

void FailCreate(const std::filesystem::path& path, int system_error)
{
    const std::string file = "\"" + path.string() + "\"";
    switch (system_error) {
        case EEXIST:
            throw Error(kFileExists, "Il file " + file + " esiste già. Scegliere un altro nome.");
        case EACCES:
        case EPERM:
        case EROFS:
            throw Error(kAccessDenied,
                        "Il file " + file +
                            " non può essere scritto. Controllare i permessi della cartella.");
        case ENOENT:
        case ENOTDIR:
            throw Error(kFileNotFound,
                        "La cartella del file " + file + " non esiste. Controllare il nome.");
        default:
            FailWrite(system_error);
    }
}

void FailWrite(int system_error)
{
    if (system_error == ENOSPC || system_error == EDQUOT || system_error == EFBIG) {
        throw Error(kDiskFull,
                    "Disco pieno: la modifica non è stata salvata. Liberare spazio e "
                    "riprovare.");
    }
    throw Error(kDiskError, "Scrittura del database non riuscita (" + Reason(system_error) +
                                "). Controllare il disco e riprovare.");
}

void FailLock(int system_error)
{
    throw Error(kCannotLock, "Il database non può essere bloccato (" + Reason(system_error) +
                                 "). Metterlo in una cartella il cui disco, anche di rete, "
                                 "permetta i blocchi dei file.");
}

void FailReadOnly()
{
    throw Error(kReadOnly, "Il database è aperto in sola lettura: non può essere modificato.");
}

void FailTransaction(std::string_view what)
{
    throw Error(kTransaction, "Transazione non valida: " + std::string(what) + ".");
}

void FailFileFull()
{
    throw Error(kDiskFull,
                "Il database ha raggiunto la dimensione massima: la modifica non è "
                "stata salvata. Eliminare dati e compattarlo.");
}

void FailInUse(const std::filesystem::path& path)
{
    throw Error(kInUse, "Il database \"" + path.string() +
                            "\" è aperto in scrittura da un altro programma. Chiuderlo e "
                            "riprovare.");
}

void FailReopen()
{
    throw Error(kDiskError,
                "Una scrittura non riuscita ha lasciato il database da ripristinare. Chiuderlo e "
                "riaprirlo: l'ultima modifica risulterà fatta per intero o per niente.");
}

void FailTableNotFound(std::u16string_view table)
{
    throw Error(kTableNotFound, "La tabella " + Quoted(table) +
                                    " non esiste. Controllare che il database sia quello giusto.");
}

void FailColumnNotFound(std::u16string_view column)
{
    throw Error(kColumnNotFound, "Il campo " + Quoted(column) +
                                     " non esiste. Controllare che il database sia quello giusto.");
}

void FailIndexNotFound(std::u16string_view index)
{
    throw Error(kIndexNotFound, "L'indice " + Quoted(index) +
                                    " non esiste. Controllare che il database sia quello giusto.");
}

void FailNoIndexSelected()
{
    throw Error(kNoIndexSelected, "Nessun indice scelto: sceglierne uno prima di cercare.");
}

void FailNoCurrentRecord()
{
    throw Error(kNoCurrentRecord, "Nessuna riga corrente: spostarsi prima su una riga.");
}

void FailKey(std::string_view what)
{
    throw Error(kInvalidArgument, "Chiave di ricerca non valida: " + std::string(what) + ".");
}

void FailNoEditBegun()
{
    throw Error(kNoEditBegun, "Nessuna modifica iniziata: chiamare prima Edit o AddNew.");
}

void FailNotForQueries()
{
    throw Error(kNotSupported, "Le righe di un'interrogazione non hanno indici.");
}

void FailSyntax(std::u16string_view rest)
{
    throw Error(kSyntaxError, "Errore di sintassi nell'interrogazione, " +
                                  (rest.empty() ? "alla fine." : "qui: " + Quoted(rest) + "."));
}

void FailWrongType(std::u16string_view column)
{
    throw Error(kWrongType,
                "Il campo " + Quoted(column) + " non può contenere un valore di questo tipo.");
}

void FailFieldOverflow(std::u16string_view column)
{
    throw Error(kFieldOverflow, "Il numero è troppo grande per il campo " + Quoted(column) + ".");
}

void FailFieldTooSmall(std::u16string_view column)
{
    throw Error(kFieldTooSmall, "Il valore è troppo lungo per il campo " + Quoted(column) + ".");
}

void FailCharacter(std::u16string_view column)
{
    throw Error(kWrongType, "Il testo per il campo " + Quoted(column) +
                                " contiene un carattere che il database non può conservare.");
}

void FailNotSupported(std::u16string_view column)
{
    throw Error(kNotSupported, "Il campo " + Quoted(column) + " non può essere modificato.");
}

void FailRecordTooLong()
{
    throw Error(kRecordTooLong, "La riga è troppo lunga. Accorciare i testi.");
}

void FailInvalidName(std::u16string_view name)
{
    throw Error(kInvalidName,
                "Il nome " + Quoted(name) + " non è valido: da 1 a 64 caratteri, senza . ! ` [ ].");
}

void FailInvalidColumn(std::u16string_view column)
{
    throw Error(kInvalidColumn,
                "Il tipo o la dimensione del campo " + Quoted(column) + " non sono validi.");
}

void FailColumnExists(std::u16string_view column)
{
    throw Error(kColumnExists, "Il campo " + Quoted(column) + " esiste già.");
}

void FailTooManyColumns()
{
    throw Error(kTooManyColumns, "Una tabella non può avere più di 255 campi.");
}

void FailTableExists(std::u16string_view table)
{
    throw Error(kTableExists, "La tabella " + Quoted(table) + " esiste già.");
}

void FailInvalidIndex(std::u16string_view index)
{
    throw Error(kInvalidIndex, "I campi dell'indice " + Quoted(index) +
                                   " non sono validi: da 1 a 10, diversi, non memo né OLE.");
}

void FailIndexExists(std::u16string_view index)
{
    throw Error(kIndexExists, "L'indice " + Quoted(index) + " esiste già.");
}

void FailPrimaryExists(std::u16string_view index)
{
    throw Error(kPrimaryExists,
                "La tabella ha già una chiave primaria oltre all'indice " + Quoted(index) + ".");
}

void FailTooManyIndexes()
{
    throw Error(kTooManyIndexes, "Una tabella non può avere più di 32 indici.");
}

void FailDuplicateKey(std::u16string_view index)
{
    throw Error(kDuplicateKey, "La modifica darebbe valori doppi nell'indice " + Quoted(index) +
                                   ", che non li ammette.");
}

void FailNullInKey(std::u16string_view index)
{
    throw Error(kNullInKey, "I campi dell'indice " + Quoted(index) + " non possono restare vuoti.");
}

void FailIndexUnknown(std::u16string_view index, std::string_view why)
{
    throw Error(kNotSupported, "L'indice " + Quoted(index) + " non può essere aggiornato: " +
                                   std::string(why) + ". La modifica non è stata fatta.");
}

}  // namespace jet
