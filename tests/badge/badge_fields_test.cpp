#include "badge/badge_fields.h"

#include "registry/terminal_type.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

struct Telegrams {
    const char* read;
    const char* write;
};

constexpr Telegrams kFirstFamily[] = {{"950006", "940006 05"},
                                      {"950007", "940007 05"},
                                      {"950008", "940008 05"},
                                      {"950009", "940009 05"},
                                      {"950010", "940010 05"}};
constexpr Telegrams kSecondFamily[] = {{"950009", "940009 05"},
                                       {"950010", "940010 05"},
                                       {"950011", "940011 05"},
                                       {"950012", "940012 05"},
                                       {"950013", "940013 05"}};

void ExpectTelegrams(TerminalType type, std::span<const Telegrams> expected)
{
    const TerminalModel& model = *ModelByCode(static_cast<int>(type));
    for (std::size_t i = 0; i < kLayoutFields.size(); ++i) {
        const LayoutField field = kLayoutFields[i];
        EXPECT_EQ(ReadFieldCommand(model.first_badge_parameter, field), expected[i].read);
        EXPECT_EQ(WriteFieldCommand(model.first_badge_parameter, field, "05"), expected[i].write);
    }
}

TEST(BadgeFields, ComeInTheOrderOfTheirNumbers)
{
    using F = LayoutField;
    EXPECT_EQ(kLayoutFields, (std::array{F::InizioImpianto, F::LenImpianto, F::InizioBadge,
                                         F::LenBadge, F::NomeCard}));
}

TEST(BadgeFields, OfStraleAndStraleNHaveNumbersSixToTen)
{
    for (const TerminalType type : {TerminalType::Strale, TerminalType::StraleN})
        ExpectTelegrams(type, kFirstFamily);
}

TEST(BadgeFields, OfTheOtherSerialModelsHaveNumbersNineToThirteen)
{
    for (const TerminalType type : {TerminalType::OrloII, TerminalType::Lumo, TerminalType::OrloTre,
                                    TerminalType::SuperStrale})
        ExpectTelegrams(type, kSecondFamily);
}

TEST(BadgeFields, OnlyOrloTreAndSuperStraleTakeLongToStore)
{
    for (const TerminalModel& model : TerminalModels())
        EXPECT_EQ(model.store_wait == StoreWait::Long,
                  model.type == TerminalType::OrloTre || model.type == TerminalType::SuperStrale)
            << model.name.toStdString();
}

}  // namespace
}  // namespace orlo
