#include "registro/arguments.h"

#include "registro/failure.h"

#include <algorithm>

namespace orlo::registro
{

namespace
{

class ArgumentReader
{
public:
    ArgumentReader(const QStringList& arguments, const std::vector<Option>& known)
        : rest_(arguments), known_(known)
    {
    }

    Arguments Read()
    {
        while (!rest_.isEmpty()) {
            const QString argument = rest_.takeFirst();
            if (argument == u"--") {
                read_.positional << rest_;
                break;
            }
            if (argument.startsWith(u"--"))
                ReadOption(argument.mid(2));
            else
                read_.positional << argument;
        }
        return read_;
    }

private:
    void ReadOption(const QString& text)
    {
        const qsizetype equals = text.indexOf(u'=');
        const QString name = text.left(equals);
        const auto option = std::ranges::find(known_, name, &Option::name);
        if (option == known_.end())
            throw UsageError(QStringLiteral("Opzione sconosciuta: --%1.").arg(name));
        if (read_.options.contains(name))
            throw UsageError(QStringLiteral("--%1 c'è due volte.").arg(name));
        read_.options[name] =
            equals < 0 ? FollowingValue(*option) : OwnValue(*option, text.mid(equals + 1));
    }

    QString FollowingValue(const Option& option)
    {
        if (option.value.isEmpty()) return {};
        if (rest_.isEmpty() || rest_.first().startsWith(u"--"))
            throw UsageError(QStringLiteral("--%1 vuole un valore.").arg(option.name));
        return rest_.takeFirst();
    }

    static QString OwnValue(const Option& option, const QString& value)
    {
        if (option.value.isEmpty())
            throw UsageError(QStringLiteral("--%1 non vuole un valore.").arg(option.name));
        return value;
    }

    QStringList rest_;
    const std::vector<Option>& known_;
    Arguments read_;
};

}  // namespace

Arguments ReadArguments(const QStringList& arguments, const std::vector<Option>& known)
{
    return ArgumentReader(arguments, known).Read();
}

}  // namespace orlo::registro
