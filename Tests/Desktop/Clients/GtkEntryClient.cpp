// A field for one line: a GTK entry in a window.

#include <gtk/gtk.h>

#include <string>

#include "GtkCommandLines.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

struct Field {
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* entry = gtk_entry_new();
    int pasteCount = 0;
};

std::string obey(Field& field, std::string_view command, std::string_view argument)
{
    if (command == "dump")
        return escaped(gtk_entry_get_text(GTK_ENTRY(field.entry)));
    if (command == "set") {
        gtk_entry_set_text(GTK_ENTRY(field.entry), unescaped(argument).c_str());
        return {};
    }
    if (command == "pastes")
        return std::to_string(field.pasteCount);
    if (command == "focus")
        return gtk_window_is_active(GTK_WINDOW(field.window)) && gtk_widget_has_focus(field.entry) ? "yes"
                                                                                                   : "no";
    return "unknown";
}

void run()
{
    Field field;
    gtk_window_set_title(GTK_WINDOW(field.window), "gtk-entry");
    gtk_window_set_default_size(GTK_WINDOW(field.window), 480, 60);
    gtk_container_add(GTK_CONTAINER(field.window), field.entry);
    g_signal_connect(field.window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    g_signal_connect(field.entry, "paste-clipboard",
                     G_CALLBACK(+[](GtkEntry*, gpointer data) { ++static_cast<Field*>(data)->pasteCount; }),
                     &field);
    gtk_widget_grab_focus(field.entry);
    gtk_widget_show_all(field.window);
    followCommandLines(
        [&field](std::string_view word, std::string_view rest) { return obey(field, word, rest); },
        gtk_main_quit);
    gtk_main();
}

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    gtk_init(&argumentCount, &arguments);
    tessel::desktop::run();
    return 0;
}
