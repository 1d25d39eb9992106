#pragma once

#include <filesystem>
#include <string>

#include "Application.h"

namespace tessel::desktop {

/// Chromium with a page whose title says "ready" once it has the focus. Ctrl+A and Ctrl+C copy the page.
ApplicationDescription chromium(const Desktop& desktop, const std::string& page);
/// Chromium with a page that copies a picture by itself when C is pressed.
ApplicationDescription chromiumCopyingPicture(const Desktop& desktop, const std::string& pngBytes);
/// Chromium with a page that is pasted into. Its title tells what has arrived: of a text what is bold and
/// what is italic, as "B:word I:word"; of a picture what `ImageClient` says of it.
ApplicationDescription chromiumForPasting(const Desktop& desktop);

/// Chromium with a text area that is pasted into. Its title tells how often something has been put into it,
/// and what is in it as `textFacts` says.
ApplicationDescription chromiumTextArea(const Desktop& desktop);
/// The length and the FNV-1a hash of the bytes of a text.
std::string textFacts(const std::string& text);

/// Editors with a file that holds this text; they copy all of it.
ApplicationDescription mousepad(const Desktop& desktop, const std::string& text);
ApplicationDescription featherpad(const Desktop& desktop, const std::string& text);

/// A terminal that shows the text in a file, if any, and then writes what arrives to another file until
/// Ctrl+D. Its keys for copying are Ctrl+Shift+C.
ApplicationDescription xterm(const Desktop& desktop, const std::string& shownText,
                             const std::filesystem::path& arrived);

/// Terminals with a program inside that reads what is pasted in raw mode, as editors and shells do, and
/// writes it to a file.
ApplicationDescription xtermWithReader(const Desktop& desktop, const std::filesystem::path& arrived);
ApplicationDescription xfceTerminalWithReader(const Desktop& desktop, const std::filesystem::path& arrived);
/// Any terminal, by its command up to the name of the program inside and by its class.
ApplicationDescription terminalWithReader(std::vector<std::string> command, std::string className,
                                          const std::filesystem::path& arrived);

/// The picture program GIMP, without a picture or with one. It copies the whole picture.
ApplicationDescription gimp(const Desktop& desktop);
ApplicationDescription gimp(const Desktop& desktop, const std::filesystem::path& file);

/// The word processor of LibreOffice with a document in HTML. It copies the whole document.
ApplicationDescription libreOfficeWriter(const Desktop& desktop, const std::string& document);

} // namespace tessel::desktop
