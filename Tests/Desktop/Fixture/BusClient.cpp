#include "BusClient.h"

#include <dbus/dbus.h>

#include <memory>

namespace tessel::desktop {

namespace {

struct MessageDeleter {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, MessageDeleter>;

/// Owns an error's text.
struct Error {
    DBusError value;
    Error() { dbus_error_init(&value); }
    ~Error() { dbus_error_free(&value); }
    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;
};

Message ask(DBusConnection* connection, const Message& call, Deadline deadline)
{
    Error error;
    return Message(dbus_connection_send_with_reply_and_block(
        connection, call.get(), static_cast<int>(deadline.remaining().count()), &error.value));
}

} // namespace

BusClient::BusClient(const std::string& address)
    : connection_(nullptr)
{
    dbus_threads_init_default();
    Error error;
    connection_ = dbus_connection_open_private(address.c_str(), &error.value);
    if (connection_ == nullptr || dbus_bus_register(connection_, &error.value) == 0)
        throw DesktopFailure("cannot reach the session bus: " + std::string(error.value.message));
    dbus_connection_set_exit_on_disconnect(connection_, 0);
}

BusClient::~BusClient()
{
    dbus_connection_close(connection_);
    dbus_connection_unref(connection_);
}

bool BusClient::nameHasOwner(const std::string& name)
{
    Error error;
    return dbus_bus_name_has_owner(connection_, name.c_str(), &error.value) != 0;
}

void BusClient::ownName(const std::string& name)
{
    Error error;
    const int result =
        dbus_bus_request_name(connection_, name.c_str(), DBUS_NAME_FLAG_DO_NOT_QUEUE, &error.value);
    if (result != DBUS_REQUEST_NAME_REPLY_PRIMARY_OWNER)
        throw DesktopFailure("another has the name " + name);
}

std::optional<pid_t> BusClient::processOf(const std::string& name)
{
    const Message call(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS,
                                                    "GetConnectionUnixProcessID"));
    const char* text = name.c_str();
    dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
    const auto reply = ask(connection_, call, Deadline());
    dbus_uint32_t process = 0;
    if (!reply ||
        dbus_message_get_args(reply.get(), nullptr, DBUS_TYPE_UINT32, &process, DBUS_TYPE_INVALID) == 0)
        return std::nullopt;
    return static_cast<pid_t>(process);
}

bool BusClient::askObject(const std::string& name, const std::string& path, Deadline deadline)
{
    const Message call(
        dbus_message_new_method_call(name.c_str(), path.c_str(), DBUS_INTERFACE_PROPERTIES, "GetAll"));
    const char* interfaceName = "org.freedesktop.Application";
    dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &interfaceName, DBUS_TYPE_INVALID);
    dbus_message_set_auto_start(call.get(), 0);
    return ask(connection_, call, deadline) != nullptr;
}

void BusClient::reloadServices()
{
    const Message call(
        dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "ReloadConfig"));
    if (!ask(connection_, call, Deadline()))
        throw DesktopFailure("the session bus does not read its services anew");
}

void BusClient::setProperty(const std::string& name, const std::string& path,
                            const std::string& interfaceName, const std::string& property, bool value)
{
    const Message call(
        dbus_message_new_method_call(name.c_str(), path.c_str(), DBUS_INTERFACE_PROPERTIES, "Set"));
    const char* interfaceText = interfaceName.c_str();
    const char* propertyText = property.c_str();
    const dbus_bool_t number = value ? 1 : 0;
    DBusMessageIter arguments;
    DBusMessageIter variant;
    dbus_message_iter_init_append(call.get(), &arguments);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_STRING, &interfaceText);
    dbus_message_iter_append_basic(&arguments, DBUS_TYPE_STRING, &propertyText);
    dbus_message_iter_open_container(&arguments, DBUS_TYPE_VARIANT, DBUS_TYPE_BOOLEAN_AS_STRING, &variant);
    dbus_message_iter_append_basic(&variant, DBUS_TYPE_BOOLEAN, &number);
    dbus_message_iter_close_container(&arguments, &variant);
    if (!ask(connection_, call, Deadline()))
        throw DesktopFailure(name + " does not set " + property);
}

} // namespace tessel::desktop
