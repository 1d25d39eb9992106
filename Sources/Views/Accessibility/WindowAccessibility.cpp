#include "Accessibility/WindowAccessibility.h"

#include <QtWidgets/QAccessibleWidget>

#include "Updates/UpdateWindow.h"
#include "Windows/AccessibilityOnboardingView.h"
#include "Windows/ChromelessWindow.h"
#include "Windows/Controls/PushButton.h"
#include "Windows/LinkButton.h"

namespace tessel {

namespace {

/// A button for which the toolkit has another role. To choose it is to click it.
class AccessibleButton final : public QAccessibleWidget {
public:
    AccessibleButton(QAbstractButton& button, QAccessible::Role role)
        : QAccessibleWidget(&button, role)
        , button_(button)
    {}

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? button_.text() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = button_.isCheckable();
        state.checked = button_.isChecked();
        return state;
    }
    QStringList actionNames() const override { return {clickAction(), setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name == clickAction())
            button_.click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    QString clickAction() const { return button_.isCheckable() ? toggleAction() : pressAction(); }

    QAbstractButton& button_;
};

/// Null: the toolkit's own description will do.
QAccessibleInterface* describe(const QString& /*className*/, QObject* object)
{
    if (auto* link = qobject_cast<LinkButton*>(object))
        return new AccessibleButton(*link, QAccessible::Link);
    auto* button = qobject_cast<PushButton*>(object);
    if (button != nullptr && button->isCheckable())
        return new AccessibleButton(*button, QAccessible::RadioButton);
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isWindow = qobject_cast<ChromelessWindow*>(object) != nullptr ||
                          qobject_cast<AccessibilityOnboardingView*>(object) != nullptr ||
                          qobject_cast<UpdateWindow*>(object) != nullptr;
    return isWindow ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

} // namespace

void installWindowAccessibility()
{
    QAccessible::installFactory(describe);
}

} // namespace tessel
