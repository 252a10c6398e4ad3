#include "acquisition/monitor_filter.h"

#include "registry/windows_1252.h"

namespace orlo
{

bool Passes(const MonitorPunch& punch, const MonitorFilter& filter)
{
    const QString state = QString::fromLatin1(punch.state.c_str());
    if (!filter.state.isEmpty() && state != filter.state) return false;
    const QString wanted = filter.text.trimmed();
    const auto holds = [&wanted](const std::string& field) {
        return FromWindows1252(QByteArray::fromStdString(field))
            .contains(wanted, Qt::CaseInsensitive);
    };
    const QString type = QString::fromLatin1(punch.type.c_str());
    return holds(punch.badge) || holds(punch.date) || holds(punch.cause) ||
           type.startsWith(wanted, Qt::CaseInsensitive) ||
           state.startsWith(wanted, Qt::CaseInsensitive);
}

}  // namespace orlo
