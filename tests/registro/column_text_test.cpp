#include "registro/column_text.h"

#include <gtest/gtest.h>

namespace orlo::registro
{
namespace
{

struct Good {
    Column column;
    const char* text;
    jet::Value value;
};

const Good kGood[] = {
    {kTerminale, "1", std::int32_t{1}},
    {kTerminale, "32", std::int32_t{32}},
    {kTipo, "Orlo", std::int32_t{1}},
    {kTipo, "Strale N", std::int32_t{5}},
    {kTipo, "", jet::Null{}},
    {kPorta, "4", std::int32_t{4}},
    {kVelocita, "14400", std::int32_t{14400}},
    {kRitardo, ",5", 0.5F},
    {kRitardo, "0,9", 0.9F},
    {kRitardo, "0", 0.0F},
    {kAttivo, "Sì", true},
    {kAttivo, "si", true},
    {kAttivo, "NO", false},
    {kAttivo, "", false},
    {kTentativi, "32767", std::int32_t{32767}},
    {kDescrizione, "", jet::Null{}},
    {kDescrizione, " a ", jet::Text(u" a ")},
};

TEST(ColumnText, ValuesAreRead)
{
    for (const Good& good : kGood) {
        const ReadValue read =
            ValueOfText(kTerminalColumns[good.column], QString::fromUtf8(good.text));
        EXPECT_EQ(read.fault.toStdString(), "") << good.text;
        EXPECT_TRUE(read.value == good.value) << good.text;
    }
}

struct Bad {
    Column column;
    const char* text;
    const char* fault;
};

const Bad kBad[] = {
    {kTerminale, "0", "«0» non è un numero da 1 a 32"},
    {kTerminale, "33", "«33» non è un numero da 1 a 32"},
    {kTerminale, "-1", "«-1» non è un numero da 1 a 32"},
    {kTerminale, "1x", "«1x» non è un numero da 1 a 32"},
    {kTerminale, "4294967297", "«4294967297» non è un numero da 1 a 32"},
    {kTipo, "strale",
     "«strale» non è un modello: Orlo, Sipa, Orlo II, Strale, Strale N, Lumo, OrloTre, "
     "SuperStrale"},
    {kPorta, "5", "«5» non è un numero da 1 a 4"},
    {kVelocita, "0", "«0» non è una velocità: 1200, 2400, 4800, 9600, 14400, 19200, 38400"},
    {kRitardo, "0.5", "«0.5» non è un ritardo: 0 o da ,1 a ,9 secondi"},
    {kRitardo, "1", "«1» non è un ritardo: 0 o da ,1 a ,9 secondi"},
    {kRitardo, ",55", "«,55» non è un ritardo: 0 o da ,1 a ,9 secondi"},
    {kAttivo, "1", "«1» non è sì o no"},
    {kPriorita, "32768", "«32768» non è un numero da 0 a 32767"},
    {kModem, "123456789012345678901", "«123456789012345678901» ha più di 20 caratteri"},
    {kDescrizione, "a\tb", "il testo contiene tabulazioni o ritorni a capo"},
};

TEST(ColumnText, WhatIsNoValueIsRefusedWithItsReason)
{
    for (const Bad& bad : kBad)
        EXPECT_EQ(ValueOfText(kTerminalColumns[bad.column], QString::fromUtf8(bad.text))
                      .fault.toStdString(),
                  bad.fault);
}

TEST(ColumnText, ValuesAreWritten)
{
    const auto written = [](Column column, const jet::Value& value) {
        return WrittenValue(kTerminalColumns[column], value).toStdString();
    };
    EXPECT_EQ(written(kTipo, std::int32_t{8}), "SuperStrale");
    EXPECT_EQ(written(kTipo, std::int32_t{9}), "9");
    EXPECT_EQ(written(kRitardo, 0.1F), "0,1");
    EXPECT_EQ(written(kRitardo, 0.25F), "0,25");
    EXPECT_EQ(written(kAttivo, true), "Sì");
    EXPECT_EQ(written(kPorta, std::int32_t{3}), "3");
    EXPECT_EQ(written(kModem, jet::Text(u"0464 1")), "0464 1");
    EXPECT_EQ(written(kVelocita, jet::Null{}), "");
}

}  // namespace
}  // namespace orlo::registro
