// An editor: a GTK text view in a window.

#include <gtk/gtk.h>

#include <memory>
#include <string>

#include "GtkCommandLines.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

struct Editor {
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget* view = gtk_text_view_new();
    int pasteCount = 0;

    GtkTextBuffer* buffer() const { return gtk_text_view_get_buffer(GTK_TEXT_VIEW(view)); }
};

std::string textOf(const Editor& editor)
{
    GtkTextIter start;
    GtkTextIter end;
    gtk_text_buffer_get_bounds(editor.buffer(), &start, &end);
    const std::unique_ptr<gchar, decltype(&g_free)> text(
        gtk_text_buffer_get_text(editor.buffer(), &start, &end, TRUE), g_free);
    return text.get();
}

std::string obey(Editor& editor, std::string_view command, std::string_view argument)
{
    if (command == "dump")
        return escaped(textOf(editor));
    if (command == "set") {
        const auto text = unescaped(argument);
        gtk_text_buffer_set_text(editor.buffer(), text.data(), static_cast<gint>(text.size()));
        return {};
    }
    if (command == "pastes")
        return std::to_string(editor.pasteCount);
    if (command == "focus")
        return gtk_window_is_active(GTK_WINDOW(editor.window)) && gtk_widget_has_focus(editor.view) ? "yes"
                                                                                                    : "no";
    return "unknown";
}

int run()
{
    Editor editor;
    gtk_window_set_title(GTK_WINDOW(editor.window), "gtk-text-view");
    gtk_window_set_default_size(GTK_WINDOW(editor.window), 480, 320);
    gtk_container_add(GTK_CONTAINER(editor.window), editor.view);
    g_signal_connect(editor.window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    g_signal_connect(
        editor.view, "paste-clipboard",
        G_CALLBACK(+[](GtkTextView*, gpointer data) { ++static_cast<Editor*>(data)->pasteCount; }), &editor);
    gtk_widget_grab_focus(editor.view);
    gtk_widget_show_all(editor.window);
    followCommandLines(
        [&editor](std::string_view word, std::string_view rest) { return obey(editor, word, rest); },
        gtk_main_quit);
    gtk_main();
    return 0;
}

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    gtk_init(&argumentCount, &arguments);
    return tessel::desktop::run();
}
