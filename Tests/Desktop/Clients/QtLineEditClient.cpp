// A field for one line: a Qt line edit in a window.

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include "QtCommandLines.h"

namespace tessel::desktop {

namespace {

class Field : public QLineEdit {
public:
    int pasteCount() const { return pasteCount_; }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->matches(QKeySequence::Paste))
            ++pasteCount_;
        QLineEdit::keyPressEvent(event);
    }

private:
    int pasteCount_ = 0;
};

std::string obey(Field& field, std::string_view command, std::string_view argument)
{
    if (command == "dump")
        return escaped(field.text().toStdString());
    if (command == "set") {
        field.setText(QString::fromStdString(unescaped(argument)));
        return {};
    }
    if (command == "pastes")
        return std::to_string(field.pasteCount());
    if (command == "focus")
        return field.hasFocus() ? "yes" : "no";
    return "unknown";
}

} // namespace

} // namespace tessel::desktop

int main(int argumentCount, char** arguments)
{
    const QApplication application(argumentCount, arguments);
    tessel::desktop::Field field;
    const tessel::desktop::QtCommandLines commandLines(
        [&field](std::string_view word, std::string_view rest) {
            return tessel::desktop::obey(field, word, rest);
        });
    field.setWindowTitle(QStringLiteral("qt-line-edit"));
    field.resize(480, 60);
    field.show();
    return QApplication::exec();
}
