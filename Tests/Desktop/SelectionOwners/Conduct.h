#pragma once

#include <string>
#include <string_view>

namespace tessel::owners {

/// What somebody does with a section of the ICCCM.
enum class Conduct { obeys, breaks };

/// "obeys 2.2"
inline std::string standing(Conduct conduct, std::string_view section)
{
    return (conduct == Conduct::obeys ? "obeys " : "breaks ") + std::string(section);
}

} // namespace tessel::owners
