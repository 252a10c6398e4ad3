#include "app/command_line.h"

#include "registry/terminal_record.h"

#include <QCommandLineParser>
#include <QDir>

#include <algorithm>

namespace orlo
{

namespace
{

struct Options {
    QCommandLineOption configuration{
        QStringLiteral("configurazione"),
        QStringLiteral(
            "File di configurazione, al posto di \"Configurazione.ini\" accanto al programma."),
        QStringLiteral("FILE")};
    std::array<QCommandLineOption, 4> devices{DeviceOption(1), DeviceOption(2), DeviceOption(3),
                                              DeviceOption(4)};
    QCommandLineOption component{
        QStringLiteral("componente"),
        QStringLiteral("Libreria che parla con i terminali Orlo e Sipa, al posto di "
                       "\"liborlodesk-componente.so\" accanto al programma."),
        QStringLiteral("FILE")};
    QCommandLineOption acquire{
        QStringLiteral("acquisisci"),
        QStringLiteral(
            "Acquisisce questi terminali senza mostrare la finestra, per esempio 1,4,7."),
        QStringLiteral("N[,N...]")};
    QCommandLineOption set_clock{
        QStringLiteral("sincronizza"),
        QStringLiteral("Regola l'orologio di questi terminali su quello del PC, senza mostrare la "
                       "finestra, per esempio 1,4,7. Insieme ad --acquisisci viene dopo."),
        QStringLiteral("N[,N...]")};
    QCommandLineOption punch_file{
        QStringLiteral("file"),
        QStringLiteral("File delle timbrature per --acquisisci (TIMBRAT.TXT)."),
        QStringLiteral("FILE")};
    QCommandLineOption theme{
        QStringLiteral("tema"),
        QStringLiteral("Aspetto \"chiaro\" o \"scuro\", al posto di quello del desktop."),
        QStringLiteral("ASPETTO")};
    QCommandLineOption trace{
        QStringLiteral("traccia"),
        QStringLiteral("Aggiunge a questo file ogni byte inviato e ricevuto, con l'ora."),
        QStringLiteral("FILE")};

    static QCommandLineOption DeviceOption(int port)
    {
        return {
            QStringLiteral("com%1").arg(port),
            QStringLiteral("Dispositivo che fa da COM%1 (/dev/ttyS%2).").arg(port).arg(port - 1),
            QStringLiteral("DISPOSITIVO"), QStringLiteral("/dev/ttyS%1").arg(port - 1)};
    }

    void AddTo(QCommandLineParser& parser) const
    {
        parser.addOption(configuration);
        for (const QCommandLineOption& device : devices) parser.addOption(device);
        parser.addOption(component);
        parser.addOption(acquire);
        parser.addOption(set_clock);
        parser.addOption(punch_file);
        parser.addOption(theme);
        parser.addOption(trace);
    }
};

/// The numbers of "1,4,7", nothing when the text is not such a list of terminal numbers.
std::optional<std::vector<int>> TerminalNumbers(const QString& text)
{
    std::vector<int> numbers;
    for (const QString& part : text.split(u',')) {
        bool is_number = false;
        const int number = part.trimmed().toInt(&is_number);
        if (!is_number || number < 1 || number > kTerminalSlots) return std::nullopt;
        if (std::find(numbers.begin(), numbers.end(), number) == numbers.end())
            numbers.push_back(number);
    }
    return numbers;
}

std::optional<Theme> ThemeNamed(const QString& name)
{
    if (name == QStringLiteral("chiaro")) return Theme::Light;
    if (name == QStringLiteral("scuro")) return Theme::Dark;
    return std::nullopt;
}

ParsedCommandLine WrongUsage(const QString& text)
{
    return {{}, CommandLineMessage{text + QStringLiteral("\nVedere --help."), true}};
}

/// The terminals named by an option; why that cannot be, when it cannot.
std::optional<QString> ReadTerminals(const QCommandLineParser& parser,
                                     const QCommandLineOption& option, std::vector<int>& terminals)
{
    if (!parser.isSet(option)) return std::nullopt;
    const auto numbers = TerminalNumbers(parser.values(option).join(u','));
    if (!numbers)
        return QStringLiteral("--%1 vuole numeri di terminale da 1 a %2, separati da virgole.")
            .arg(option.names().constFirst())
            .arg(kTerminalSlots);
    terminals = *numbers;
    return std::nullopt;
}

ParsedCommandLine Read(const QCommandLineParser& parser, const Options& options,
                       const QString& program_folder)
{
    const auto file_of = [&](const QCommandLineOption& option, const QString& beside_program) {
        return parser.isSet(option) ? parser.value(option)
                                    : QDir(program_folder).filePath(beside_program);
    };
    CommandLine line;
    line.configuration_file = file_of(options.configuration, QStringLiteral("Configurazione.ini"));
    line.component_file = file_of(options.component, QStringLiteral("liborlodesk-componente.so"));
    for (std::size_t i = 0; i < line.devices.size(); ++i)
        line.devices[i] = parser.value(options.devices[i]);
    line.trace_file = parser.value(options.trace);
    line.punch_file = parser.value(options.punch_file);

    if (parser.isSet(options.theme)) {
        const std::optional<Theme> theme = ThemeNamed(parser.value(options.theme));
        if (!theme) return WrongUsage(QStringLiteral("--tema vuole \"chiaro\" o \"scuro\"."));
        line.theme = *theme;
    }
    if (const auto misuse = ReadTerminals(parser, options.acquire, line.acquire))
        return WrongUsage(*misuse);
    if (const auto misuse = ReadTerminals(parser, options.set_clock, line.set_clock))
        return WrongUsage(*misuse);
    if (parser.isSet(options.punch_file) && line.punch_file.isEmpty())
        return WrongUsage(QStringLiteral("--file vuole il nome di un file."));
    if (parser.isSet(options.punch_file) && line.acquire.empty())
        return WrongUsage(QStringLiteral("--file vale solo insieme ad --acquisisci."));
    return {line, std::nullopt};
}

}  // namespace

ParsedCommandLine ParseCommandLine(const QStringList& arguments, const QString& program_folder)
{
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Registro dei terminali di rilevazione presenze e acquisizione delle timbrature."));
    options.AddTo(parser);
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Mostra questo aiuto."));
    parser.addOption(help);

    if (!parser.parse(arguments)) return WrongUsage(parser.errorText());
    if (parser.isSet(help)) return {{}, CommandLineMessage{parser.helpText(), false}};
    if (!parser.positionalArguments().isEmpty())
        return WrongUsage(
            QStringLiteral("Argomento sconosciuto: %1.").arg(parser.positionalArguments().first()));
    return Read(parser, options, program_folder);
}

}  // namespace orlo
