#include "CommandLine.h"

#include <charconv>
#include <functional>
#include <map>

namespace tessel::owners {

namespace {

template <class Number>
Number numberIn(const std::string& option, std::string_view digits)
{
    Number number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size() || number < Number{})
        throw UsageError(option + " needs a number that is not negative");
    return number;
}

/// "10", "10s" and "0.5s" are seconds; "500ms" are milliseconds.
std::chrono::milliseconds durationIn(const std::string& option, std::string_view value)
{
    double millisecondsPerUnit = 1000;
    if (value.ends_with("ms"))
        millisecondsPerUnit = 1;
    if (value.ends_with("s"))
        value.remove_suffix(value.ends_with("ms") ? 2 : 1);
    return std::chrono::milliseconds(
        static_cast<std::int64_t>(numberIn<double>(option, value) * millisecondsPerUnit));
}

using Setter = std::function<void(Options& options, const std::string& option, const std::string& value)>;

/// Sets one option to the words of the caller.
template <class Member>
Setter text(Member member)
{
    return
        [member](Options& options, const std::string&, const std::string& value) { options.*member = value; };
}

template <class Member>
Setter duration(Member member)
{
    return [member](Options& options, const std::string& option, const std::string& value) {
        options.*member = durationIn(option, value);
    };
}

template <class Member>
Setter count(Member member)
{
    return [member](Options& options, const std::string& option, const std::string& value) {
        options.*member = numberIn<std::size_t>(option, value);
    };
}

const std::map<std::string, Setter>& setters()
{
    static const std::map<std::string, Setter> all = {
        {"--selection", text(&Options::selection)},
        {"--for", duration(&Options::duration)},
        {"--text", text(&Options::text)},
        {"--file", text(&Options::file)},
        {"--mime", text(&Options::mime)},
        {"--size", count(&Options::megabytes)},
        {"--target", text(&Options::target)},
        {"--patience", duration(&Options::patience)},
        {"--count", count(&Options::count)},
        {"--every",
         [](Options& options, const std::string& option, const std::string& value) {
             options.interval = std::chrono::milliseconds(numberIn<std::uint32_t>(option, value));
         }},
        {"--output", text(&Options::output)},
    };
    return all;
}

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& words)
{
    CommandLine line;
    for (std::size_t index = 0; index < words.size(); ++index) {
        const std::string& word = words[index];
        const auto setter = setters().find(word);
        if (setter != setters().end()) {
            if (index + 1 == words.size())
                throw UsageError(word + " lacks its value");
            setter->second(line.options, word, words[++index]);
        } else if (!line.name.empty()) {
            throw UsageError("there is no option " + word);
        } else {
            line.name = word;
        }
    }
    if (line.name.empty())
        throw UsageError("the name is missing");
    return line;
}

} // namespace tessel::owners
