#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

namespace orlo::registro
{

/// An option that a command knows: "--NAME VALUE" or "--NAME=VALUE", or "--NAME" by itself. A value
/// that begins with "--" needs the form with "=".
struct Option {
    QString name;
    QString value;  ///< what the help calls the value; empty: there is none
    QString meaning;
};

struct Arguments {
    QStringList positional;
    QMap<QString, QString> options;
};

/// Throws UsageError for an option that is unknown, lacks its value or is there twice. Behind "--"
/// nothing is an option.
Arguments ReadArguments(const QStringList& arguments, const std::vector<Option>& known);

}  // namespace orlo::registro
