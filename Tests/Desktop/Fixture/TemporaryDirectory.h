#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tessel::desktop {

/// A directory of its own for one desktop, removed with everything in it at the end.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Makes a directory inside it that only its owner may enter, as XDG_RUNTIME_DIR has to be.
    std::filesystem::path makeDirectory(const std::string& name) const;
    /// Writes a file inside it, in directories that are made for it, and returns its path.
    std::filesystem::path write(const std::string& name, const std::string& text) const;
    /// The regular files below it whose contents or names contain the bytes of `marker`.
    std::vector<std::filesystem::path> filesContaining(const std::string& marker) const;
    /// How many regular files there are below it.
    std::size_t fileCount() const;

private:
    std::filesystem::path path_;
};

} // namespace tessel::desktop
