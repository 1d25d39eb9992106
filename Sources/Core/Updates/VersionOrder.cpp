#include "Updates/VersionOrder.h"

#include <algorithm>
#include <vector>

namespace tessel {

namespace {

enum class Kind { digits, letters, dot, other };

Kind kindOf(char character)
{
    const auto isBetween = [character](char first, char last) {
        return first <= character && character <= last;
    };
    if (isBetween('0', '9'))
        return Kind::digits;
    // The bytes of characters beyond ASCII belong to words.
    const bool isBeyondASCII = (static_cast<unsigned char>(character) & 0x80U) != 0;
    if (isBetween('a', 'z') || isBetween('A', 'Z') || isBeyondASCII)
        return Kind::letters;
    return character == '.' ? Kind::dot : Kind::other;
}

/// A number without leading zeros, or a word. Zero is the empty number.
struct Component {
    Kind kind = Kind::digits;
    std::string_view text;
};

using Row = std::vector<Component>;

Component component(Kind kind, std::string_view text)
{
    if (kind == Kind::digits)
        text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return {kind, text};
}

std::vector<Row> rowsOf(std::string_view version)
{
    std::vector<Row> rows(1);
    while (!version.empty()) {
        const Kind kind = kindOf(version.front());
        const auto* const end = std::find_if(version.begin(), version.end(),
                                             [kind](char character) { return kindOf(character) != kind; });
        const auto length = static_cast<std::size_t>(end - version.begin());
        if (kind == Kind::digits || kind == Kind::letters)
            rows.back().push_back(component(kind, version.substr(0, length)));
        else if (kind == Kind::other && !rows.back().empty())
            rows.emplace_back();
        version.remove_prefix(length);
    }
    return rows;
}

std::weak_ordering compare(const Component& first, const Component& second)
{
    if (first.kind != second.kind)
        return first.kind == Kind::letters ? std::weak_ordering::less : std::weak_ordering::greater;
    // Of two numbers without leading zeros the longer one is larger.
    if (first.kind == Kind::digits && first.text.size() != second.text.size())
        return first.text.size() <=> second.text.size();
    return first.text.compare(second.text) <=> 0;
}

/// Element by element, with as many of the empty ones behind the shorter list as it takes.
template <class Element>
std::weak_ordering compare(const std::vector<Element>& first, const std::vector<Element>& second)
{
    static const Element missing;
    const auto at = [](const std::vector<Element>& list, std::size_t index) -> const Element& {
        return index < list.size() ? list[index] : missing;
    };
    for (std::size_t index = 0; index < std::max(first.size(), second.size()); ++index) {
        const auto order = compare(at(first, index), at(second, index));
        if (order != 0)
            return order;
    }
    return std::weak_ordering::equivalent;
}

} // namespace

std::weak_ordering compareVersions(std::string_view first, std::string_view second)
{
    return compare(rowsOf(first), rowsOf(second));
}

} // namespace tessel
