#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::test {

/// One line of a file that includes another file.
struct IncludeLine {
    enum class Form {
        quoted,     ///< "header"
        angled,     ///< <header>
        unreadable, ///< Neither, for instance a macro.
    };

    Form form = Form::unreadable;
    std::string header; ///< What stands between the marks, or the whole line.
};

/// The include directives of a source text, those in comments and strings included: a floor has no use for
/// them either.
std::vector<IncludeLine> includeLines(std::string_view source);

/// True for the headers of the C++20 standard library (ISO/IEC 14882:2020, tables 24 and 25).
bool isStandardHeader(std::string_view header);

/// The includes of every source file below `floor` that are neither a standard header nor a file below one of
/// `roots`, each as "file: header".
std::vector<std::string> forbiddenIncludes(const std::filesystem::path& floor,
                                           const std::vector<std::filesystem::path>& roots);

/// Which source files below `directory` have which of the words in them, as `Room/File.cpp: word`.
std::vector<std::string> mentions(const std::filesystem::path& directory,
                                  const std::vector<std::string>& words);

} // namespace tessel::test
