// An editor: a Qt text edit in a window.

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPlainTextEdit>

#include <map>
#include <memory>

#include "QtCommandLines.h"

namespace tessel::desktop {

namespace {

class Editor : public QPlainTextEdit {
public:
    int pasteCount() const { return pasteCount_; }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->matches(QKeySequence::Paste))
            ++pasteCount_;
        QPlainTextEdit::keyPressEvent(event);
    }

private:
    int pasteCount_ = 0;
};

std::string obey(Editor& editor, std::string_view command, std::string_view argument)
{
    if (command == "dump")
        return escaped(editor.toPlainText().toStdString());
    if (command == "set") {
        editor.setPlainText(QString::fromStdString(unescaped(argument)));
        return {};
    }
    if (command == "pastes")
        return std::to_string(editor.pasteCount());
    if (command == "focus")
        return editor.hasFocus() ? "yes" : "no";
    return "unknown";
}

/// The editors by what a line for them begins with; the first has no name.
using Editors = std::map<std::string, std::unique_ptr<Editor>, std::less<>>;

void open(Editors& editors, std::string_view name, const QString& title)
{
    const auto& editor = editors[std::string(name)] = std::make_unique<Editor>();
    editor->setWindowTitle(title);
    editor->resize(480, 320);
    editor->setFocus();
    editor->show();
}

std::string obey(Editors& editors, std::string_view word, std::string_view rest)
{
    if (word == "open") {
        open(editors, rest, QString::fromUtf8(rest.data(), static_cast<int>(rest.size())));
        return {};
    }
    if (const auto named = editors.find(word); named != editors.end()) {
        const auto [command, argument] = splitLine(rest);
        return obey(*named->second, command, argument);
    }
    return obey(*editors.begin()->second, word, rest);
}

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    const QApplication application(argumentCount, arguments);
    tessel::desktop::Editors editors;
    const tessel::desktop::QtCommandLines commandLines(
        [&editors](std::string_view word, std::string_view rest) {
            return tessel::desktop::obey(editors, word, rest);
        });
    tessel::desktop::open(editors, "", QStringLiteral("qt-text-edit"));
    return QApplication::exec();
}
