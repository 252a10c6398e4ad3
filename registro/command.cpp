#include "registro/command.h"

#include "registro/failure.h"

#include <algorithm>
#include <ostream>

namespace orlo::registro
{

namespace
{

const QString kProgram = QStringLiteral("orlodesk-registro");

/// Two columns, as wide as the widest left text.
QString Table(const std::vector<std::pair<QString, QString>>& lines)
{
    qsizetype width = 0;
    for (const auto& line : lines) width = std::max(width, line.first.size());
    QString text;
    for (const auto& [left, right] : lines)
        text += QStringLiteral("  %1  %2\n").arg(left.leftJustified(width), right);
    return text;
}

QString GeneralHelp()
{
    std::vector<std::pair<QString, QString>> lines;
    for (const Command& command : Commands()) lines.emplace_back(command.Usage(), command.meaning);
    return QStringLiteral(
               "Cura da riga di comando il registro dei terminali, \"nimbo.mdb\".\n\n"
               "Uso: %1 COMANDO ...\n\n%2\n"
               "FILE è il database, CARTELLA quella in cui c'è \"nimbo.mdb\"; N un numero di "
               "terminale.\n"
               "%1 COMANDO --help dice le opzioni di un comando.\n"
               "Esito: 0 fatto, 1 non riuscito (il motivo va sullo standard error), 2 uso "
               "errato.\n")
        .arg(kProgram, Table(lines));
}

bool AsksForHelp(const QString& argument)
{
    return argument == u"--help" || argument == u"-h";
}

Command CommandNamed(const QString& name)
{
    const std::vector<Command> commands = Commands();
    const auto command = std::ranges::find(commands, name, &Command::name);
    if (command == commands.end())
        throw UsageError(QStringLiteral("Comando sconosciuto: %1.").arg(name));
    return *command;
}

}  // namespace

QString Command::Usage() const
{
    QString usage = name + u' ' + arguments.join(u' ');
    if (!options.empty()) usage += QStringLiteral(" [OPZIONI]");
    return usage;
}

QString Command::Help() const
{
    QString help = QStringLiteral("Uso: %1 %2\n%3.\n").arg(kProgram, Usage(), meaning);
    std::vector<std::pair<QString, QString>> lines;
    for (const Option& option : options)
        lines.emplace_back(QStringLiteral("--%1 %2").arg(option.name, option.value).trimmed(),
                           option.meaning);
    return lines.empty() ? help : help + u'\n' + Table(lines);
}

void Command::CheckCount(const Arguments& given) const
{
    const auto optional = std::ranges::count_if(
        arguments, [](const QString& argument) { return argument.startsWith(u'['); });
    if (given.positional.size() > arguments.size())
        throw UsageError(
            QStringLiteral("Argomento di troppo: %1.").arg(given.positional[arguments.size()]));
    if (given.positional.size() < arguments.size() - optional)
        throw UsageError(
            QStringLiteral("Manca l'argomento %1.").arg(arguments[given.positional.size()]));
}

std::vector<Command> Commands()
{
    std::vector<Command> commands = RegisterCommands();
    std::ranges::move(TerminalCommands(), std::back_inserter(commands));
    return commands;
}

void RunCommandLine(const QStringList& arguments, Streams streams)
{
    if (arguments.isEmpty()) throw UsageError(QStringLiteral("Manca il comando."));
    if (AsksForHelp(arguments.first())) {
        streams.out << GeneralHelp().toStdString();
        return;
    }
    const Command command = CommandNamed(arguments.first());
    const QStringList rest = arguments.mid(1);
    if (std::ranges::any_of(rest, AsksForHelp)) {
        streams.out << command.Help().toStdString();
        return;
    }
    const Arguments given = ReadArguments(rest, command.options);
    command.CheckCount(given);
    command.run(given, streams);
}

}  // namespace orlo::registro
