#include "GtkCommandLines.h"

#include <gtk/gtk.h>

#include <cstdio>
#include <memory>
#include <unistd.h>

#include "PercentText.h"

namespace tessel::desktop {

namespace {

using Obey = std::function<std::string(std::string_view, std::string_view)>;

gboolean readLine(GIOChannel* channel, GIOCondition, gpointer data)
{
    gchar* bytes = nullptr;
    gsize length = 0;
    if (g_io_channel_read_line(channel, &bytes, nullptr, &length, nullptr) != G_IO_STATUS_NORMAL) {
        gtk_main_quit();
        return G_SOURCE_REMOVE;
    }
    const std::unique_ptr<gchar, decltype(&g_free)> line(bytes, g_free);
    const auto [word, rest] = splitLine(std::string_view(line.get(), length));
    say("ok " + (*static_cast<Obey*>(data))(word, rest));
    return G_SOURCE_CONTINUE;
}

} // namespace

void followCommandLines(Obey obey)
{
    GIOChannel* channel = g_io_channel_unix_new(STDIN_FILENO);
    g_io_channel_set_encoding(channel, nullptr, nullptr);
    // One line at a time is taken from the channel, so nothing may wait in a buffer behind it.
    g_io_channel_set_buffered(channel, TRUE);
    g_io_add_watch_full(channel, G_PRIORITY_DEFAULT, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), readLine,
                        new Obey(std::move(obey)), [](gpointer data) { delete static_cast<Obey*>(data); });
    g_io_channel_unref(channel);
}

void say(const std::string& line)
{
    std::puts(line.c_str());
    std::fflush(stdout);
}

} // namespace tessel::desktop
