// An idle program that answers on the session bus from its main thread, as a Qt program does. `block 250`
// holds its main thread up for 250 milliseconds.

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusAbstractAdaptor>
#include <QtDBus/QDBusConnection>

#include <charconv>
#include <chrono>
#include <thread>

#include "QtCommandLines.h"

namespace {

/// Gives the object the interface that is asked for.
class ApplicationInterface : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationInterface(QObject* object)
        : QDBusAbstractAdaptor(object)
    {}
};

std::string obey(std::string_view command, std::string_view argument)
{
    int milliseconds = 0;
    std::from_chars(argument.data(), argument.data() + argument.size(), milliseconds);
    if (command == "block")
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    return {};
}

} // namespace

int main(int argumentCount, char** arguments)
{
    const QCoreApplication application(argumentCount, arguments);
    QObject object;
    new ApplicationInterface(&object);
    auto bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QStringLiteral("/heartbeat"), &object) ||
        !bus.registerService(QString::fromLocal8Bit(arguments[argumentCount - 1])))
        return 1;
    const tessel::desktop::QtCommandLines commandLines(obey);
    std::puts("ready");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

#include "QtHeartbeatClient.moc"
