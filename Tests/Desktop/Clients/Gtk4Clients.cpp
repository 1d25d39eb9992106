// An editor, or a field for one line, of GTK 4: a text view or an entry in a window. Its name is its only
// argument.

#include <gtk/gtk.h>

#include <memory>
#include <string>

#include "GtkCommandLines.h"
#include "PercentText.h"

namespace tessel::desktop {

namespace {

struct Client {
    GtkWidget* window = gtk_window_new();
    /// A text view, or the text inside an entry: what has the focus and is pasted into.
    GtkWidget* text = nullptr;
    int pasteCount = 0;
};

GtkTextBuffer* bufferOf(const Client& client)
{
    return gtk_text_view_get_buffer(GTK_TEXT_VIEW(client.text));
}

std::string textOf(const Client& client)
{
    if (GTK_IS_EDITABLE(client.text))
        return gtk_editable_get_text(GTK_EDITABLE(client.text));
    GtkTextIter start;
    GtkTextIter end;
    gtk_text_buffer_get_bounds(bufferOf(client), &start, &end);
    const std::unique_ptr<gchar, decltype(&g_free)> text(
        gtk_text_buffer_get_text(bufferOf(client), &start, &end, TRUE), g_free);
    return text.get();
}

void setText(const Client& client, const std::string& text)
{
    if (GTK_IS_EDITABLE(client.text))
        gtk_editable_set_text(GTK_EDITABLE(client.text), text.c_str());
    else
        gtk_text_buffer_set_text(bufferOf(client), text.data(), static_cast<int>(text.size()));
}

bool hasFocus(const Client& client)
{
    return gtk_window_is_active(GTK_WINDOW(client.window)) && gtk_widget_has_focus(client.text);
}

std::string obey(Client& client, std::string_view command, std::string_view argument)
{
    if (command == "dump")
        return escaped(textOf(client));
    if (command == "set") {
        setText(client, unescaped(argument));
        return {};
    }
    if (command == "pastes")
        return std::to_string(client.pasteCount);
    if (command == "focus")
        return hasFocus(client) ? "yes" : "no";
    return "unknown";
}

GMainLoop* mainLoop = nullptr;

void endMainLoop()
{
    g_main_loop_quit(mainLoop);
}

void run(const std::string& name)
{
    Client client;
    GtkWidget* content = nullptr;
    if (name == "gtk4-entry") {
        content = gtk_entry_new();
        client.text = GTK_WIDGET(gtk_editable_get_delegate(GTK_EDITABLE(content)));
    } else {
        content = client.text = gtk_text_view_new();
    }
    gtk_window_set_title(GTK_WINDOW(client.window), name.c_str());
    gtk_window_set_default_size(GTK_WINDOW(client.window), 480, 320);
    gtk_window_set_child(GTK_WINDOW(client.window), content);
    g_signal_connect(client.text, "paste-clipboard",
                     G_CALLBACK(+[](GtkWidget*, gpointer data) { ++static_cast<Client*>(data)->pasteCount; }),
                     &client);
    gtk_widget_grab_focus(content);
    gtk_window_present(GTK_WINDOW(client.window));
    mainLoop = g_main_loop_new(nullptr, FALSE);
    followCommandLines(
        [&client](std::string_view word, std::string_view rest) { return obey(client, word, rest); },
        endMainLoop);
    g_main_loop_run(mainLoop);
}

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    // Nothing here has to be drawn fast, and a virtual screen has no graphics card.
    g_setenv("GSK_RENDERER", "cairo", FALSE);
    const char* name = argumentCount > 1 ? arguments[1] : "gtk4-text-view";
    g_set_prgname(name);
    gtk_init();
    tessel::desktop::run(name);
    return 0;
}
