#include "IncludeScanner.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <sstream>

namespace tessel::test {

namespace {

/// In alphabetical order.
constexpr auto standardHeaders = std::to_array<std::string_view>({
    "algorithm",
    "any",
    "array",
    "atomic",
    "barrier",
    "bit",
    "bitset",
    "cassert",
    "cctype",
    "cerrno",
    "cfenv",
    "cfloat",
    "charconv",
    "chrono",
    "cinttypes",
    "climits",
    "clocale",
    "cmath",
    "codecvt",
    "compare",
    "complex",
    "concepts",
    "condition_variable",
    "coroutine",
    "csetjmp",
    "csignal",
    "cstdarg",
    "cstddef",
    "cstdint",
    "cstdio",
    "cstdlib",
    "cstring",
    "ctime",
    "cuchar",
    "cwchar",
    "cwctype",
    "deque",
    "exception",
    "execution",
    "filesystem",
    "format",
    "forward_list",
    "fstream",
    "functional",
    "future",
    "initializer_list",
    "iomanip",
    "ios",
    "iosfwd",
    "iostream",
    "istream",
    "iterator",
    "latch",
    "limits",
    "list",
    "locale",
    "map",
    "memory",
    "memory_resource",
    "mutex",
    "new",
    "numbers",
    "numeric",
    "optional",
    "ostream",
    "queue",
    "random",
    "ranges",
    "ratio",
    "regex",
    "scoped_allocator",
    "semaphore",
    "set",
    "shared_mutex",
    "source_location",
    "span",
    "sstream",
    "stack",
    "stdexcept",
    "stop_token",
    "streambuf",
    "string",
    "string_view",
    "strstream",
    "syncstream",
    "system_error",
    "thread",
    "tuple",
    "type_traits",
    "typeindex",
    "typeinfo",
    "unordered_map",
    "unordered_set",
    "utility",
    "valarray",
    "variant",
    "vector",
    "version",
});

bool isSourceFile(const std::filesystem::path& path)
{
    const auto extension = path.extension();
    return extension == ".h" || extension == ".cpp" || extension == ".mm" || extension == ".inc";
}

std::string contents(const std::filesystem::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

bool isAllowed(const IncludeLine& line, const std::vector<std::filesystem::path>& roots)
{
    switch (line.form) {
    case IncludeLine::Form::angled:
        return isStandardHeader(line.header);
    case IncludeLine::Form::quoted:
        return line.header.find("..") == std::string::npos &&
               std::any_of(roots.begin(), roots.end(), [&line](const std::filesystem::path& root) {
                   return std::filesystem::is_regular_file(root / line.header);
               });
    case IncludeLine::Form::unreadable:
        break;
    }
    return false;
}

std::string_view withoutLeadingBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    return text;
}

std::string_view withoutTrailingBlanks(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(" \t\r") + 1);
}

/// What follows the directive's name. None: the line includes nothing.
std::optional<std::string_view> includeOperand(std::string_view line)
{
    line = withoutLeadingBlanks(line);
    if (!line.starts_with('#'))
        return std::nullopt;
    line = withoutLeadingBlanks(line.substr(1));
    for (const std::string_view name : {"include_next", "include", "import"}) {
        if (line.starts_with(name))
            return withoutTrailingBlanks(withoutLeadingBlanks(line.substr(name.size())));
    }
    return std::nullopt;
}

IncludeLine includeLine(std::string_view operand)
{
    const char closing = operand.starts_with('"') ? '"' : operand.starts_with('<') ? '>' : '\0';
    const auto end = closing == '\0' ? std::string_view::npos : operand.find(closing, 1);
    if (end == std::string_view::npos)
        return {IncludeLine::Form::unreadable, std::string(operand)};
    return {closing == '"' ? IncludeLine::Form::quoted : IncludeLine::Form::angled,
            std::string(operand.substr(1, end - 1))};
}

} // namespace

std::vector<IncludeLine> includeLines(std::string_view source)
{
    std::vector<IncludeLine> lines;
    std::istringstream stream{std::string(source)};
    for (std::string line; std::getline(stream, line);) {
        if (const auto operand = includeOperand(line))
            lines.push_back(includeLine(*operand));
    }
    return lines;
}

bool isStandardHeader(std::string_view header)
{
    return std::find(standardHeaders.begin(), standardHeaders.end(), header) != standardHeaders.end();
}

std::vector<std::string> forbiddenIncludes(const std::filesystem::path& floor,
                                           const std::vector<std::filesystem::path>& roots)
{
    std::vector<std::string> forbidden;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(floor)) {
        if (!entry.is_regular_file() || !isSourceFile(entry.path()))
            continue;
        for (const IncludeLine& line : includeLines(contents(entry.path()))) {
            if (!isAllowed(line, roots))
                forbidden.push_back(entry.path().lexically_relative(floor).string() + ": " + line.header);
        }
    }
    return forbidden;
}

std::vector<std::string> mentions(const std::filesystem::path& directory,
                                  const std::vector<std::string>& words)
{
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
        if (!entry.is_regular_file() || !isSourceFile(entry.path()))
            continue;
        const std::string text = contents(entry.path());
        for (const std::string& word : words) {
            if (text.find(word) != std::string::npos)
                found.push_back(entry.path().lexically_relative(directory).string() + ": " + word);
        }
    }
    return found;
}

} // namespace tessel::test
