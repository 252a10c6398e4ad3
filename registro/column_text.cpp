#include "registro/column_text.h"

#include "registry/terminal_type.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cstdint>

namespace orlo::registro
{

namespace
{

constexpr std::array<int, 7> kSpeeds = {1200, 2400, 4800, 9600, 14400, 19200, 38400};

QString YesNoText(bool value)
{
    return value ? QStringLiteral("Sì") : QStringLiteral("No");
}

QString DelayText(float seconds)
{
    return QString::number(static_cast<double>(seconds)).replace(u'.', u',');
}

QString NumberText(const TerminalColumn& column, std::int32_t number)
{
    const TerminalModel* model = column.content == Content::Model ? ModelByCode(number) : nullptr;
    return model != nullptr ? model->name : QString::number(number);
}

ReadValue Fault(const QString& text)
{
    return {jet::Null{}, text};
}

ReadValue ReadModel(const QString& text)
{
    if (const TerminalModel* model = ModelByName(text))
        return {static_cast<std::int32_t>(model->type), {}};
    QStringList names;
    for (const TerminalModel& model : TerminalModels()) names << model.name;
    return Fault(QStringLiteral("«%1» non è un modello: %2").arg(text, names.join(u", ")));
}

/// The number that a text of nothing but digits is.
std::optional<std::int32_t> Digits(const QString& text)
{
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,9}$"));
    if (!digits.match(text).hasMatch()) return std::nullopt;
    return text.toInt();
}

ReadValue ReadNumber(const TerminalColumn& column, const QString& text)
{
    const std::optional<std::int32_t> number = Digits(text);
    if (number && *number >= column.lowest && *number <= column.highest) return {*number, {}};
    return Fault(QStringLiteral("«%1» non è un numero da %2 a %3")
                     .arg(text)
                     .arg(column.lowest)
                     .arg(column.highest));
}

ReadValue ReadSpeed(const QString& text)
{
    const std::optional<std::int32_t> speed = Digits(text);
    if (speed && std::ranges::count(kSpeeds, *speed) == 1) return {*speed, {}};
    QStringList speeds;
    for (const int known : kSpeeds) speeds << QString::number(known);
    return Fault(QStringLiteral("«%1» non è una velocità: %2").arg(text, speeds.join(u", ")));
}

ReadValue ReadDelay(const QString& text)
{
    static const QRegularExpression tenths(QStringLiteral("^(?:0|0?,([0-9]))$"));
    const QRegularExpressionMatch match = tenths.match(text);
    if (match.hasMatch()) return {static_cast<float>(match.captured(1).toInt()) / 10.0F, {}};
    return Fault(QStringLiteral("«%1» non è un ritardo: 0 o da ,1 a ,9 secondi").arg(text));
}

ReadValue ReadYesNo(const QString& text)
{
    const QString word = text.toLower();
    if (word == u"no") return {false, {}};
    if (word == u"sì" || word == u"si") return {true, {}};
    return Fault(QStringLiteral("«%1» non è sì o no").arg(text));
}

ReadValue ReadText(const TerminalColumn& column, const QString& text)
{
    if (text.size() > column.size)
        return Fault(QStringLiteral("«%1» ha più di %2 caratteri").arg(text).arg(column.size));
    // Tabs would shift the columns of the main window's list.
    if (std::ranges::any_of(text, [](QChar c) { return c.category() == QChar::Other_Control; }))
        return Fault(QStringLiteral("il testo contiene tabulazioni o ritorni a capo"));
    return {text.toStdU16String(), {}};
}

}  // namespace

QString WrittenValue(const TerminalColumn& column, const jet::Value& value)
{
    if (const auto* flag = std::get_if<bool>(&value)) return YesNoText(*flag);
    if (const auto* number = std::get_if<std::int32_t>(&value)) return NumberText(column, *number);
    if (const auto* seconds = std::get_if<float>(&value)) return DelayText(*seconds);
    if (const auto* text = std::get_if<jet::Text>(&value)) return QString::fromStdU16String(*text);
    return {};
}

ReadValue ValueOfText(const TerminalColumn& column, const QString& text)
{
    // A column of Yes and No holds no Null.
    if (text.isEmpty())
        return {column.content == Content::YesNo ? jet::Value(false) : jet::Null{}, {}};
    switch (column.content) {
        case Content::Model:
            return ReadModel(text);
        case Content::Number:
            return ReadNumber(column, text);
        case Content::Speed:
            return ReadSpeed(text);
        case Content::Delay:
            return ReadDelay(text);
        case Content::YesNo:
            return ReadYesNo(text);
        case Content::Text:
            return ReadText(column, text);
    }
    return {};
}

}  // namespace orlo::registro
