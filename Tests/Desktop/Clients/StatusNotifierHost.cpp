// A menu bar without a window: the watcher of status items, and a host of the first of them. Everything waits
// in an event loop of its own until it can be answered; whoever asks has a deadline.

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>

#include <functional>
#include <memory>
#include <string>

#include "PercentText.h"
#include "QtCommandLines.h"
#include "StatusItemReader.h"
#include "StatusNotifierWatcherStandIn.h"

namespace {

using tessel::ReadMenuEntry;
using tessel::ReadPixmap;
using tessel::StatusItemReader;
using tessel::StatusNotifierWatcherStandIn;
using tessel::desktop::escaped;
using tessel::desktop::unescaped;

class MenuBar {
public:
    std::string obey(const std::string& word, const std::string& rest)
    {
        if (word == "start")
            watcher_.start();
        else if (word == "stop")
            watcher_.stop();
        else if (word == "await-item")
            awaitItem();
        else if (word == "await-no-item")
            awaitNoItem();
        else if (word == "property")
            return escaped(
                reader_->properties().value(QString::fromStdString(rest)).toString().toStdString());
        else if (word == "icon")
            return icon(std::stoi(rest));
        else if (word == "open-menu")
            reader_->openMenu();
        else if (word == "menu")
            return menu();
        else if (word == "await-label")
            awaitLabel(QString::fromStdString(unescaped(rest)));
        else if (word == "click")
            return click(QString::fromStdString(unescaped(rest)));
        else if (word == "activate")
            activate(rest);
        return {};
    }

private:
    /// Runs the loop until `condition` holds; looked at after each emission of `signal` by `source`.
    template <class Source, class Signal>
    static void await(Source* source, Signal signal, const std::function<bool()>& condition)
    {
        while (!condition()) {
            QEventLoop loop;
            QObject::connect(source, signal, &loop, &QEventLoop::quit);
            loop.exec();
        }
    }

    void awaitItem()
    {
        await(&watcher_, &StatusNotifierWatcherStandIn::itemsDidChange,
              [this] { return !watcher_.items().empty(); });
        reader_ = std::make_unique<StatusItemReader>(watcher_.bus(), watcher_.items().front());
    }
    void awaitNoItem()
    {
        await(&watcher_, &StatusNotifierWatcherStandIn::itemsDidChange,
              [this] { return watcher_.items().empty(); });
    }
    void awaitLabel(const QString& label)
    {
        await(reader_.get(), &StatusItemReader::menuDidChange,
              [&] { return reader_->entry(label) != nullptr; });
    }

    std::string menu() const
    {
        std::string line;
        for (const ReadMenuEntry& entry : reader_->entries()) {
            const std::string kind = entry.isSeparator() ? "separator"
                                     : entry.isEnabled() ? "enabled"
                                                         : "disabled";
            line += kind + " " + escaped(entry.label().toStdString()) + " ";
        }
        return line;
    }

    /// The pixels of the icon of this size as numbers; nothing where the item has no such icon.
    std::string icon(int size)
    {
        std::string line;
        for (const ReadPixmap& pixmap : reader_->pixmaps()) {
            if (pixmap.width != size || pixmap.height != size)
                continue;
            for (const std::uint32_t pixel : pixmap.pixels)
                line += std::to_string(pixel) + " ";
        }
        return line;
    }

    std::string click(const QString& label)
    {
        const ReadMenuEntry* entry = reader_->entry(label);
        if (entry == nullptr)
            return "no such entry";
        const QDBusMessage answer = reader_->click(entry->id);
        return answer.type() == QDBusMessage::ReplyMessage ? std::string()
                                                           : answer.errorMessage().toStdString();
    }

    void activate(const std::string& rest)
    {
        const auto [x, y] = tessel::desktop::splitLine(rest);
        reader_->callItem(QStringLiteral("Activate"), {std::stoi(std::string(x)), std::stoi(std::string(y))});
    }

    StatusNotifierWatcherStandIn watcher_{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS")};
    std::unique_ptr<StatusItemReader> reader_;
};

} // namespace

int main(int argumentCount, char** arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    MenuBar menuBar;
    const tessel::desktop::QtCommandLines commandLines([&](std::string_view word, std::string_view rest) {
        return menuBar.obey(std::string(word), std::string(rest));
    });
    return QCoreApplication::exec();
}
