#include "registro/arguments.h"

#include "registro/failure.h"

#include <gtest/gtest.h>

namespace orlo::registro
{
namespace
{

const std::vector<Option> kKnown = {{QStringLiteral("tipo"), QStringLiteral("VALORE"), {}},
                                    {QStringLiteral("jet3"), {}, {}}};

QStringList Texts(std::initializer_list<const char*> texts)
{
    QStringList list;
    for (const char* text : texts) list << QString::fromUtf8(text);
    return list;
}

Arguments Read(std::initializer_list<const char*> arguments)
{
    return ReadArguments(Texts(arguments), kKnown);
}

std::string FaultOf(std::initializer_list<const char*> arguments)
{
    try {
        Read(arguments);
        return {};
    } catch (const UsageError& error) {
        return error.what();
    }
}

TEST(Arguments, OptionsMayStandAnywhere)
{
    const Arguments read = Read({"--jet3", "a", "--tipo", "-x", "b"});
    EXPECT_EQ(read.positional, Texts({"a", "b"}));
    EXPECT_EQ(read.options[QStringLiteral("tipo")], QStringLiteral("-x"));
    EXPECT_TRUE(read.options.contains(QStringLiteral("jet3")));
}

TEST(Arguments, ValueMayFollowAnEqualsSign)
{
    EXPECT_EQ(Read({"--tipo=a=b"}).options[QStringLiteral("tipo")], QStringLiteral("a=b"));
    EXPECT_EQ(Read({"--tipo=--x"}).options[QStringLiteral("tipo")], QStringLiteral("--x"));
    EXPECT_EQ(Read({"--tipo="}).options[QStringLiteral("tipo")], QString());
}

TEST(Arguments, NothingIsAnOptionBehindTwoDashes)
{
    EXPECT_EQ(Read({"--", "--jet3"}).positional, Texts({"--jet3"}));
}

TEST(Arguments, FaultsNameTheOption)
{
    EXPECT_EQ(FaultOf({"--colore", "x"}), "Opzione sconosciuta: --colore.");
    EXPECT_EQ(FaultOf({"--tipo"}), "--tipo vuole un valore.");
    EXPECT_EQ(FaultOf({"--tipo", "--jet3"}), "--tipo vuole un valore.");
    EXPECT_EQ(FaultOf({"--tipo", "a", "--tipo=b"}), "--tipo c'è due volte.");
    EXPECT_EQ(FaultOf({"--jet3=si"}), "--jet3 non vuole un valore.");
}

}  // namespace
}  // namespace orlo::registro
