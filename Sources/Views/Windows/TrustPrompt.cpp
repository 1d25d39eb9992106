#include "Windows/TrustPrompt.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>

#include <memory>

#include "Support/ApplicationIcon.h"

namespace tessel {

namespace {

constexpr int promptWidth = 360; // Points.

std::unique_ptr<QWidget> makePrompt()
{
    auto prompt = std::make_unique<QWidget>(nullptr, Qt::Dialog | Qt::WindowStaysOnTopHint);
    prompt->setAttribute(Qt::WA_ShowWithoutActivating);
    prompt->setWindowTitle(QCoreApplication::translate("TrustPrompt", "Paste it yourself"));
    prompt->setWindowIcon(applicationIcon());
    prompt->setFixedWidth(promptWidth);

    auto* message = new QLabel(QCoreApplication::translate(
        "TrustPrompt",
        "The entry is on the clipboard. In this session programs cannot send keys to each other, so "
        "Tessel Clipboard cannot paste it for you: press Ctrl+V where you want it."));
    message->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, prompt.get(), &QWidget::close);

    auto* layout = new QVBoxLayout(prompt.get());
    layout->addWidget(message);
    layout->addWidget(buttons);
    return prompt;
}

} // namespace

std::function<void()> trustPrompt()
{
    return [prompt = std::make_shared<std::unique_ptr<QWidget>>()] {
        if (!*prompt)
            *prompt = makePrompt();
        (*prompt)->show();
        (*prompt)->raise();
    };
}

} // namespace tessel
