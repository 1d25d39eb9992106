#include "TemporaryDirectory.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

#include "Deadline.h"

namespace tessel::desktop {

namespace {

std::string contentsOf(const std::filesystem::path& file)
{
    const std::ifstream stream(file, std::ios::binary);
    std::ostringstream contents;
    contents << stream.rdbuf();
    return contents.str();
}

} // namespace

TemporaryDirectory::TemporaryDirectory()
{
    std::string name = (std::filesystem::temp_directory_path() / "tessel-desktop-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr)
        throw DesktopFailure("cannot make the temporary directory " + name);
    path_ = name;
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TemporaryDirectory::makeDirectory(const std::string& name) const
{
    const auto directory = path_ / name;
    std::filesystem::create_directories(directory);
    std::filesystem::permissions(directory, std::filesystem::perms::owner_all);
    return directory;
}

std::filesystem::path TemporaryDirectory::write(const std::string& name, const std::string& text) const
{
    const auto file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush())
        throw DesktopFailure("cannot write " + file.string());
    return file;
}

std::vector<std::filesystem::path> TemporaryDirectory::filesContaining(const std::string& marker) const
{
    std::vector<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path_)) {
        if (!entry.is_regular_file())
            continue;
        const bool isNamedSo = entry.path().filename().string().find(marker) != std::string::npos;
        if (isNamedSo || contentsOf(entry.path()).find(marker) != std::string::npos)
            found.push_back(entry.path());
    }
    return found;
}

std::size_t TemporaryDirectory::fileCount() const
{
    return filesContaining("").size();
}

} // namespace tessel::desktop
