#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace orlo::registro
{

// Fields with semicolons between them. A field with a semicolon, a quote or a line end in it stands
// in quotes, a quote in it doubled. Lines end with LF or CR LF.

struct CsvRecord {
    int line = 0;  ///< on which it begins, from 1
    QStringList fields;
};

struct CsvText {
    std::vector<CsvRecord> records;  ///< lines without any content are none
    int fault_line = 0;              ///< 0: no fault
    QString fault;                   ///< in Italian
};

CsvText ReadCsv(const QString& text);

/// With its line end.
QString CsvLine(const QStringList& fields);

}  // namespace orlo::registro
