#include "registro/csv.h"

#include <gtest/gtest.h>

namespace orlo::registro
{
namespace
{

std::vector<QStringList> Fields(const char* text)
{
    std::vector<QStringList> fields;
    for (const CsvRecord& record : ReadCsv(QString::fromUtf8(text)).records)
        fields.push_back(record.fields);
    return fields;
}

QStringList Texts(std::initializer_list<const char*> texts)
{
    QStringList list;
    for (const char* text : texts) list << QString::fromUtf8(text);
    return list;
}

TEST(Csv, RecordsAreCutAtSemicolonsAndLineEnds)
{
    const std::vector<QStringList> wanted = {Texts({"a", "", "c"}), Texts({"d", "e", ""})};
    EXPECT_EQ(Fields("a;;c\nd;e;\n"), wanted);
    EXPECT_EQ(Fields("a;;c\r\nd;e;\r\n"), wanted);
    EXPECT_EQ(Fields("a;;c\nd;e;"), wanted);
    EXPECT_EQ(Fields("\na;;c\n\r\n\nd;e;"), wanted);
}

TEST(Csv, QuotedFieldsHoldAnything)
{
    EXPECT_EQ(Fields("\"a;\"\"b\"\"\nc\";\"\"\n"),
              std::vector<QStringList>{Texts({"a;\"b\"\nc", ""})});
}

TEST(Csv, RecordsKnowTheirLine)
{
    const CsvText csv = ReadCsv(QStringLiteral("a\n\n\"b\nb\"\nc\n"));
    ASSERT_EQ(csv.records.size(), 3U);
    EXPECT_EQ(csv.records[0].line, 1);
    EXPECT_EQ(csv.records[1].line, 3);
    EXPECT_EQ(csv.records[2].line, 5);
}

TEST(Csv, BrokenQuotesAreAFaultOfTheirLine)
{
    EXPECT_EQ(ReadCsv(QStringLiteral("a\n\"b\" c;d\n")).fault_line, 2);
    EXPECT_EQ(ReadCsv(QStringLiteral("a\n\"b\" c;d\n")).fault,
              QStringLiteral("testo dopo le virgolette di chiusura"));
    EXPECT_EQ(ReadCsv(QStringLiteral("a;\"b")).fault,
              QStringLiteral("mancano le virgolette di chiusura"));
}

TEST(Csv, LinesAreWrittenWithQuotesWhereNeeded)
{
    EXPECT_EQ(CsvLine(Texts({"0,5", "a;b", "c\"d", ""})),
              QStringLiteral("0,5;\"a;b\";\"c\"\"d\";\n"));
}

}  // namespace
}  // namespace orlo::registro
