#pragma once

#include "tests/end_to_end/child_process.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orlo::registro::test
{

using end_to_end::Ended;

/// Runs the real program in a folder of its own, which goes away with the test.
class RegisterFolder : public testing::Test
{
public:
    RegisterFolder();
    ~RegisterFolder() override;
    RegisterFolder(const RegisterFolder&) = delete;
    RegisterFolder& operator=(const RegisterFolder&) = delete;

protected:
    std::string PathOf(const std::string& name) const { return folder_ + "/" + name; }
    bool Has(const std::string& name) const;
    std::string Read(const std::string& name) const;
    void Write(const std::string& name, const std::string& content) const;
    /// Puts a sample database there as "nimbo.mdb".
    void TakeSample(const std::string& name) const;

    Ended Run(const std::vector<std::string>& arguments) const;
    /// Expects that it is done, with nothing on standard error; what it wrote.
    std::string Do(const std::vector<std::string>& arguments) const;
    /// Expects that it fails with 1 and says that, and that "nimbo.mdb" has not changed.
    void ExpectRefused(const std::vector<std::string>& arguments, const std::string& text) const;

    /// A table as an independent reader sees it.
    std::string Exported(const std::string& table) const;

private:
    std::string folder_;
};

}  // namespace orlo::registro::test
