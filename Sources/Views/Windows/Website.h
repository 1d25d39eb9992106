#pragma once

#include <string_view>

namespace tessel::website {

/// The product's web site, as the build has been configured: its address, and how it is shown.
inline constexpr std::string_view address = TESSEL_WEBSITE;
inline constexpr std::string_view hostName = TESSEL_WEBSITE_HOST;

} // namespace tessel::website
