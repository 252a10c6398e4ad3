// Reads every #include of the program and compares it with the layers: an include goes downwards
// only, features do not include each other, and there is no cycle between files.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;

using Names = std::set<std::string>;

/// Folder -> folders or single files that it may include, itself apart.
const std::map<std::string, Names> kMayInclude = {
    {"jet", {}},
    {"link", {}},
    {"simulator", {}},
    // As much of the program as a library of the terminals' maker would know.
    {"simulator/component", {"simulator", "link/protocol_component.h"}},
    {"jetfile", {"jet"}},
    {"registry", {"link", "jet"}},
    {"registro", {"registry", "link", "jet"}},
    {"acquisition", {"registry", "link", "jet"}},
    {"status", {"acquisition", "registry", "link", "jet"}},
    {"badge", {"registry", "link", "jet"}},
    {"bells", {"registry", "link", "jet"}},
    {"console", {"registry", "link", "jet"}},
    {"app", {"acquisition", "status", "badge", "bells", "console", "registry", "link", "jet"}},
};

/// The one piece that a feature offers to other features.
const Names kOfferedSideways = {"acquisition/stato_memoria.h"};

/// The folder of the table that the file belongs to; a part of a folder may have a row of its own.
std::string FolderOf(const std::string& path)
{
    std::string folder = path.substr(0, path.find('/'));
    for (const auto& [name, unused] : kMayInclude)
        if (path.starts_with(name + "/") && name.size() > folder.size()) folder = name;
    return folder;
}

struct SourceFile {
    std::string path;  // from the root, with forward slashes
    std::vector<std::string> project_includes;
    std::vector<std::string> system_includes;

    std::string Folder() const { return FolderOf(path); }
};

/// The name between the two marks, empty when the line is no #include of that form.
std::string Included(const std::string& line, char opening, char closing)
{
    const std::size_t directive = line.find_first_not_of(" \t");
    if (directive == std::string::npos || !line.substr(directive).starts_with("#include"))
        return {};
    const std::size_t start = line.find(opening);
    const std::size_t end = start == std::string::npos ? start : line.find(closing, start + 1);
    return end == std::string::npos ? std::string() : line.substr(start + 1, end - start - 1);
}

SourceFile ReadSource(const fs::path& root, const fs::path& file)
{
    SourceFile source{fs::relative(file, root).generic_string(), {}, {}};
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (const std::string name = Included(line, '"', '"'); !name.empty())
            source.project_includes.push_back(name);
        else if (const std::string header = Included(line, '<', '>'); !header.empty())
            source.system_includes.push_back(header);
    }
    return source;
}

std::vector<SourceFile> ProgramSources()
{
    const fs::path root = ORLO_SOURCE_ROOT;
    std::vector<SourceFile> sources;
    for (const auto& [folder, unused] : kMayInclude) {
        if (!fs::exists(root / folder)) continue;             // a feature that has no code yet
        if (folder.find('/') != std::string::npos) continue;  // met within its folder
        for (const auto& entry : fs::recursive_directory_iterator(root / folder))
            if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
                sources.push_back(ReadSource(root, entry.path()));
    }
    return sources;
}

bool IsGenerated(const std::string& include)
{
    return include.starts_with("ui_");
}

TEST(Architecture, IncludesGoDownwardsOnly)
{
    const std::vector<SourceFile> sources = ProgramSources();
    ASSERT_GT(sources.size(), 50U);
    for (const SourceFile& source : sources) {
        const Names& allowed = kMayInclude.at(source.Folder());
        for (const std::string& include : source.project_includes) {
            if (IsGenerated(include) || kOfferedSideways.contains(include)) continue;
            const std::string target = FolderOf(include);
            EXPECT_TRUE(target == source.Folder() || allowed.contains(target) ||
                        allowed.contains(include))
                << source.path << " includes " << include;
        }
    }
}

TEST(Architecture, ProjectIncludesAreWrittenFromTheRoot)
{
    const fs::path root = ORLO_SOURCE_ROOT;
    for (const SourceFile& source : ProgramSources())
        for (const std::string& include : source.project_includes)
            EXPECT_TRUE(IsGenerated(include) || fs::exists(root / include))
                << source.path << " includes " << include;
}

TEST(Architecture, EngineKnowsNoQtAndLinkKnowsNoWindow)
{
    const Names windows = {"QWidget",     "QApplication", "QLabel",
                           "QMessageBox", "QtWidgets",    "QDialog"};
    for (const SourceFile& source : ProgramSources())
        for (const std::string& include : source.system_includes) {
            EXPECT_FALSE(source.Folder() == "jet" && include.starts_with("Q"))
                << source.path << " includes " << include;
            EXPECT_FALSE(source.Folder() == "link" && windows.contains(include))
                << source.path << " includes " << include;
        }
}

TEST(Architecture, NoIncludeCycle)
{
    std::map<std::string, std::vector<std::string>> includes;
    for (const SourceFile& source : ProgramSources())
        includes[source.path] = source.project_includes;

    enum class Mark { Fresh, Open, Done };
    std::map<std::string, Mark> marks;
    std::function<void(const std::string&)> visit = [&](const std::string& file) {
        marks[file] = Mark::Open;
        for (const std::string& include : includes[file]) {
            EXPECT_NE(marks[include], Mark::Open) << file << " and " << include << " form a cycle";
            if (marks[include] == Mark::Fresh && includes.contains(include)) visit(include);
        }
        marks[file] = Mark::Done;
    };
    Names files;
    for (const auto& [file, unused] : includes) files.insert(file);
    for (const std::string& file : files)
        if (marks[file] == Mark::Fresh) visit(file);
}

}  // namespace
