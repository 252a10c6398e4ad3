#include "registry/system_reason.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace orlo
{

TEST(SystemReason, IsItalianWhateverLanguageTheSystemSpeaks)
{
    const struct {
        int error;
        QString reason;
    } cases[] = {
        {ENOENT, QStringLiteral("il file o la cartella non esiste")},
        {EACCES, QStringLiteral("permesso negato")},
        {EISDIR, QStringLiteral("è una cartella")},
        {ENOSPC, QStringLiteral("il disco è pieno")},
        {EROFS, QStringLiteral("il disco è in sola lettura")},
        {EFBIG, QStringLiteral("il file è troppo grande")},
    };
    for (const auto& [error, reason] : cases) EXPECT_EQ(SystemReason(error), reason) << error;
}

TEST(SystemReason, RareErrorIsNotWithoutWords)
{
    EXPECT_FALSE(SystemReason(ELOOP).isEmpty());
}

}  // namespace orlo
