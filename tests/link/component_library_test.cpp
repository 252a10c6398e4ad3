#include "link/component_library.h"

#include "tests/support/file_permissions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace orlo
{
namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::array<std::string, 4> kDevices = {"/dev/a", "/dev/b", "", "/dev/d"};

class ComponentLibrary : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::string pattern = ::testing::TempDir() + "/libreria.XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
        setenv("ORLO_STUB_LOG", PathOf("eventi").c_str(), 1);
    }
    void TearDown() override
    {
        unsetenv("ORLO_STUB_LOG");
        fs::remove_all(folder_);
    }

    std::string PathOf(const char* name) const { return (folder_ / name).string(); }

    static fs::path Stub(const std::string& name)
    {
        return fs::path(ORLO_STUB_FOLDER) / ("libcomponent_stub_" + name + ".so");
    }

    /// What the stub did since the last call.
    std::vector<std::string> Events() const
    {
        std::vector<std::string> events;
        std::ifstream file(PathOf("eventi"));
        for (std::string line; std::getline(file, line);) events.push_back(line);
        fs::remove(PathOf("eventi"));
        return events;
    }

    static std::string Complaint(const fs::path& file)
    {
        try {
            LoadComponent(file, kDevices);
        } catch (const ComponentError& error) {
            return error.what();
        }
        return "loaded";
    }

private:
    fs::path folder_;
};

TEST_F(ComponentLibrary, IsNotThere)
{
    const std::string file = PathOf("niente.so");
    EXPECT_EQ(Complaint(file), "Il componente \"" + file + "\" non si può usare: il file non c'è.");
}

TEST_F(ComponentLibrary, IsNoLibrary)
{
    std::ofstream(PathOf("testo.so")) << "questo è un testo";
    EXPECT_THAT(Complaint(PathOf("testo.so")), HasSubstr("testo.so\" non si può usare: "));
    EXPECT_THAT(Complaint(::testing::TempDir()), HasSubstr("non si può usare: ")) << "a folder";
}

TEST_F(ComponentLibrary, WasNotCopiedToItsEnd)
{
    const std::string file = PathOf("troncata.so");
    for (const std::uintmax_t length : {100U, 4096U, 20'000U}) {
        fs::copy_file(Stub("good"), file, fs::copy_options::overwrite_existing);
        fs::resize_file(file, length);
        EXPECT_EQ(Complaint(file),
                  "Il componente \"" + file + "\" non si può usare: il file è troncato.")
            << length << " bytes";
    }
}

TEST_F(ComponentLibrary, LacksAFunction)
{
    EXPECT_THAT(Complaint(Stub("without_interface")),
                HasSubstr("manca la funzione \"OrloComponentInterface\"."));
    EXPECT_THAT(Complaint(Stub("without_create")),
                HasSubstr("manca la funzione \"OrloCreateObject\"."));
    EXPECT_THAT(Events(), ElementsAre("unloaded", "unloaded"));
}

TEST_F(ComponentLibrary, IsMadeForAnotherVersion)
{
    EXPECT_THAT(Complaint(Stub("version_2")),
                HasSubstr("è fatto per la versione 2 dell'interfaccia, il programma per la "
                          "versione 1."));
    EXPECT_THAT(Events(), ElementsAre("unloaded")) << "no object was made";
}

TEST_F(ComponentLibrary, LacksAClassAndLeavesNothingBehind)
{
    EXPECT_THAT(Complaint(Stub("lacks_time_template")),
                HasSubstr("manca la classe \"TimeTemplate\"."));
    EXPECT_THAT(Events(),
                ElementsAre("device /dev/a", "device /dev/b", "device ", "device /dev/d",
                            "made TelegramComunication", "made UserData", "destroyed UserData",
                            "destroyed TelegramComunication", "unloaded"));
}

TEST_F(ComponentLibrary, MakesAnObjectOfAnotherClass)
{
    EXPECT_THAT(Complaint(Stub("mixes_up_time_template")),
                HasSubstr("manca la classe \"TimeTemplate\"."));
    EXPECT_THAT(Events(), ElementsAre("device /dev/a", "device /dev/b", "device ", "device /dev/d",
                                      "made TelegramComunication", "made UserData", "made UserData",
                                      "destroyed UserData", "destroyed UserData",
                                      "destroyed TelegramComunication", "unloaded"));
}

TEST_F(ComponentLibrary, CannotMakeAnObject)
{
    EXPECT_THAT(Complaint(Stub("throws_user_data")),
                HasSubstr("la classe \"UserData\" non si crea: licenza scaduta"));
    EXPECT_THAT(Events(), ElementsAre("device /dev/a", "device /dev/b", "device ", "device /dev/d",
                                      "made TelegramComunication", "destroyed TelegramComunication",
                                      "unloaded"));
}

TEST_F(ComponentLibrary, ThrowsSomethingThatIsNoException)
{
    EXPECT_THAT(Complaint(Stub("throws_number")), HasSubstr("la classe \"UserData\" non si crea."));
}

TEST_F(ComponentLibrary, HasANameThatNoFileCanHave)
{
    EXPECT_THAT(Complaint(""), HasSubstr("Il componente \"\" non si può usare: "));
    EXPECT_THAT(Complaint(PathOf(std::string(300, 'x').c_str())), HasSubstr(" non si può usare: "));
}

TEST_F(ComponentLibrary, IsALinkToItself)
{
    const std::string link = PathOf("cerchio.so");
    fs::create_symlink(link, link);
    EXPECT_THAT(Complaint(link), HasSubstr("Too many levels of symbolic links"));
}

TEST_F(ComponentLibrary, IsInAFolderWithoutPermission)
{
    const fs::path folder = PathOf("chiusa");
    fs::create_directory(folder);
    std::ofstream(folder / "componente.so") << "nessuno lo legge";
    fs::permissions(folder, fs::perms::none);
    {
        const testing::HeededPermissions heeded;
        EXPECT_THAT(Complaint(folder / "componente.so"), HasSubstr("Permission denied"));
    }
    fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(ComponentLibrary, MakesItsObjectsInOrderAndIsUnloadedAfterThem)
{
    std::unique_ptr<ComponentObjects> objects = LoadComponent(Stub("good"), kDevices);
    EXPECT_THAT(Events(),
                ElementsAre("device /dev/a", "device /dev/b", "device ", "device /dev/d",
                            "made TelegramComunication", "made UserData", "made TimeTemplate",
                            "made MCFormatData", "made TimeData", "made RecordData",
                            "made FPrVersion", "made T3Parameter", "made Rings"));
    objects.reset();
    const std::vector<std::string> events = Events();
    ASSERT_EQ(events.size(), 10U);
    EXPECT_EQ(events.back(), "unloaded");
    EXPECT_EQ(std::count(events.begin(), events.end(), "unloaded"), 1);
}

TEST_F(ComponentLibrary, IsFoundHereByItsNameAlone)
{
    const fs::path before = fs::current_path();
    fs::current_path(ORLO_STUB_FOLDER);
    EXPECT_NO_THROW(LoadComponent("libcomponent_stub_good.so", kDevices));
    EXPECT_THAT(Complaint("libc.so.6"), HasSubstr("il file non c'è."))
        << "the system's libraries are no components";
    fs::current_path(before);
}

TEST_F(ComponentLibrary, MayBeLoadedTwice)
{
    const std::unique_ptr<ComponentObjects> first = LoadComponent(Stub("good"), kDevices);
    std::unique_ptr<ComponentObjects> second = LoadComponent(Stub("good"), kDevices);
    EXPECT_NE(first->RingsObject, second->RingsObject);
    second.reset();
    std::int16_t terminal = 1;
    std::int16_t priority = 1;
    EXPECT_FALSE(first->RecordDataObject->GetRecordsInfo(terminal, priority));
    EXPECT_EQ(first->RecordDataObject->ReceivedCommand(), "98,Linea non aperta");
}

}  // namespace
}  // namespace orlo
