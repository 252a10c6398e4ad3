#include "link/component_library.h"

#include <dlfcn.h>
#include <link.h>

#include <cstring>
#include <fstream>

namespace orlo
{

namespace
{

ComponentError Failure(const std::filesystem::path& file, const std::string& what)
{
    return ComponentError("Il componente \"" + file.string() + "\" non si può usare: " + what);
}

/// dlerror() names the file in a form of its own; what is behind it is the reason.
std::string LoaderReason()
{
    const char* const text = dlerror();
    return text == nullptr ? "non si carica." : text;
}

/// A library that was not copied to its end: the loader maps what is not there, and touching it
/// ends the program. Of any other defect the loader tells.
bool IsCutShort(const std::filesystem::path& file)
{
    std::ifstream library(file, std::ios::binary);
    ElfW(Ehdr) header{};
    library.read(reinterpret_cast<char*>(&header), sizeof header);
    if (!library || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) return false;
    if (header.e_phentsize != sizeof(ElfW(Phdr))) return false;
    std::error_code error;
    const std::uintmax_t length = std::filesystem::file_size(file, error);
    library.seekg(static_cast<std::streamoff>(header.e_phoff));
    for (int i = 0; i < header.e_phnum; ++i) {
        ElfW(Phdr) segment{};
        library.read(reinterpret_cast<char*>(&segment), sizeof segment);
        if (!library) return true;
        if (segment.p_type == PT_LOAD && segment.p_offset + segment.p_filesz > length) return true;
    }
    return false;
}

class Loader
{
public:
    Loader(std::filesystem::path file, const std::array<std::string, 4>& devices)
        : file_(std::move(file)), library_(Open(file_))
    {
        for (std::size_t port = 0; port < devices.size(); ++port)
            devices_.at(port) = devices.at(port).c_str();
        const std::int32_t version = InterfaceVersion();
        if (version != component::kInterfaceVersion)
            throw Failure(file_, "è fatto per la versione " + std::to_string(version) +
                                     " dell'interfaccia, il programma per la versione " +
                                     std::to_string(component::kInterfaceVersion) + ".");
        create_ = Function<component::CreateFunction>(component::kCreateFunction);
    }

    const std::shared_ptr<void>& Library() const { return library_; }

    template <class Class>
    std::unique_ptr<Class> Create() const
    {
        const std::string name = Class::kClassName;
        std::unique_ptr<component::Object> object(CreateByName(name));
        auto* const wanted = dynamic_cast<Class*>(object.get());
        if (wanted == nullptr) throw Failure(file_, "manca la classe \"" + name + "\".");
        static_cast<void>(object.release());
        return std::unique_ptr<Class>(wanted);
    }

private:
    static std::shared_ptr<void> Open(const std::filesystem::path& file)
    {
        // What else is wrong with the name the loader says.
        std::error_code error;
        if (!std::filesystem::exists(file, error) && !error)
            throw Failure(file, "il file non c'è.");
        if (IsCutShort(file)) throw Failure(file, "il file è troncato.");
        void* const handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (handle == nullptr) throw Failure(file, LoaderReason());
        return {handle, dlclose};
    }

    template <class Pointer>
    Pointer Function(const char* name) const
    {
        void* const symbol = dlsym(library_.get(), name);
        if (symbol == nullptr)
            throw Failure(file_, std::string("manca la funzione \"") + name + "\".");
        return reinterpret_cast<Pointer>(symbol);
    }

    std::int32_t InterfaceVersion() const
    {
        const auto version = Function<component::InterfaceFunction>(component::kInterfaceFunction);
        try {
            return version();
        } catch (...) {
            throw Failure(file_, "non dice la sua versione.");
        }
    }

    component::Object* CreateByName(const std::string& name) const
    {
        try {
            return create_(name.c_str(), devices_.data());
        } catch (const std::exception& error) {
            throw Failure(file_, "la classe \"" + name + "\" non si crea: " + error.what());
        } catch (...) {
            throw Failure(file_, "la classe \"" + name + "\" non si crea.");
        }
    }

    std::filesystem::path file_;
    std::shared_ptr<void> library_;
    std::array<const char*, 4> devices_{};
    component::CreateFunction create_ = nullptr;
};

}  // namespace

std::unique_ptr<ComponentObjects> LoadComponent(const std::filesystem::path& file,
                                                const std::array<std::string, 4>& devices)
{
    // A name without a folder means a file here, never one from the system's search path.
    std::error_code error;
    const std::filesystem::path library = std::filesystem::absolute(file, error);
    if (error) throw Failure(file, error.message() + ".");
    const Loader loader(library, devices);
    auto objects = std::make_unique<ComponentObjects>();
    objects->library = loader.Library();
    objects->TelegramObject = loader.Create<component::TelegramComunication>();
    objects->UserDataObject = loader.Create<component::UserData>();
    objects->TimeTemplateObject = loader.Create<component::TimeTemplate>();
    objects->MCFormatDataObject = loader.Create<component::MCFormatData>();
    objects->TimeDataObject = loader.Create<component::TimeData>();
    objects->RecordDataObject = loader.Create<component::RecordData>();
    objects->FPrVersionObject = loader.Create<component::FPrVersion>();
    objects->T3ParameterObject = loader.Create<component::T3Parameter>();
    objects->RingsObject = loader.Create<component::Rings>();
    return objects;
}

}  // namespace orlo
