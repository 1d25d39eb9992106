#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

#include <functional>
#include <memory>
#include <vector>

#include "Appearance.h"
#include "Desktop/StatusNotifier/StatusNotifierRegistration.h"
#include "StatusItem.h"
#include "Support/ObserverList.h"

namespace tessel {

class MenuAdaptor;

/// The status item on desktops whose menu bar takes it over the session bus (freedesktop.org
/// StatusNotifierItem, its menu com.canonical.dbusmenu). Without a bus it is never shown.
class StatusNotifierItem final : public StatusItem {
public:
    struct Surroundings {
        QDBusConnection bus = QDBusConnection::sessionBus();
        /// Tells the colour of the panel, which nobody else does. Must outlive the item.
        Appearance& appearance;
        /// A pixel, counted from the top left corner of the root window, as a point of the seam.
        std::function<Point(int x, int y)> pointOfPixel;
        /// The user has done something with the item, at a time that nobody knows.
        std::function<void()> userDidAct;
    };

    explicit StatusNotifierItem(Surroundings surroundings);
    ~StatusNotifierItem() override;

    void show(StatusItemDescription description) override;
    void setMenu(std::vector<StatusMenuRow> rows) override;
    bool isShown() const override;
    Token observe(std::function<void()> didChange) override;

private:
    class Object;

    Surroundings surroundings_;
    std::unique_ptr<Object> object_;
    /// Owned by the object.
    MenuAdaptor* menu_;
    /// None: not to be shown, or there is no bus.
    std::unique_ptr<StatusNotifierRegistration> registration_;
    Token appearanceObservation_;
    ObserverList<> observers_;
};

} // namespace tessel
