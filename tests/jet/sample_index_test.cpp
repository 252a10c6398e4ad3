#include "jet/utf8.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

// Every index of every sample: the way along it and searches in it.

namespace jet::test
{

namespace
{

using Values = std::vector<Value>;

struct IndexedRow {
    Values key;
    Values all;
};

/// Keys ignore case; the texts of the samples that differ in nothing else are plain ASCII.
Value Folded(Value value)
{
    if (auto* text = std::get_if<Text>(&value)) {
        std::ranges::transform(*text, text->begin(), [](char16_t c) -> char16_t {
            return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
        });
    }
    return value;
}

Values Fields(Recordset& rows, const std::vector<std::u16string>& columns)
{
    Values values;
    for (const auto& column : columns) {
        values.push_back(rows.Field(column));
    }
    return values;
}

Values FoldedKey(const IndexedRow& row)
{
    Values key;
    std::ranges::transform(row.key, std::back_inserter(key), Folded);
    return key;
}

/// A value that is not far from this one, of the same kind.
Value Beside(const Value& value)
{
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return *number + (*number < 32767 ? 1 : -1);
    }
    if (const auto* date = std::get_if<Date>(&value)) {
        return Date{date->days + 1e-6};
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return *text + u"x";
    }
    if (auto number = std::get_if<Numeric>(&value)) {
        Numeric other = *number;
        other.magnitude[15] ^= 1;
        return other;
    }
    return Text(u"x");
}

class IndexWalk
{
public:
    IndexWalk(Database& database, const TableInfo& table, const IndexInfo& index)
        : cursor_(database.OpenTable(table.name))
    {
        for (const ColumnInfo& column : table.columns) {
            columns_.push_back(column.name);
        }
        cursor_->SetIndex(index.name);
        for (; !cursor_->AtEof(); cursor_->MoveNext()) {
            rows_.push_back({Fields(*cursor_, index.columns), Fields(*cursor_, columns_)});
        }
    }

    const std::vector<IndexedRow>& Rows() const { return rows_; }
    Recordset& Cursor() { return *cursor_; }

    void ExpectSameWayBack()
    {
        std::size_t left = rows_.size();
        for (cursor_->MoveLast(); !cursor_->AtBof(); cursor_->MovePrevious()) {
            ASSERT_GT(left, 0u);
            --left;
            ASSERT_EQ(Fields(*cursor_, columns_), rows_[left].all);
        }
        EXPECT_EQ(left, 0u);
    }

    void ExpectEveryKeyFound()
    {
        std::size_t first = 0;
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            if (FoldedKey(rows_[i]) != FoldedKey(rows_[first])) {
                first = i;
            }
            cursor_->Seek(rows_[i].key);
            ASSERT_FALSE(cursor_->NoMatch()) << "row " << i;
            ASSERT_EQ(Fields(*cursor_, columns_), rows_[first].all) << "row " << i;
        }
    }

    void ExpectAbsentKeysMissed()
    {
        for (const IndexedRow& row : rows_) {
            Values absent = row.key;
            absent.back() = Beside(absent.back());
            const auto same_key = [&](const IndexedRow& other) { return other.key == absent; };
            if (std::ranges::none_of(rows_, same_key)) {
                cursor_->Seek(absent);
                ASSERT_TRUE(cursor_->NoMatch());
                ++missed_;
            }
        }
    }

    std::size_t Missed() const { return missed_; }

private:
    std::unique_ptr<Recordset> cursor_;
    std::vector<std::u16string> columns_;
    std::vector<IndexedRow> rows_;
    std::size_t missed_ = 0;
};

TEST(SampleIndex, SeekFindsEveryKeyAndMissesAbsentOnes)
{
    std::size_t found = 0;
    std::size_t missed = 0;
    for (const auto& file : Samples()) {
        const auto database = Database::Open(file);
        for (const TableInfo& table : database->TableDefs()) {
            for (const IndexInfo& index : table.indexes) {
                SCOPED_TRACE(file.filename().string() + " " + ToUtf8(table.name) + " " +
                             ToUtf8(index.name));
                IndexWalk walk(*database, table, index);
                // This one leaves out rows without a value.
                const std::size_t rows =
                    index.name == u"PerCausale" ? 1731 : walk.Cursor().RecordCount();
                EXPECT_EQ(walk.Rows().size(), rows);
                walk.ExpectSameWayBack();
                walk.ExpectEveryKeyFound();
                walk.ExpectAbsentKeysMissed();
                found += walk.Rows().size();
                missed += walk.Missed();
            }
        }
    }
    EXPECT_EQ(found, 10099u);
    EXPECT_GT(missed, 1000u);
}

TEST(SampleIndex, RowsComeInTheOrderOfTheKey)
{
    struct Case {
        const char16_t* table;
        const char16_t* index;
        std::function<bool(const Values&, const Values&)> in_order;
    };
    const auto number_up = [](const Values& a, const Values& b) {
        return std::get<std::int32_t>(a[0]) <= std::get<std::int32_t>(b[0]);
    };
    const auto date = [](const Values& key) { return std::get<Date>(key[0]).days; };
    const auto text = [](const Values& key) { return std::get<Text>(key[0]); };
    const auto number = [](const Values& key) {
        const Numeric& value = std::get<Numeric>(key[0]);
        const int magnitude = value.magnitude[14] << 8 | value.magnitude[15];
        return value.negative ? -magnitude : magnitude;
    };
    const Case kCases[] = {
        {u"TERMINALI", u"TERMINALE", number_up},
        {u"Dipendenti", u"PrimaryKey", number_up},
        {u"Timbrature", u"PerMatricola", number_up},
        {u"Timbrature", u"PerQuando",
         [&](const Values& a, const Values& b) { return date(a) <= date(b); }},
        {u"Dipendenti", u"PerData",
         [&](const Values& a, const Values& b) { return date(a) >= date(b); }},
        {u"Tariffe", u"PerImporto",
         [&](const Values& a, const Values& b) { return number(a) <= number(b); }},
        // Hyphens count after everything else: T-2 and T--2 stand side by side, T-2 first.
        {u"Tariffe", u"PerCodice",
         [&](const Values& a, const Values& b) {
             const auto dense = [](Text code) {
                 std::erase(code, u'-');
                 return code;
             };
             return dense(text(a)) >= dense(text(b));
         }},
    };
    const auto database = Database::Open(Sample("nimbo-foreign-2000.mdb"));
    const auto tables = database->TableDefs();
    for (const Case& c : kCases) {
        SCOPED_TRACE(ToUtf8(c.table) + " " + ToUtf8(c.index));
        const auto table = std::ranges::find(tables, c.table, &TableInfo::name);
        ASSERT_NE(table, tables.end());
        const auto index = std::ranges::find(table->indexes, c.index, &IndexInfo::name);
        ASSERT_NE(index, table->indexes.end());
        const IndexWalk walk(*database, *table, *index);
        ASSERT_GT(walk.Rows().size(), 5u);
        for (std::size_t i = 1; i < walk.Rows().size(); ++i) {
            ASSERT_TRUE(c.in_order(walk.Rows()[i - 1].key, walk.Rows()[i].key)) << "row " << i;
        }
    }
}

}  // namespace

}  // namespace jet::test
