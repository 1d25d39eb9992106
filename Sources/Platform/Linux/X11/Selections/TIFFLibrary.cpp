#include "X11/Selections/TIFFLibrary.h"

#include <string>
#include <string_view>

#include <QBuffer>
#include <QImageReader>

#include <dlfcn.h>
#include <link.h>

namespace tessel {

namespace {

void loadDecoder()
{
    QByteArray nothingButTheMark("II*\0", 4);
    QBuffer device(&nothingButTheMark);
    device.open(QIODevice::ReadOnly);
    QImageReader(&device, "tiff").canRead();
}

int noteLibrary(dl_phdr_info* loaded, std::size_t, void* path)
{
    const std::string_view name = loaded->dlpi_name ? loaded->dlpi_name : "";
    const std::size_t lastPart = name.rfind('/') + 1;
    if (!name.substr(lastPart).starts_with("libtiff.so"))
        return 0;
    *static_cast<std::string*>(path) = name;
    return 1;
}

/// Null: nothing is said.
void removeHandler(void* library, const char* setter)
{
    using Handler = void (*)(const char*, const char*, va_list);
    using Setter = Handler (*)(Handler);
    if (const auto set = reinterpret_cast<Setter>(dlsym(library, setter)))
        set(nullptr);
}

/// The decoder is a plug-in, and the library is nobody else's: it is looked for where the plug-in has it
/// from, whatever its version.
bool removeHandlers()
{
    loadDecoder();
    std::string path;
    dl_iterate_phdr(&noteLibrary, &path);
    void* library = path.empty() ? nullptr : dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (!library)
        return false;
    removeHandler(library, "TIFFSetErrorHandler");
    removeHandler(library, "TIFFSetWarningHandler");
    dlclose(library);
    return true;
}

} // namespace

void TIFFLibrary::silence()
{
    static const bool isSilent = removeHandlers();
    static_cast<void>(isSilent);
}

} // namespace tessel
