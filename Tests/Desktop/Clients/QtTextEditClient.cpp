// An editor: a Qt text edit in a window.

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPlainTextEdit>

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

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    const QApplication application(argumentCount, arguments);
    tessel::desktop::Editor editor;
    const tessel::desktop::QtCommandLines commandLines(
        [&editor](std::string_view word, std::string_view rest) {
            return tessel::desktop::obey(editor, word, rest);
        });
    editor.setWindowTitle(QStringLiteral("qt-text-edit"));
    editor.resize(480, 320);
    editor.show();
    return QApplication::exec();
}
