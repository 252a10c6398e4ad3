#include "console/command_history.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

TypedCommand Command(const char* text)
{
    return {QString::fromLatin1(text), {}};
}

class CommandHistoryTest : public ::testing::Test
{
protected:
    CommandHistory history;

    void Send(std::initializer_list<const char*> commands)
    {
        for (const char* command : commands) history.Add(Command(command));
    }
    std::string Older(const char* typed = "") { return Text(history.Older(Command(typed))); }
    std::string Newer(const char* typed = "") { return Text(history.Newer(Command(typed))); }

private:
    static std::string Text(const TypedCommand& command) { return command.command.toStdString(); }
};

TEST_F(CommandHistoryTest, WithoutACommandSentWhatIsTypedStays)
{
    EXPECT_EQ(Older("abc"), "abc");
    EXPECT_EQ(Newer("abc"), "abc");
}

TEST_F(CommandHistoryTest, OlderOnesComeOneByOneAndTheOldestStays)
{
    Send({"03", "32", "950006"});
    EXPECT_EQ(Older(), "950006");
    EXPECT_EQ(Older(), "32");
    EXPECT_EQ(Older(), "03");
    EXPECT_EQ(Older(), "03");
}

TEST_F(CommandHistoryTest, WhatWasBeingTypedComesBackAtTheEnd)
{
    Send({"03", "32"});
    EXPECT_EQ(Older("95"), "32");
    EXPECT_EQ(Older("32"), "03");
    EXPECT_EQ(Newer("03"), "32");
    EXPECT_EQ(Newer("32"), "95");
    EXPECT_EQ(Newer("95"), "95");
}

TEST_F(CommandHistoryTest, TheSameTwiceInARowStandsOnce)
{
    Send({"03", "32", "32", "03"});
    EXPECT_EQ(Older(), "03");
    EXPECT_EQ(Older(), "32");
    EXPECT_EQ(Older(), "03");
    EXPECT_EQ(Older(), "03");
}

TEST_F(CommandHistoryTest, RefusedOneIsADraftBehindTheLastThatWasSent)
{
    Send({"03", "19"});
    Older();
    history.Restart();
    EXPECT_EQ(Older("x"), "19");
    EXPECT_EQ(Newer("19"), "x");
}

TEST_F(CommandHistoryTest, SendingBeginsAnewAtTheEnd)
{
    Send({"03", "32"});
    Older();
    Older();
    Send({"19"});
    EXPECT_EQ(Older(), "19");
}

TEST_F(CommandHistoryTest, WhatStandsInTheFieldsIsSteppedOver)
{
    Send({"03", "32"});
    EXPECT_EQ(Older("32"), "03");
    EXPECT_EQ(Newer("03"), "32");
}

TEST_F(CommandHistoryTest, TheOnlyCommandStays)
{
    Send({"03"});
    EXPECT_EQ(Older("03"), "03");
    EXPECT_EQ(Older("03"), "03");
}

TEST_F(CommandHistoryTest, OtherParametersAreAnotherCommand)
{
    history.Add({QStringLiteral("GETREL"), QStringLiteral("01,0")});
    history.Add({QStringLiteral("GETREL"), QStringLiteral("02,0")});
    const TypedCommand typed{QStringLiteral("GETREL"), QStringLiteral("03,0")};
    EXPECT_EQ(history.Older(typed).parameters, QStringLiteral("02,0"));
}

TEST_F(CommandHistoryTest, FiftyAreKept)
{
    for (int i = 0; i < 60; ++i) history.Add({QString::number(i), {}});
    std::string oldest;
    for (int i = 0; i < 60; ++i) oldest = Older();
    EXPECT_EQ(oldest, "10");
}

TEST_F(CommandHistoryTest, ParametersComeWithTheirCommand)
{
    const TypedCommand sent{QStringLiteral("GETREL"), QStringLiteral("01,0")};
    history.Add(sent);
    EXPECT_EQ(history.Older({}), sent);
}

}  // namespace
}  // namespace orlo
