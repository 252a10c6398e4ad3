#pragma once

#include "jet/integrity_check.h"
#include "tests/jet/power_cut_storage.h"
#include "tests/jet/table_model.h"

#include <gtest/gtest.h>

namespace jet::test
{

/// A sample opened for writing.
class Office
{
public:
    static constexpr const char* kName = "nimbo.mdb";

    explicit Office(std::string_view sample) : before_(ReadFile(Sample(sample)))
    {
        storage_.Put(kName, before_);
        database_ = Database::Open(kName, OpenMode::ReadWrite, storage_);
    }

    Database& Writable() { return *database_; }
    std::unique_ptr<Recordset> Terminals() { return database_->OpenTable(u"TERMINALI"); }

    std::unique_ptr<Recordset> Terminal(std::int32_t number)
    {
        auto rows = Terminals();
        rows->SetIndex(u"TERMINALE");
        rows->Seek({number});
        EXPECT_FALSE(rows->NoMatch());
        return rows;
    }

    /// As somebody else sees the file now.
    std::vector<ModelRow> Stored(std::u16string_view table)
    {
        const auto reader = Database::Open(kName, OpenMode::ReadOnly, storage_);
        return AllRows(*reader, Describe(*reader, table));
    }

    FileBytes Bytes() const { return storage_.Content(kName); }
    bool Unchanged() const { return Bytes() == before_; }
    void ExpectSound() { EXPECT_EQ(CheckIntegrity(kName, storage_), std::vector<std::string>{}); }

private:
    PowerCutStorage storage_;
    FileBytes before_;
    std::unique_ptr<Database> database_;
};

}  // namespace jet::test
