#include "registry/field_value.h"

#include "registry/terminal_record.h"

#include <cmath>

namespace orlo
{

namespace
{

/// The value as a number, nothing when it is of a kind that has none.
struct NumberOf {
    std::optional<double> operator()(bool value) const { return value ? kTrue : kFalse; }
    std::optional<double> operator()(std::int32_t value) const { return value; }
    std::optional<double> operator()(float value) const { return value; }
    std::optional<double> operator()(double value) const { return value; }
    std::optional<double> operator()(const jet::Currency& value) const
    {
        return static_cast<double>(value.ten_thousandths) / 10000;
    }
    std::optional<double> operator()(const jet::Text& value) const
    {
        bool is_number = false;
        const double number = QString::fromStdU16String(value).toDouble(&is_number);
        return is_number ? std::optional(number) : std::nullopt;
    }
    template <typename Other>
    std::optional<double> operator()(const Other&) const
    {
        return std::nullopt;
    }
};

std::optional<double> NumberField(jet::Recordset& rows, std::u16string_view column)
{
    const jet::Value value = rows.Field(column);
    if (jet::IsNull(value)) return std::nullopt;
    const std::optional<double> number = std::visit(NumberOf{}, value);
    if (!number || !std::isfinite(*number)) ThrowWrongKind(column);
    return number;
}

}  // namespace

std::optional<std::int64_t> WholeNumberField(jet::Recordset& rows, std::u16string_view column)
{
    const std::optional<double> number = NumberField(rows, column);
    if (!number) return std::nullopt;
    constexpr double kExact = 9e15;
    if (std::abs(*number) > kExact) ThrowWrongKind(column);
    return static_cast<std::int64_t>(std::nearbyint(*number));
}

std::optional<float> SingleField(jet::Recordset& rows, std::u16string_view column)
{
    const std::optional<double> number = NumberField(rows, column);
    return number ? std::optional(static_cast<float>(*number)) : std::nullopt;
}

std::optional<QString> TextField(jet::Recordset& rows, std::u16string_view column)
{
    const jet::Value value = rows.Field(column);
    if (jet::IsNull(value)) return std::nullopt;
    if (const auto* text = std::get_if<jet::Text>(&value)) return QString::fromStdU16String(*text);
    const std::optional<std::int64_t> number = WholeNumberField(rows, column);
    return QString::number(*number);
}

void ThrowWrongKind(std::u16string_view column)
{
    const QString name = QString::fromUtf16(column.data(), static_cast<qsizetype>(column.size()));
    throw jet::Error(
        jet::kWrongType,
        QStringLiteral("Il valore del campo %1 non è del tipo previsto.").arg(name).toStdString());
}

}  // namespace orlo
