#include "jet/row.h"

#include "tests/jet/sample_files.h"

#include <gtest/gtest.h>

#include <memory>

namespace jet::test
{

namespace
{

constexpr std::uint32_t kPageNumber = 25;

Row MakeRow(const Format& format, const RowShape& shape, const FileBytes& bytes)
{
    const Page page(kPageNumber, std::make_shared<FileBytes>(bytes));
    return {format, shape, StoredRow{page, RowState::Live, page.Content()}};
}

ColumnDefinition Fixed(std::uint16_t id, std::uint16_t offset, std::uint16_t length)
{
    ColumnDefinition column;
    column.id = id;
    column.fixed = true;
    column.fixed_offset = offset;
    column.length = length;
    return column;
}

ColumnDefinition Variable(std::uint16_t id, std::uint16_t slot)
{
    ColumnDefinition column;
    column.id = id;
    column.slot = slot;
    return column;
}

std::optional<FileBytes> FieldOf(const Row& row, const ColumnDefinition& column)
{
    const auto bytes = row.Field(column);
    return bytes ? std::optional(FileBytes(bytes->begin(), bytes->end())) : std::nullopt;
}

FileBytes Joined(std::initializer_list<FileBytes> parts)
{
    FileBytes whole;
    for (const FileBytes& part : parts) {
        whole.insert(whole.end(), part.begin(), part.end());
    }
    return whole;
}

FileBytes Text(std::string_view characters)
{
    return {characters.begin(), characters.end()};
}

// Terminal 5 of a register: 24 columns, of which 2, 9 and 22 are variable and 3, 11, 20 Yes/No.
const RowShape kRegisterShape{24, 3, 2};

FileBytes RegisterRow3()
{
    return Joined({Hex("18 0500 0300 0300 0100 0500 B0040000 0000003F 0C00"
                       "0100 0200 0300 0400 0700 0600 0100 0F00 0500 0500"),
                   Text("Universit\xE0 \x80uro"), Text("Badge azienda"), Text("0464 910685"),
                   Hex("50 45 38 29 03 FFF7FF")});
}

TEST(Row, RegisterRowOfJet3)
{
    const Row row = MakeRow(kJet3, kRegisterShape, RegisterRow3());
    EXPECT_EQ(FieldOf(row, Fixed(0, 0, 2)), Hex("0500"));
    EXPECT_EQ(FieldOf(row, Fixed(7, 10, 4)), Hex("B0040000"));
    EXPECT_EQ(FieldOf(row, Fixed(23, 38, 2)), Hex("0500"));
    EXPECT_EQ(FieldOf(row, Variable(2, 0)), Text("Universit\xE0 \x80uro"));
    EXPECT_EQ(FieldOf(row, Variable(9, 1)), Text("Badge azienda"));
    EXPECT_EQ(FieldOf(row, Variable(22, 2)), Text("0464 910685"));
    EXPECT_TRUE(row.Bit(3));
    EXPECT_FALSE(row.Bit(11));
}

TEST(Row, RegisterRowOfJet4)
{
    // The same fixed part; the offsets have two bytes.
    const Row row =
        MakeRow(kJet4, kRegisterShape,
                Joined({Hex("1800 0500 0300 0300 0100 0500 B0040000 0000003F 0C00"
                            "0100 0200 0300 0400 0700 0600 0100 0F00 0500 0500"),
                        Text("abcd"), Text("ef"), Hex("3000 3000 2E00 2A00 0300 FBF7FF")}));
    EXPECT_EQ(FieldOf(row, Fixed(23, 38, 2)), Hex("0500"));
    EXPECT_EQ(FieldOf(row, Variable(2, 0)), std::nullopt);
    EXPECT_EQ(FieldOf(row, Variable(9, 1)), Text("ef"));
    EXPECT_EQ(FieldOf(row, Variable(22, 2)), Text("")) << "empty is not null";
}

TEST(Row, OffsetsBeyond255)
{
    const FileBytes a(200, 'a');
    const FileBytes b(100, 'b');
    // Offsets 1, 201, 301; entry 2 is the first to pass 256.
    const Row row = MakeRow(kJet3, {2, 2, 0}, Joined({Hex("02"), a, b, Hex("2D C9 01 02 02 03")}));
    EXPECT_EQ(FieldOf(row, Variable(0, 0)), a);
    EXPECT_EQ(FieldOf(row, Variable(1, 1)), b);
}

TEST(Row, OneEntryPasses256And512)
{
    const FileBytes a(600, 'a');
    const Row row = MakeRow(kJet3, {1, 1, 0}, Joined({Hex("01"), a, Hex("59 01 01 01 01 01")}));
    EXPECT_EQ(FieldOf(row, Variable(0, 0)), a);
}

TEST(Row, DummyJumpByteWhenOnlyTheTrailerIsBeyond255)
{
    const FileBytes a(235, 'a');
    // 20 slots, all but the first empty: 21 offsets, of which the last two are EC (236) and 01.
    const Row row = MakeRow(kJet3, {20, 20, 0},
                            Joined({Hex("14"), a, FileBytes(20, 0xEC), Hex("01 FF 14 FFFF0F")}));
    EXPECT_EQ(FieldOf(row, Variable(0, 0)), a);
    EXPECT_EQ(FieldOf(row, Variable(19, 19)), FileBytes{});
}

TEST(Row, OlderThanAColumn)
{
    // Written when the table had one fixed column and one variable one.
    const RowShape shape{6, 2, 1};
    const Row row = MakeRow(kJet3, shape, Joined({Hex("02 0500"), Text("xy"), Hex("05 03 01 03")}));
    EXPECT_EQ(FieldOf(row, Fixed(0, 0, 2)), Hex("0500"));
    EXPECT_EQ(FieldOf(row, Variable(1, 0)), Text("xy"));
    EXPECT_EQ(FieldOf(row, Variable(2, 1)), std::nullopt);
    EXPECT_EQ(FieldOf(row, Fixed(3, 2, 4)), std::nullopt);
    EXPECT_FALSE(row.Bit(5));
}

TEST(Row, OlderThanEveryVariableColumn)
{
    const Row row = MakeRow(kJet4, {3, 1, 2}, Hex("0200 0500 0700 03"));
    EXPECT_EQ(FieldOf(row, Fixed(1, 2, 2)), Hex("0700"));
    EXPECT_EQ(FieldOf(row, Variable(2, 0)), std::nullopt);
}

TEST(Row, PaddingBeforeTheOffsetsIsSkipped)
{
    const Row row =
        MakeRow(kJet3, {1, 1, 0}, Joined({Hex("01"), Text("ab"), Hex("000000 03 01 01 01")}));
    EXPECT_EQ(FieldOf(row, Variable(0, 0)), Text("ab"));
}

TEST(Row, PartsThatDoNotFitAreDamage)
{
    struct Case {
        const char* name;
        const Format& format;
        RowShape shape;
        const char* bytes;
    };
    const Case kCases[] = {
        {"no byte", kJet3, {1, 0, 1}, ""},
        {"half a column count", kJet4, {1, 0, 1}, "01"},
        {"more columns than the table ever had", kJet3, {1, 0, 1}, "02 00 03"},
        {"no room for the mask", kJet3, {9, 0, 9}, "09 FF"},
        {"no room for the slot count", kJet3, {1, 1, 0}, "01 01"},
        {"more slots than the table has", kJet3, {1, 1, 0}, "01 01 01 01 02 01"},
        {"no room for the offsets", kJet3, {1, 1, 0}, "01 01 01 01"},
        {"data ends inside the offsets", kJet3, {1, 1, 0}, "01 61 03 01 01 01"},
        {"data begins inside the column count", kJet3, {1, 1, 0}, "01 61 02 00 01 01"},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(ErrorNumberOf([&] { MakeRow(c.format, c.shape, Hex(c.bytes)); }), kDamagedFile)
            << c.name;
    }
}

TEST(Row, FieldsThatDoNotFitAreDamage)
{
    const Row fixed = MakeRow(kJet3, {1, 0, 1}, Hex("01 0500 01"));
    EXPECT_EQ(ErrorNumberOf([&] { fixed.Field(Fixed(0, 0, 4)); }), kDamagedFile);
    EXPECT_EQ(ErrorNumberOf([&] { fixed.Field(Fixed(0, 0xFFFF, 0xFFFF)); }), kDamagedFile);
    // Offsets 2, 4, 3: slot 0 ends behind the data, slot 1 ends before it begins.
    const Row crossed = MakeRow(kJet3, {2, 2, 0}, Hex("02 61 62 63 64 03 04 02 02 03"));
    EXPECT_EQ(ErrorNumberOf([&] { crossed.Field(Variable(0, 0)); }), kDamagedFile);
    EXPECT_EQ(ErrorNumberOf([&] { crossed.Field(Variable(1, 1)); }), kDamagedFile);
}

}  // namespace

}  // namespace jet::test
