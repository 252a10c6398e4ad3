#include "jetfile/operation.h"

#include "jet/error.h"
#include "jetfile/json_reader.h"

#include <gtest/gtest.h>

namespace jetfile
{

namespace
{

TEST(Operation, CreateTableTakesEveryMember)
{
    const Operation operation = ReadOperation(ReadJson(R"({"op": "create-table", "table": "T",
        "columns": [{"name": "A", "type": "integer"}, {"name": "B", "type": "text", "size": 20}],
        "indexes": [{"name": "P", "columns": ["A"], "primary": true},
                    {"name": "I", "columns": [["B", "desc"], ["A", "asc"]], "unique": true,
                     "required": true, "ignorenull": true}]})"));
    const auto* table = std::get_if<jet::TableDefinition>(&operation);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->name, u"T");
    ASSERT_EQ(table->columns.size(), 2U);
    EXPECT_EQ(table->columns[1].name, u"B");
    EXPECT_EQ(table->columns[1].type, jet::ColumnType::Text);
    EXPECT_EQ(table->columns[1].size, 20);
    ASSERT_EQ(table->indexes.size(), 2U);
    EXPECT_TRUE(table->indexes[0].primary);
    EXPECT_FALSE(table->indexes[0].unique);
    EXPECT_TRUE(table->indexes[0].columns.at(0).ascending);
    EXPECT_TRUE(table->indexes[1].unique);
    EXPECT_TRUE(table->indexes[1].required);
    EXPECT_TRUE(table->indexes[1].ignore_nulls);
    ASSERT_EQ(table->indexes[1].columns.size(), 2U);
    EXPECT_FALSE(table->indexes[1].columns[0].ascending);
    EXPECT_TRUE(table->indexes[1].columns[1].ascending);
}

TEST(Operation, WhatItDoesNotKnowIsRefused)
{
    const char* const cases[] = {
        R"([])",
        R"({})",
        R"({"op": 1})",
        R"({"op": "drop", "table": "T"})",
        R"({"op": "insert", "row": {}})",
        R"({"op": "insert", "table": "T"})",
        R"({"op": "insert", "table": "T", "row": []})",
        R"({"op": "insert", "table": "T", "row": {}, "where": {}})",
        R"({"op": "delete", "table": "T"})",
        R"({"op": "delete", "table": "T", "index": "I"})",
        R"({"op": "delete", "table": "T", "where": {}, "index": "I", "key": []})",
        R"({"op": "update", "table": "T", "where": {}})",
        R"({"op": "add-column", "table": "T", "column": {"name": "A"}})",
        R"({"op": "add-column", "table": "T", "column": {"name": "A", "type": "char"}})",
        R"({"op": "add-column", "table": "T", "column": {"name": "A", "type": "text", "size": 1.5}})",
        R"({"op": "create-table", "table": "T", "columns": [],
            "indexes": [{"name": "I", "columns": [["A", "up"]]}]})",
    };
    for (const char* text : cases) {
        try {
            ReadOperation(ReadJson(text));
            ADD_FAILURE() << "was accepted: " << text;
        } catch (const jet::Error& error) {
            EXPECT_EQ(error.Number(), jet::kInvalidArgument) << text;
        }
    }
}

}  // namespace

}  // namespace jetfile
