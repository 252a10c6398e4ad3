#include "acquisition/output_lines.h"

#include "link/fields.h"

namespace orlo
{

namespace
{

std::string Blanks(std::size_t count)
{
    return std::string(count, ' ');
}

std::string RecodedDirection(const std::string& code)
{
    if (code == "1") return "0";
    return code == "2" ? "1" : code;
}

std::string_view WithoutBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::string ComponeRigaStandard(const PunchLine& punch)
{
    return "31" + punch.date + punch.time + "000" + punch.code + "0000" + punch.badge +
           LastCharacters(punch.cause, 2) + punch.terminal;
}

std::string ComponeRigaEstesa(const PunchLine& punch, std::string_view plant_code)
{
    const std::string day = Field(punch.date, 7, 2);
    const std::string month = Field(punch.date, 5, 2);
    const std::string year = Field(punch.date, 1, 4);
    return Blanks(4) + "0" + punch.terminal + Blanks(1) + PlantCodeField(plant_code) + Blanks(3) +
           LastCharacters(punch.badge, 6) + RecodedDirection(punch.code) + Blanks(1) +
           LastCharacters(punch.cause, 3) + day + month + year + punch.time + Blanks(222);
}

std::string PlantCodeField(std::string_view plant_code)
{
    const std::string_view code = WithoutBlanks(plant_code);
    if (code.size() < 2) return Blanks(2 - code.size()) + std::string(code);
    return std::string(code.substr(0, 2));
}

}  // namespace orlo
