#include "Desktop/StatusNotifier/MenuAdaptor.h"

#include <QtCore/QSet>
#include <QtDBus/QDBusError>
#include <QtGui/QGuiApplication>

#include <utility>

namespace tessel {

namespace {

/// The menu itself.
constexpr int rootID = 0;

const QString noSuchEntry = QStringLiteral("The menu has no such entry.");

/// Without names all are wanted.
QVariantMap selected(const QVariantMap& properties, const QStringList& names)
{
    if (names.isEmpty())
        return properties;
    QVariantMap selection;
    for (auto property = properties.begin(); property != properties.end(); ++property) {
        if (names.contains(property.key()))
            selection.insert(property.key(), property.value());
    }
    return selection;
}

} // namespace

MenuAdaptor::MenuAdaptor(QObject* parent, const QDBusConnection& bus, std::function<void()> willChoose)
    : QDBusAbstractAdaptor(parent)
    , bus_(bus)
    , willChoose_(std::move(willChoose))
{
    registerMenuTypes();
}

void MenuAdaptor::setRows(std::vector<StatusMenuRow> rows)
{
    const auto changes = entries_.replace(std::move(rows));
    if (!changes)
        emit LayoutUpdated(++revision_, rootID);
    else if (!changes->isEmpty())
        emit ItemsPropertiesUpdated(*changes, {});
}

unsigned MenuAdaptor::GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                                const QDBusMessage& message, tessel::MenuLayout& layout)
{
    if (!has(parentId)) {
        refuse(message, noSuchEntry);
        return 0;
    }
    layout.entry = {parentId, selected(properties(parentId), propertyNames)};
    if (parentId == rootID && recursionDepth != 0) {
        for (const MenuEntry& entry : entries_.all())
            layout.children.append(MenuLayout{{entry.id, selected(entry.properties, propertyNames)}, {}});
    }
    return revision_;
}

tessel::MenuPropertiesList MenuAdaptor::GetGroupProperties(const QList<int>& ids,
                                                           const QStringList& propertyNames)
{
    const QSet<int> wanted(ids.begin(), ids.end());
    const auto isWanted = [&wanted](int id) { return wanted.isEmpty() || wanted.contains(id); };
    MenuPropertiesList answer;
    if (isWanted(rootID))
        answer.append({rootID, selected(properties(rootID), propertyNames)});
    for (const MenuEntry& entry : entries_.all()) {
        if (isWanted(entry.id))
            answer.append({entry.id, selected(entry.properties, propertyNames)});
    }
    return answer;
}

QDBusVariant MenuAdaptor::GetProperty(int id, const QString& name, const QDBusMessage& message)
{
    if (!has(id)) {
        refuse(message, noSuchEntry);
        return {};
    }
    const QVariant value = properties(id).value(name);
    if (!value.isValid())
        refuse(message, QStringLiteral("The entry has no such property, or it is at its default."));
    return QDBusVariant(value);
}

void MenuAdaptor::Event(int id, const QString& eventId, const QDBusVariant& /*data*/, unsigned /*timestamp*/,
                        const QDBusMessage& message)
{
    if (!happen({id, eventId}))
        refuse(message, noSuchEntry);
}

QList<int> MenuAdaptor::EventGroup(const tessel::MenuEvents& events, const QDBusMessage& message)
{
    QList<int> unknown;
    for (const MenuEvent& event : events) {
        if (!happen(event))
            unknown.append(event.id);
    }
    if (!unknown.isEmpty() && unknown.size() == events.size())
        refuse(message, noSuchEntry);
    return unknown;
}

bool MenuAdaptor::AboutToShow(int id, const QDBusMessage& message)
{
    if (!has(id))
        refuse(message, noSuchEntry);
    return false;
}

QList<int> MenuAdaptor::AboutToShowGroup(const QList<int>& ids, const QDBusMessage& message,
                                         QList<int>& idErrors)
{
    for (const int id : ids) {
        if (!has(id))
            idErrors.append(id);
    }
    if (!idErrors.isEmpty() && idErrors.size() == ids.size())
        refuse(message, noSuchEntry);
    return {};
}

QString MenuAdaptor::textDirection()
{
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

bool MenuAdaptor::has(int id) const
{
    return id == rootID || entries_.find(id) != nullptr;
}

QVariantMap MenuAdaptor::properties(int id) const
{
    if (id == rootID)
        return {{QStringLiteral("children-display"), QStringLiteral("submenu")}};
    return entries_.find(id)->properties;
}

bool MenuAdaptor::happen(const MenuEvent& event)
{
    if (event.id == rootID)
        return true;
    const MenuEntry* entry = entries_.find(event.id);
    if (entry == nullptr)
        return false;
    if (event.name == QStringLiteral("clicked") && entry->chosen) {
        const auto choose = [this, chosen = entry->chosen] {
            willChoose_();
            chosen();
        };
        QMetaObject::invokeMethod(this, choose, Qt::QueuedConnection);
    }
    return true;
}

void MenuAdaptor::refuse(const QDBusMessage& call, const QString& why)
{
    call.setDelayedReply(true); // The toolkit sends what the function returns in no other case.
    bus_.send(call.createErrorReply(QDBusError::InvalidArgs, why));
}

} // namespace tessel
