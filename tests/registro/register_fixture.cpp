#include "tests/registro/register_fixture.h"

#include "tests/end_to_end/mdb_export.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace orlo::registro::test
{

namespace fs = std::filesystem;

RegisterFolder::RegisterFolder()
{
    std::string pattern = (fs::temp_directory_path() / "registro-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    folder_ = pattern;
}

RegisterFolder::~RegisterFolder()
{
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

bool RegisterFolder::Has(const std::string& name) const
{
    return fs::exists(PathOf(name));
}

std::string RegisterFolder::Read(const std::string& name) const
{
    std::ifstream file(PathOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void RegisterFolder::Write(const std::string& name, const std::string& content) const
{
    std::ofstream(PathOf(name), std::ios::binary) << content;
}

void RegisterFolder::TakeSample(const std::string& name) const
{
    fs::copy_file(fs::path(ORLO_TEST_DATA) / name, PathOf("nimbo.mdb"));
}

Ended RegisterFolder::Run(const std::vector<std::string>& arguments) const
{
    return end_to_end::ChildProcess(ORLO_REGISTRO_PATH, arguments,
                                    {folder_, {"LC_ALL=C.UTF-8"}, {}})
        .Wait();
}

std::string RegisterFolder::Do(const std::vector<std::string>& arguments) const
{
    const Ended ended = Run(arguments);
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.errors, "");
    return ended.output;
}

void RegisterFolder::ExpectRefused(const std::vector<std::string>& arguments,
                                   const std::string& text) const
{
    const std::string before = Read("nimbo.mdb");
    const Ended ended = Run(arguments);
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "orlodesk-registro: " + text + "\n");
    EXPECT_TRUE(Read("nimbo.mdb") == before);
}

std::string RegisterFolder::Exported(const std::string& table) const
{
    return end_to_end::MdbExport(PathOf("nimbo.mdb"), table);
}

}  // namespace orlo::registro::test
