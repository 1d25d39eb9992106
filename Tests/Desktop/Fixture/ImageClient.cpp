#include "ImageClient.h"

#include "ClientFiles.h"
#include "ClientWindow.h"
#include "PercentText.h"

namespace tessel::desktop {

ImageClient::ImageClient(Desktop& desktop, const std::string& title)
    : desktop_(desktop)
    , process_({clientFile("gtk-image-board").string(), title}, desktop.environment())
    , clipboard_(desktop.displayName())
    , window_(awaitClientWindow(desktop, process_, title))
{
    activate();
}

void ImageClient::activate()
{
    desktop_.windows().activate(window_);
}

std::string ImageClient::ask(const std::string& request)
{
    process_.writeLine(request);
    const auto answer = process_.waitForLine("ok");
    return std::string(splitLine(answer).rest);
}

void ImageClient::copy(const std::filesystem::path& file)
{
    const auto before = clipboard_.count();
    ask("copy " + escaped(file.string()));
    clipboard_.waitForMoreThan(before);
}

std::string ImageClient::describe(const std::filesystem::path& file)
{
    return ask("describe " + escaped(file.string()));
}

std::string ImageClient::waitForPastedPicture(Deadline deadline)
{
    const auto event = process_.waitForLine("pasted", deadline);
    return std::string(splitLine(event).rest);
}

} // namespace tessel::desktop
