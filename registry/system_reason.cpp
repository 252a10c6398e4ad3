#include "registry/system_reason.h"

#include <cerrno>

namespace orlo
{

// The system speaks the language of its environment, often English, and the toolkit translates only
// some of it.
QString SystemReason(int error)
{
    switch (error) {
        case ENOENT:
            return QStringLiteral("il file o la cartella non esiste");
        case EACCES:
            return QStringLiteral("permesso negato");
        case EISDIR:
            return QStringLiteral("è una cartella");
        case ENOSPC:
            return QStringLiteral("il disco è pieno");
        case EROFS:
            return QStringLiteral("il disco è in sola lettura");
        case EFBIG:
            return QStringLiteral("il file è troppo grande");
        default:
            return qt_error_string(error);
    }
}

}  // namespace orlo
