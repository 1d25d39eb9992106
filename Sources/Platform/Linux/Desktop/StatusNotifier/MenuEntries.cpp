#include "Desktop/StatusNotifier/MenuEntries.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tessel {

namespace {

constexpr QLatin1StringView labelProperty("label");
constexpr QLatin1StringView enabledProperty("enabled");
constexpr QLatin1StringView typeProperty("type");

/// A single underscore would be taken away, and the character behind it underlined.
QString label(const std::string& text)
{
    return QString::fromStdString(text).replace(QLatin1Char('_'), QStringLiteral("__"));
}

MenuEntry separator()
{
    return {0, {{typeProperty, QStringLiteral("separator")}}, {}};
}

MenuEntry textEntry(const std::string& text, bool isEnabled, std::function<void()> chosen = {})
{
    return {0, {{labelProperty, label(text)}, {enabledProperty, isEnabled}}, std::move(chosen)};
}

std::vector<MenuEntry> entriesOf(std::vector<StatusMenuRow> rows)
{
    std::vector<MenuEntry> entries;
    for (StatusMenuRow& row : rows) {
        switch (row.kind) {
        case StatusMenuRow::Kind::header:
            entries.push_back(textEntry(row.title, false));
            entries.push_back(textEntry(row.caption, false));
            break;
        case StatusMenuRow::Kind::action:
            entries.push_back(textEntry(row.title, true, std::move(row.chosen)));
            break;
        case StatusMenuRow::Kind::separator:
            entries.push_back(separator());
            break;
        }
    }
    return entries;
}

bool isOfSameKind(const MenuEntry& first, const MenuEntry& second)
{
    return first.properties.value(typeProperty) == second.properties.value(typeProperty) &&
           first.properties.value(enabledProperty) == second.properties.value(enabledProperty);
}

/// Both have the same properties by name, as entries of the same kind do.
QVariantMap changedProperties(const QVariantMap& before, const QVariantMap& now)
{
    QVariantMap changed;
    for (auto property = now.begin(); property != now.end(); ++property) {
        if (before.value(property.key()) != property.value())
            changed.insert(property.key(), property.value());
    }
    return changed;
}

} // namespace

std::optional<MenuPropertiesList> MenuEntries::replace(std::vector<StatusMenuRow> rows)
{
    const std::vector<MenuEntry> before = std::exchange(entries_, entriesOf(std::move(rows)));
    const bool isKept =
        std::equal(before.begin(), before.end(), entries_.begin(), entries_.end(), isOfSameKind);
    if (!isKept) {
        for (MenuEntry& entry : entries_)
            entry.id = ++lastID_;
        return std::nullopt;
    }
    MenuPropertiesList changes;
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        entries_[index].id = before[index].id;
        const QVariantMap changed = changedProperties(before[index].properties, entries_[index].properties);
        if (!changed.isEmpty())
            changes.append({before[index].id, changed});
    }
    return changes;
}

const MenuEntry* MenuEntries::find(int id) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [id](const MenuEntry& entry) { return entry.id == id; });
    return found == entries_.end() ? nullptr : &*found;
}

} // namespace tessel
