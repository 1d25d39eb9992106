#include "Damage.h"

#include <xcb/damage.h>

#include "Reply.h"

namespace tessel::bench {

void announceDamage(desktop::XConnection& connection)
{
    const auto* extension = xcb_get_extension_data(connection.get(), &xcb_damage_id);
    if (extension == nullptr || extension->present == 0)
        throw desktop::DesktopFailure("the X server has no DAMAGE extension");
    desktop::own(xcb_damage_query_version_reply(connection.get(),
                                                xcb_damage_query_version(connection.get(), 1, 1), nullptr));
    xcb_damage_create(connection.get(), xcb_generate_id(connection.get()), connection.root(),
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    connection.synchronize();
}

} // namespace tessel::bench
