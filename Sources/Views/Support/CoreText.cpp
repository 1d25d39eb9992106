#include "Support/CoreText.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <string>

namespace tessel {

namespace {

/// Every text that the rules have for the user, where the tool that collects texts for translation finds it.
[[maybe_unused]] constexpr const char* texts[] = {
    QT_TRANSLATE_NOOP("Core", "Text"),
    QT_TRANSLATE_NOOP("Core", "Image"),
    QT_TRANSLATE_NOOP("Core", "Cmd + Shift + V"),
    QT_TRANSLATE_NOOP("Core", "Ctrl + Shift + V"),
    QT_TRANSLATE_NOOP("Core", "Cmd + Option + V"),
    QT_TRANSLATE_NOOP("Core", "Infinity"),
    QT_TRANSLATE_NOOP("Core", "Clipboard"),
    QT_TRANSLATE_NOOP("Core", "Tessel Clipboard"),
    QT_TRANSLATE_NOOP("Core", "Open History"),
    QT_TRANSLATE_NOOP("Core", "Clear history"),
    QT_TRANSLATE_NOOP("Core", "Settings"),
    QT_TRANSLATE_NOOP("Core", "Check for Updates..."),
    QT_TRANSLATE_NOOP("Core", "About"),
    QT_TRANSLATE_NOOP("Core", "Quit"),
};

} // namespace

QString coreText(std::string_view english)
{
    return QCoreApplication::translate("Core", std::string(english).c_str());
}

} // namespace tessel
