#include "jet/row_image.h"

#include "jet/data_page_writer.h"
#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

// Rows and pages against bytes written by hand.

namespace jet::test
{

namespace
{

ColumnLayout Column(std::uint16_t id, ColumnType type, bool fixed, std::uint16_t place,
                    std::uint16_t length)
{
    ColumnLayout column;
    column.name.push_back(u'c');
    column.type = type;
    column.id = id;
    column.fixed = fixed;
    (fixed ? column.fixed_offset : column.slot) = place;
    column.length = length;
    return column;
}

/// An Integer, a Yes/No and two texts.
TableLayout FourColumns()
{
    TableLayout table;
    table.columns_ever = 4;
    table.variable_slots = 2;
    table.columns = {
        Column(0, ColumnType::Integer, true, 0, 2), Column(1, ColumnType::YesNo, true, 0, 1),
        Column(2, ColumnType::Text, false, 0, 255), Column(3, ColumnType::Text, false, 1, 255)};
    return table;
}

TEST(RowImage, EmptyRow)
{
    const RowImage row(FourColumns());
    EXPECT_EQ(row.Join(kJet3), Hex("04 0000 030303 02 00"));
    EXPECT_EQ(row.Join(kJet4), Hex("0400 0000 0400 0400 0400 0200 00"));
}

TEST(RowImage, ValuesAndOffsets)
{
    const TableLayout table = FourColumns();
    RowImage row(table);
    row.SetField(table.columns[0], Hex("0500"));
    row.SetBit(1, true);
    row.SetField(table.columns[2], Hex("4142"));
    row.SetField(table.columns[3], Hex("434445"));
    EXPECT_EQ(row.Join(kJet3), Hex("04 0500 4142 434445 080503 02 0F"));
    EXPECT_EQ(row.Join(kJet4), Hex("0400 0500 4142 434445 0900 0600 0400 0200 0F"));
    row.SetNull(table.columns[0]);
    row.SetNull(table.columns[2]);
    EXPECT_EQ(row.Join(kJet3), Hex("04 0000 434445 060303 02 0A"));
    EXPECT_FALSE(row.Field(table.columns[2]));
    EXPECT_TRUE(row.Field(table.columns[3]));
}

TEST(RowImage, WithoutVariableSlotHasNeitherOffsetsNorTheirNumber)
{
    TableLayout table;
    table.columns_ever = 1;
    table.columns = {Column(0, ColumnType::Byte, true, 0, 1)};
    RowImage row(table);
    row.SetField(table.columns[0], Hex("2A"));
    EXPECT_EQ(row.Join(kJet3), Hex("01 2A 01"));
    EXPECT_EQ(row.Join(kJet4), Hex("0100 2A 01"));
}

struct Jump {
    const char* name;
    std::size_t first_text;
    std::size_t second_text;
    const char* trailer;  // behind the texts
};

// Offsets begin at 3; the offset table has 3 bytes, v and the mask one each.
TEST(RowImage, JumpTableOfJet3)
{
    const Jump kJumps[]{
        {"no jump up to 256 bytes", 100, 148, "FB6703 02 0C"},
        {"dummy when only the trailer passes 256", 100, 149, "FC6703 FF 02 0C"},
        {"the end passes 256", 100, 153, "006703 02 02 0C"},
        {"the second text begins at 256", 253, 10, "0A0003 01 02 0C"},
        {"two jumps, the nearer one written last", 255, 255, "010203 0201 02 0C"},
    };
    const TableLayout table = FourColumns();
    for (const Jump& jump : kJumps) {
        SCOPED_TRACE(jump.name);
        RowImage image(table);
        image.SetField(table.columns[2], FileBytes(jump.first_text, 'a'));
        image.SetField(table.columns[3], FileBytes(jump.second_text, 'b'));
        const FileBytes row = image.Join(kJet3);
        const auto texts = static_cast<std::ptrdiff_t>(3 + jump.first_text + jump.second_text);
        EXPECT_EQ(FileBytes(row.begin() + texts, row.end()), Hex(jump.trailer));

        const Row read(kJet3, ShapeOf(table),
                       {Page(1, std::make_shared<PageImage>(row)), RowState::Live, row});
        EXPECT_EQ(read.Field(table.columns[2])->size(), jump.first_text);
        EXPECT_EQ(read.Field(table.columns[3])->size(), jump.second_text);
    }
}

TEST(RowImage, LongestRow)
{
    TableLayout table = FourColumns();
    RowImage image(table);
    image.SetField(table.columns[2], FileBytes(2003 - 8, 'a'));
    EXPECT_EQ(image.Join(kJet3).size(), 2010u);
    image.SetField(table.columns[2], FileBytes(2008, 'a'));
    EXPECT_EQ(ErrorNumberOf([&] { image.Join(kJet3); }), kRecordTooLong);
    EXPECT_EQ(ErrorNumberOf([&] { image.Join(kJet4); }), 0);
}

TEST(RowImage, KeepsWhatBelongsToNoColumnOfToday)
{
    // Column 1 (a Byte behind the Integer) and slot 0 were deleted.
    TableLayout table;
    table.columns_ever = 4;
    table.variable_slots = 2;
    table.columns = {Column(0, ColumnType::Integer, true, 0, 2),
                     Column(3, ColumnType::Text, false, 1, 255)};
    const FileBytes stored = Hex("04 0500 77 4142 43 070604 02 0F");
    const Row row(kJet3, ShapeOf(table),
                  {Page(1, std::make_shared<PageImage>(stored)), RowState::Live, stored});
    RowImage image(table, row);
    image.SetField(table.columns[1], Hex("4445"));
    EXPECT_EQ(image.Join(kJet3), Hex("04 0500 77 4142 4445 080604 02 0F"));
}

DataPageWriter EmptyPage(const Format& format)
{
    return {format, Page(9, std::make_shared<PageImage>(DataPageWriter::Empty(format, 7)))};
}

TEST(DataPageWriter, RowsAreLaidDownFromTheEnd)
{
    DataPageWriter writer = EmptyPage(kJet4);
    EXPECT_EQ(writer.FreeSpace(), 4082u);
    EXPECT_EQ(writer.Add(Hex("AABBCC"), RowState::Live), 0u);
    EXPECT_EQ(writer.Add(Hex("DDEE"), RowState::MovedData), 1u);
    const PageImage page = writer.Take();
    EXPECT_EQ(FileBytes(page.begin(), page.begin() + 18),
              Hex("0101 E90F 07000000 00000000 0200 FD0F FB8F"));
    EXPECT_EQ(FileBytes(page.end() - 5, page.end()), Hex("DDEE AABBCC"));
}

TEST(DataPageWriter, LowerRowsFollowWhenOneChangesItsLength)
{
    DataPageWriter writer = EmptyPage(kJet3);
    writer.Add(Hex("AABBCC"), RowState::Live);
    writer.Add(Hex("DDEE"), RowState::Live);
    writer.Add(Hex("FF"), RowState::Live);
    writer.Replace(0, Hex("A1A2A3A4A5"), RowState::Live);
    writer.Erase(1);
    EXPECT_EQ(writer.FreeSpace(), 2048u - 10 - 3 * 2 - 6);
    const PageImage page = writer.Take();
    EXPECT_EQ(FileBytes(page.begin() + 8, page.begin() + 16), Hex("0300 FB07 FBC7 FA07"));
    EXPECT_EQ(FileBytes(page.end() - 6, page.end()), Hex("FF A1A2A3A4A5"));
}

TEST(DataPageWriter, PageOfOverlappingRowsIsDamaged)
{
    PageImage page = DataPageWriter::Empty(kJet3, 7);
    Put16(page, 8, 2);
    Put16(page, 10, 2000);
    Put16(page, 12, 2010);
    EXPECT_EQ(
        ErrorNumberOf([&] { DataPageWriter(kJet3, Page(9, std::make_shared<PageImage>(page))); }),
        kDamagedFile);
}

}  // namespace

}  // namespace jet::test
