#include "Accessibility/AccessibleLink.h"

#include <QtWidgets/QAccessibleWidget>

#include "Windows/LinkButton.h"

namespace tessel {

namespace {

class AccessibleLink final : public QAccessibleWidget {
public:
    explicit AccessibleLink(LinkButton& link)
        : QAccessibleWidget(&link, QAccessible::Link)
        , link_(link)
    {}

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? link_.text() : QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            link_.click();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    LinkButton& link_;
};

/// Null: the toolkit's own description will do.
QAccessibleInterface* describe(const QString& /*className*/, QObject* object)
{
    auto* link = qobject_cast<LinkButton*>(object);
    return link != nullptr ? new AccessibleLink(*link) : nullptr;
}

} // namespace

void installLinkAccessibility()
{
    QAccessible::installFactory(describe);
}

} // namespace tessel
