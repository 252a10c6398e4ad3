#include "acquisition/object_record.h"

#include "link/fields.h"

#include <algorithm>

namespace orlo
{

namespace
{

constexpr std::size_t kBadgeWidth = 10;
constexpr std::size_t kCauseWidth = 2;
constexpr std::size_t kTerminalWidth = 2;

/// What the direction and the personal cause decide.
struct Meaning {
    std::string code;
    std::string badge;
    std::string cause;
};

Meaning MeaningOfInfo(const ObjectRecord& record)
{
    switch (record.PersonalCause) {
        case 1000:
            return {"I", "0", "OF"};
        case 1001:
            return {"I", "0", "ON"};
        case 1002:
            return {"I", record.IdNumber, "IN"};
        default:
            return {"I", {}, {}};
    }
}

Meaning MeaningOf(const ObjectRecord& record)
{
    const std::string cause = LastCharacters(std::to_string(record.PersonalCause), kCauseWidth);
    if (record.Direction == "Entrata") return {"1", record.IdNumber, cause};
    if (record.Direction == "Uscita") return {"2", record.IdNumber, cause};
    if (record.Direction == "Info") return MeaningOfInfo(record);
    return {};
}

std::string ZeroFilled(const std::string& text, std::size_t width)
{
    return std::string(width - text.size(), '0') + text;
}

QString TooLong(const char* field, const std::string& text, std::size_t width)
{
    if (text.size() <= width) return {};
    return QStringLiteral("%1 di %2 caratteri, al massimo %3")
        .arg(QLatin1String(field))
        .arg(text.size())
        .arg(width);
}

bool IsControl(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

}  // namespace

ObjectRecord ReadObjectRecord(component::RecordData& object)
{
    return {.Type = object.Type(),
            .Date = object.Date(),
            .Time = object.Time(),
            .Direction = object.Direction(),
            .IdNumber = object.IdNumber(),
            .TerminalNo = object.TerminalNo(),
            .PersonalCause = object.PersonalCause(),
            .Deleted = object.Deleted()};
}

bool IsForPunchFile(const ObjectRecord& record)
{
    return !record.Deleted && (record.Type == "Presenze" || record.Type == "Informazioni");
}

ObjectLine ComponeRigaOggetto(const ObjectRecord& record)
{
    const Meaning meaning = MeaningOf(record);
    for (const QString& fault : {TooLong("badge", meaning.badge, kBadgeWidth),
                                 TooLong("causale", meaning.cause, kCauseWidth),
                                 TooLong("numero di terminale", record.TerminalNo, kTerminalWidth)})
        if (!fault.isEmpty()) return {{}, fault};

    const std::string date =
        LastCharacters(record.Date, 4) + Field(record.Date, 4, 2) + Field(record.Date, 1, 2);
    const std::string time = Field(record.Time, 1, 2) + Field(record.Time, 4, 2);
    std::string line =
        "31" + date + time + "000" + meaning.code + ZeroFilled(meaning.badge, kBadgeWidth) +
        ZeroFilled(meaning.cause, kCauseWidth) + ZeroFilled(record.TerminalNo, kTerminalWidth);
    // One of them could end the line in the middle: the payroll would read two wrong punches.
    if (std::any_of(line.begin(), line.end(), IsControl))
        return {{}, QStringLiteral("contiene caratteri di controllo")};
    return {std::move(line), {}};
}

}  // namespace orlo
