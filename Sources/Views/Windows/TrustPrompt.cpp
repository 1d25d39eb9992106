#include "Windows/TrustPrompt.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

#include <memory>

namespace tessel {

namespace {

constexpr int promptWidth = 360; // Points.

QString text(const char* source)
{
    return QCoreApplication::translate("TrustPrompt", source);
}

QWidget* makePrompt()
{
    auto* prompt = new QWidget(nullptr, Qt::Dialog | Qt::WindowStaysOnTopHint);
    prompt->setAttribute(Qt::WA_DeleteOnClose);
    prompt->setAttribute(Qt::WA_ShowWithoutActivating);
    prompt->setWindowTitle(text("Paste it yourself"));
    prompt->setFixedWidth(promptWidth);

    auto* message = new QLabel(
        text("The entry is on the clipboard. In this session programs cannot send keys to each other, so "
             "Tessel Clipboard cannot paste it for you: press Ctrl+V where you want it."));
    message->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, prompt, &QWidget::close);

    auto* layout = new QVBoxLayout(prompt);
    layout->addWidget(message);
    layout->addWidget(buttons);
    return prompt;
}

} // namespace

std::function<void()> trustPrompt()
{
    return [shown = std::make_shared<QPointer<QWidget>>()] {
        if (!*shown)
            *shown = makePrompt();
        (*shown)->show();
        (*shown)->raise();
    };
}

} // namespace tessel
