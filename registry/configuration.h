#pragma once

#include <QByteArray>
#include <QString>

namespace orlo
{

struct ProgramState;

/// The folders named by the configuration file; empty when the file does not name them.
struct ConfiguredPaths {
    QString applications;
    QString databases;
    QString reports;
};

// One entry a line: the key in columns 1 to 20, its colon in column 20, the value from column 21 to
// the end, blanks around both not counting.
//
//   Applicazioni       :/opt/orlo/
//   Databases          :/srv/orlo/
//   Reports            :/srv/orlo/stampe/
//
// Lines with any other key are ignored; of a key given twice the last value holds.

/// Takes the content of a configuration file, in UTF-8 or else in Windows-1252.
ConfiguredPaths ParseConfiguration(const QByteArray& content);

/// Reads the file, whatever the case of its name, into the three paths of the program's state. A
/// file that cannot be read leaves them as they are, without a message.
void ReadConfiguration(ProgramState& state, const QString& file_name);

}  // namespace orlo
