#include "Desktop/StatusNotifier/StatusNotifierItem.h"

#include <array>
#include <utility>

#include "Desktop/StatusNotifier/MenuAdaptor.h"
#include "Desktop/StatusNotifier/StatusNotifierItemAdaptor.h"

namespace tessel {

namespace {

/// Where watchers look for the item of a service.
const QString objectPath = QStringLiteral("/StatusNotifierItem");

/// Pixels along each side, as panels have them; those for a scale of 2 among them.
constexpr std::array iconSizes = {16, 22, 24, 32, 44, 48, 64};

} // namespace

/// The exported object. Its adaptors take the calls.
class StatusNotifierItem::Object : public QObject {};

StatusNotifierItem::StatusNotifierItem(Surroundings surroundings)
    : surroundings_(std::move(surroundings))
    , object_(std::make_unique<Object>())
    , menu_(new MenuAdaptor(object_.get(), surroundings_.bus, surroundings_.userDidAct))
{}

StatusNotifierItem::~StatusNotifierItem()
{
    surroundings_.bus.unregisterObject(objectPath);
}

void StatusNotifierItem::show(StatusItemDescription description)
{
    if (!surroundings_.bus.isConnected())
        return;

    const Appearance& appearance = surroundings_.appearance;
    const auto drawIcon = [&appearance, draw = std::move(description.drawIcon)] {
        StatusPixmaps pixmaps;
        for (const int size : iconSizes)
            pixmaps.append(statusPixmap(draw(size, appearance.settings().colorScheme)));
        return pixmaps;
    };
    const auto openMenu = [this, open = std::move(description.openMenu)](int x, int y) {
        surroundings_.userDidAct();
        open(surroundings_.pointOfPixel(x, y));
    };
    auto* adaptor =
        new StatusNotifierItemAdaptor(object_.get(), {QString::fromStdString(description.title),
                                                      QDBusObjectPath(objectPath), drawIcon, openMenu});
    appearanceObservation_ = surroundings_.appearance.observe([adaptor] { emit adaptor->NewIcon(); });

    surroundings_.bus.registerObject(objectPath, object_.get());
    registration_ = std::make_unique<StatusNotifierRegistration>(surroundings_.bus);
    QObject::connect(registration_.get(), &StatusNotifierRegistration::isShownDidChange, object_.get(),
                     [this] { observers_.tell(); });
}

void StatusNotifierItem::setMenu(std::vector<StatusMenuRow> rows)
{
    menu_->setRows(std::move(rows));
}

bool StatusNotifierItem::isShown() const
{
    return registration_ && registration_->isShown();
}

Token StatusNotifierItem::observe(std::function<void()> didChange)
{
    return observers_.add(std::move(didChange));
}

} // namespace tessel
