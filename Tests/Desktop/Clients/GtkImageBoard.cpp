// Copies a picture from a file, and shows the picture that is pasted into it.

#include <gtk/gtk.h>

#include <cstdint>
#include <iomanip>
#include <memory>
#include <sstream>
#include <string>

#include "GtkCommandLines.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Pixbuf = std::unique_ptr<GdkPixbuf, Unreference>;

Pixbuf load(const std::string& file)
{
    return Pixbuf(gdk_pixbuf_new_from_file(file.c_str(), nullptr));
}

/// Width, height and the FNV-1a hash of all colours, so that two equal descriptions mean equal pixels.
std::string describe(const GdkPixbuf* picture)
{
    if (picture == nullptr)
        return "none";
    const int width = gdk_pixbuf_get_width(picture);
    const int height = gdk_pixbuf_get_height(picture);
    const int channels = gdk_pixbuf_get_n_channels(picture);
    const guint8* pixels = gdk_pixbuf_read_pixels(picture);
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            for (int channel = 0; channel < 3; ++channel) {
                hash ^= pixels[row * gdk_pixbuf_get_rowstride(picture) + column * channels + channel];
                hash *= 0x100000001b3U;
            }
        }
    }
    std::ostringstream text;
    text << width << 'x' << height << ' ' << std::hex << std::setfill('0') << std::setw(16) << hash;
    return text.str();
}

GtkClipboard* clipboard()
{
    return gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
}

void receivePicture(GtkClipboard*, GdkPixbuf* picture, gpointer shownPicture)
{
    if (picture != nullptr)
        gtk_image_set_from_pixbuf(GTK_IMAGE(shownPicture), picture);
    say("pasted " + describe(picture));
}

gboolean handleKey(GtkWidget*, GdkEventKey* event, gpointer shownPicture)
{
    const bool isPaste = event->keyval == GDK_KEY_v && (event->state & GDK_CONTROL_MASK) != 0;
    if (!isPaste)
        return GDK_EVENT_PROPAGATE;
    gtk_clipboard_request_image(clipboard(), receivePicture, shownPicture);
    return GDK_EVENT_STOP;
}

std::string obey(std::string_view command, std::string_view argument)
{
    const auto picture = load(unescaped(argument.substr(0, argument.find('\n'))));
    if (command == "copy" && picture)
        gtk_clipboard_set_image(clipboard(), picture.get());
    return describe(picture.get());
}

int run(const char* title)
{
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* shownPicture = gtk_image_new();
    gtk_window_set_title(GTK_WINDOW(window), title);
    gtk_window_set_default_size(GTK_WINDOW(window), 420, 300);
    gtk_container_add(GTK_CONTAINER(window), shownPicture);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    g_signal_connect(window, "key-press-event", G_CALLBACK(handleKey), shownPicture);
    gtk_widget_show_all(window);
    followCommandLines(obey, gtk_main_quit);
    gtk_main();
    return 0;
}

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    gtk_init(&argumentCount, &arguments);
    return tessel::desktop::run(argumentCount > 1 ? arguments[1] : "gtk-image-board");
}
