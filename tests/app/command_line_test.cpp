#include "app/command_line.h"

#include <gtest/gtest.h>

namespace orlo
{
namespace
{

ParsedCommandLine Parse(std::initializer_list<const char*> arguments)
{
    QStringList list{QStringLiteral("orlodesk")};
    for (const char* argument : arguments) list << QString::fromLatin1(argument);
    return ParseCommandLine(list, QStringLiteral("/opt/orlo"));
}

TEST(CommandLine, DefaultsAreThoseOfTheInstalledProgram)
{
    const ParsedCommandLine parsed = Parse({});
    ASSERT_FALSE(parsed.message);
    const CommandLine& line = parsed.command_line;
    EXPECT_EQ(line.configuration_file, QStringLiteral("/opt/orlo/Configurazione.ini"));
    EXPECT_EQ(line.component_file, QStringLiteral("/opt/orlo/liborlodesk-componente.so"));
    EXPECT_EQ(line.devices[0], QStringLiteral("/dev/ttyS0"));
    EXPECT_EQ(line.devices[3], QStringLiteral("/dev/ttyS3"));
    EXPECT_EQ(line.theme, Theme::Desktop);
    EXPECT_FALSE(line.Unattended());
}

TEST(CommandLine, OptionsAreTaken)
{
    const ParsedCommandLine parsed =
        Parse({"--configurazione", "/x/C.ini", "--componente", "x.so", "--com2", "/dev/ttyUSB0",
               "--tema", "scuro", "--traccia=/x/t.txt", "--acquisisci", "4,1,4,32", "--file",
               "P.TXT", "--sincronizza", "7,2,7"});
    ASSERT_FALSE(parsed.message);
    const CommandLine& line = parsed.command_line;
    EXPECT_EQ(line.configuration_file, QStringLiteral("/x/C.ini"));
    EXPECT_EQ(line.component_file, QStringLiteral("x.so"));
    EXPECT_EQ(line.devices[1], QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(line.theme, Theme::Dark);
    EXPECT_EQ(line.trace_file, QStringLiteral("/x/t.txt"));
    EXPECT_EQ(line.acquire, (std::vector<int>{4, 1, 32})) << "each once, in the order given";
    EXPECT_EQ(line.set_clock, (std::vector<int>{7, 2}));
    EXPECT_EQ(line.punch_file, QStringLiteral("P.TXT"));
    EXPECT_TRUE(line.Unattended());
}

TEST(CommandLine, SettingClocksIsUnattendedToo)
{
    EXPECT_TRUE(Parse({"--sincronizza", "3"}).command_line.Unattended());
}

TEST(CommandLine, WrongUsageIsExplained)
{
    const std::initializer_list<const char*> wrong[] = {
        {"--acquisisci", "0"},
        {"--acquisisci", "33"},
        {"--acquisisci", "1,"},
        {"--acquisisci", "x"},
        {"--acquisisci", ""},
        {"--acquisisci"},
        {"--sincronizza", "0"},
        {"--sincronizza", "1,33"},
        {"--sincronizza", "x"},
        {"--sincronizza"},
        {"--sincronizza", "1", "--file", "P.TXT"},
        {"--tema", "verde"},
        {"--sconosciuta"},
        {"parola"},
        {"--file", "P.TXT"},
        {"--acquisisci", "1", "--file", ""},
    };
    for (const auto& arguments : wrong) {
        const ParsedCommandLine parsed = Parse(arguments);
        ASSERT_TRUE(parsed.message) << *arguments.begin();
        EXPECT_TRUE(parsed.message->is_error);
        EXPECT_FALSE(parsed.message->text.isEmpty());
    }
}

TEST(CommandLine, HelpIsItalianAndNamesEveryOption)
{
    const ParsedCommandLine parsed = Parse({"--help"});
    ASSERT_TRUE(parsed.message);
    EXPECT_FALSE(parsed.message->is_error);
    for (const char* option :
         {"--configurazione", "--com1", "--com4", "--componente", "--acquisisci", "--sincronizza",
          "--file", "--tema", "--traccia", "--help"})
        EXPECT_TRUE(parsed.message->text.contains(QString::fromLatin1(option))) << option;
    EXPECT_TRUE(parsed.message->text.contains(QStringLiteral("Mostra questo aiuto.")));
}

}  // namespace
}  // namespace orlo
