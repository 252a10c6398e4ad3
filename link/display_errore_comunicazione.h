#pragma once

#include <QString>

namespace orlo
{

/// The place where the last error of a transfer that was given up arrives. It shows nothing and is
/// always true: the captions have said already what there is to say.
inline bool DisplayErroreComunicazione(const QString& /*text*/)
{
    return true;
}

}  // namespace orlo
