#include "SettingsManager.h"

#include <string_view>

namespace tessel::desktop {

namespace {

/// Numbers in the byte order that the first byte of the settings announces.
template <class Number>
void append(std::string& bytes, Number number)
{
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

} // namespace

SettingsManager::SettingsManager(const std::string& displayName)
    : connection_(displayName)
    , window_(xcb_generate_id(connection_.get()))
{
    auto* connection = connection_.get();
    xcb_create_window(connection, 0, window_, connection_.root(), 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection, window_, connection_.atom("_XSETTINGS_S0"), XCB_CURRENT_TIME);
    connection_.synchronize();
}

void SettingsManager::setResolution(int dotsPerInch)
{
    constexpr std::string_view name = "Xft/DPI";
    constexpr std::uint8_t isInteger = 0;
    constexpr std::uint8_t leastSignificantFirst = 0;
    constexpr std::int32_t unitsPerDot = 1024;
    std::string bytes;
    append(bytes, leastSignificantFirst);
    bytes.append(3, '\0');
    append(bytes, ++serial_);
    append(bytes, std::uint32_t{1});
    append(bytes, isInteger);
    bytes.append(1, '\0');
    append(bytes, static_cast<std::uint16_t>(name.size()));
    bytes.append(name);
    bytes.append(1, '\0'); // Up to a multiple of four.
    append(bytes, serial_);
    append(bytes, std::int32_t{dotsPerInch * unitsPerDot});
    const auto property = connection_.atom("_XSETTINGS_SETTINGS");
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_, property, property, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    connection_.synchronize();
}

} // namespace tessel::desktop
