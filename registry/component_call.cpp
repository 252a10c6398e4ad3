#include "registry/component_call.h"

#include "registry/contenitore.h"
#include "registry/contenitore_controls.h"
#include "registry/windows_1252.h"

#include <algorithm>

namespace orlo
{

namespace
{

constexpr std::size_t kLongestShownText = 200;

QString Failed(Contenitore& window, const QString& reason)
{
    QString text = QStringLiteral("Errore del componente: %1").arg(reason);
    window.Controls().PannelloComunicazione->setText(text);
    return text;
}

}  // namespace

QString ComponentText(const std::string& text)
{
    QString shown = FromWindows1252(QByteArray::fromStdString(text.substr(0, kLongestShownText)));
    std::replace_if(
        shown.begin(), shown.end(),
        [](QChar character) { return character.category() == QChar::Other_Control; },
        QLatin1Char(' '));
    return shown;
}

QString GuardComponentCalls(Contenitore& window, const std::function<void()>& calls)
{
    try {
        calls();
        return {};
    } catch (const std::exception& error) {
        return Failed(window, ComponentText(error.what()));
    } catch (...) {
        return Failed(window, QStringLiteral("errore sconosciuto"));
    }
}

}  // namespace orlo
