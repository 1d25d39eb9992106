#include "Desktop/DesktopEntry.h"

// The library's headers use a name that the toolkit has as a macro.
#undef signals
#include <glib.h>

namespace tessel {

namespace {

constexpr const char* group = "Desktop Entry";

struct Free {
    void operator()(void* memory) const { g_free(memory); }
};
using OwnedText = std::unique_ptr<char, Free>;

} // namespace

void DesktopEntry::Release::operator()(_GKeyFile* file) const
{
    g_key_file_unref(file);
}

DesktopEntry::DesktopEntry()
    : file_(g_key_file_new())
{}

std::optional<DesktopEntry> DesktopEntry::parsed(const QByteArray& content)
{
    DesktopEntry entry;
    const auto length = static_cast<gsize>(content.size());
    if (!g_key_file_load_from_data(entry.file_.get(), content.constData(), length, G_KEY_FILE_NONE, nullptr))
        return std::nullopt;
    const OwnedText first(g_key_file_get_start_group(entry.file_.get()));
    if (g_strcmp0(first.get(), group) != 0)
        return std::nullopt;
    return entry;
}

QString DesktopEntry::string(const char* key) const
{
    return QString::fromUtf8(OwnedText(g_key_file_get_string(file_.get(), group, key, nullptr)).get());
}

QStringList DesktopEntry::strings(const char* key) const
{
    QStringList list;
    const std::unique_ptr<char*, void (*)(char**)> items(
        g_key_file_get_string_list(file_.get(), group, key, nullptr, nullptr), g_strfreev);
    for (char** item = items.get(); item != nullptr && *item != nullptr; ++item)
        list << QString::fromUtf8(*item);
    return list;
}

bool DesktopEntry::has(const char* key) const
{
    return g_key_file_has_key(file_.get(), group, key, nullptr) != 0;
}

bool DesktopEntry::boolean(const char* key, bool otherwise) const
{
    GError* error = nullptr;
    const bool value = g_key_file_get_boolean(file_.get(), group, key, &error) != 0;
    if (error == nullptr)
        return value;
    g_error_free(error);
    return otherwise;
}

void DesktopEntry::set(const char* key, const QString& value)
{
    g_key_file_set_string(file_.get(), group, key, value.toUtf8().constData());
}

void DesktopEntry::set(const char* key, bool value)
{
    g_key_file_set_boolean(file_.get(), group, key, value ? 1 : 0);
}

QByteArray DesktopEntry::content() const
{
    gsize length = 0;
    const OwnedText text(g_key_file_to_data(file_.get(), &length, nullptr));
    return {text.get(), static_cast<qsizetype>(length)};
}

} // namespace tessel
