#include "GtkCommandLines.h"

#include <glib.h>

#include <cstdio>
#include <memory>
#include <unistd.h>

#include "PercentText.h"

namespace tessel::desktop {

namespace {

struct Follower {
    ObeyLine obey;
    void (*inputDidEnd)();
};

gboolean readLine(GIOChannel* channel, GIOCondition, gpointer data)
{
    const auto& follower = *static_cast<Follower*>(data);
    gchar* bytes = nullptr;
    gsize length = 0;
    if (g_io_channel_read_line(channel, &bytes, nullptr, &length, nullptr) != G_IO_STATUS_NORMAL) {
        follower.inputDidEnd();
        return G_SOURCE_REMOVE;
    }
    const std::unique_ptr<gchar, decltype(&g_free)> line(bytes, g_free);
    std::string_view text(line.get(), length);
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    const auto [word, rest] = splitLine(text);
    say("ok " + follower.obey(word, rest));
    return G_SOURCE_CONTINUE;
}

} // namespace

void followCommandLines(ObeyLine obey, void (*inputDidEnd)())
{
    GIOChannel* channel = g_io_channel_unix_new(STDIN_FILENO);
    g_io_channel_set_encoding(channel, nullptr, nullptr);
    // One line at a time is taken from the channel, so nothing may wait in a buffer behind it.
    g_io_channel_set_buffered(channel, TRUE);
    g_io_add_watch_full(channel, G_PRIORITY_DEFAULT, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP), readLine,
                        new Follower{std::move(obey), inputDidEnd},
                        [](gpointer data) { delete static_cast<Follower*>(data); });
    g_io_channel_unref(channel);
}

void say(const std::string& line)
{
    std::puts(line.c_str());
    std::fflush(stdout);
}

} // namespace tessel::desktop
