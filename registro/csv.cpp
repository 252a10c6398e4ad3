#include "registro/csv.h"

#include <algorithm>

namespace orlo::registro
{

namespace
{

class CsvReader
{
public:
    explicit CsvReader(const QString& text) : text_(text) {}

    CsvText Read()
    {
        CsvText result;
        while (at_ < text_.size() && fault_.isEmpty()) {
            CsvRecord record = ReadRecord();
            const bool blank = std::ranges::all_of(record.fields, &QString::isEmpty);
            if (!blank) result.records.push_back(std::move(record));
        }
        if (!fault_.isEmpty()) return {{}, line_, fault_};
        return result;
    }

private:
    bool Takes(QStringView what)
    {
        if (!QStringView(text_).mid(at_).startsWith(what)) return false;
        at_ += what.size();
        return true;
    }

    bool TakesLineEnd()
    {
        if (!Takes(u"\r\n") && !Takes(u"\n")) return false;
        ++line_;
        return true;
    }

    CsvRecord ReadRecord()
    {
        CsvRecord record{line_, {}};
        do {
            record.fields << (Takes(u"\"") ? QuotedField() : PlainField());
        } while (Takes(u";"));
        if (fault_.isEmpty() && at_ < text_.size() && !TakesLineEnd())
            fault_ = QStringLiteral("testo dopo le virgolette di chiusura");
        return record;
    }

    QString PlainField()
    {
        const qsizetype start = at_;
        while (at_ < text_.size() && text_[at_] != u';' && text_[at_] != u'\n') ++at_;
        if (at_ > start && at_ < text_.size() && text_[at_] == u'\n' && text_[at_ - 1] == u'\r')
            --at_;
        return text_.mid(start, at_ - start);
    }

    QString QuotedField()
    {
        QString field;
        while (at_ < text_.size()) {
            if (Takes(u"\"\"")) {
                field += u'"';
            } else if (Takes(u"\"")) {
                return field;
            } else {
                if (text_[at_] == u'\n') ++line_;
                field += text_[at_++];
            }
        }
        fault_ = QStringLiteral("mancano le virgolette di chiusura");
        return field;
    }

    const QString& text_;
    qsizetype at_ = 0;
    int line_ = 1;
    QString fault_;
};

QString Quoted(const QString& field)
{
    const bool plain = std::ranges::none_of(
        field, [](QChar c) { return c == u';' || c == u'"' || c == u'\n' || c == u'\r'; });
    return plain ? field : u'"' + QString(field).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

}  // namespace

CsvText ReadCsv(const QString& text)
{
    return CsvReader(text).Read();
}

QString CsvLine(const QStringList& fields)
{
    QStringList written;
    std::ranges::transform(fields, std::back_inserter(written), Quoted);
    return written.join(u';') + u'\n';
}

}  // namespace orlo::registro
