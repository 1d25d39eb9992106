// A session manager (X Session Management Protocol) that starts nothing. It prints the value for
// SESSION_MANAGER and "registered" for each client. `save` asks the clients to save themselves, as at the end
// of a session, and prints "saved" and each client's restart style; `die` ends them, and "closed" says that
// one has gone.

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int errorLength = 256;

void say(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

class Manager {
public:
    Manager()
    {
        char error[errorLength] = {};
        if (SmsInitialize("tessel-session-manager", "1", newClient, this, admit, errorLength, error) == 0 ||
            IceListenForConnections(&listenerCount_, &listeners_, errorLength, error) == 0) {
            std::fprintf(stderr, "session manager: %s\n", error);
            std::exit(EXIT_FAILURE);
        }
        for (int index = 0; index < listenerCount_; ++index)
            IceSetHostBasedAuthProc(listeners_[index], admit);
        char* names = IceComposeNetworkIdList(listenerCount_, listeners_);
        say(std::string("address ") + names);
        std::free(names);
    }

    /// False: the input has ended.
    bool turn()
    {
        std::vector<pollfd> sources = {{STDIN_FILENO, POLLIN, 0}};
        for (int index = 0; index < listenerCount_; ++index)
            sources.push_back({IceGetListenConnectionNumber(listeners_[index]), POLLIN, 0});
        const auto connections = connections_;
        for (IceConn connection : connections)
            sources.push_back({IceConnectionNumber(connection), POLLIN, 0});
        poll(sources.data(), sources.size(), -1);
        if (sources[0].revents != 0 && !obey())
            return false;
        for (int index = 0; index < listenerCount_; ++index) {
            if (sources[static_cast<std::size_t>(index) + 1].revents != 0)
                accept(listeners_[index]);
        }
        const auto first = static_cast<std::size_t>(listenerCount_) + 1;
        for (std::size_t index = 0; index < connections.size(); ++index) {
            if (sources[first + index].revents != 0)
                process(connections[index]);
        }
        return true;
    }

private:
    void accept(IceListenObj listener)
    {
        IceAcceptStatus status = IceAcceptFailure;
        if (IceConn connection = IceAcceptConnection(listener, &status))
            connections_.push_back(connection);
    }

    void process(IceConn connection)
    {
        if (IceProcessMessages(connection, nullptr, nullptr) == IceProcessMessagesSuccess)
            return;
        // It ended without a farewell, or has said it and gone.
        IceSetShutdownNegotiation(connection, False);
        IceCloseConnection(connection);
        std::erase(connections_, connection);
        say("closed");
    }

    bool obey()
    {
        char line[64];
        if (std::fgets(line, sizeof line, stdin) == nullptr)
            return false;
        const std::string_view command(line);
        if (command == "save\n") {
            for (SmsConn client : clients_)
                SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleAny, False);
        }
        if (command == "die\n") {
            for (SmsConn client : clients_)
                SmsDie(client);
        }
        return true;
    }

    /// Whoever reaches it may join.
    static Bool admit(char*) { return True; }

    static Manager& from(SmPointer data) { return *static_cast<Manager*>(data); }

    static Status newClient(SmsConn client, SmPointer data, unsigned long* mask, SmsCallbacks* callbacks,
                            char**)
    {
        from(data).clients_.push_back(client);
        *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
                SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
                SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
                SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
        std::memset(callbacks, 0, sizeof *callbacks);
        callbacks->register_client = {registerClient, data};
        callbacks->interact_request = {[](SmsConn, SmPointer, int) { say("interaction"); }, data};
        callbacks->interact_done = {[](SmsConn, SmPointer, Bool) {}, data};
        callbacks->save_yourself_request = {[](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {}, data};
        callbacks->save_yourself_phase2_request = {
            [](SmsConn client2, SmPointer) { SmsSaveYourselfPhase2(client2); }, data};
        callbacks->save_yourself_done = {[](SmsConn client2, SmPointer, Bool) {
                                             SmsSaveComplete(client2);
                                             say("saved");
                                         },
                                         data};
        callbacks->close_connection = {closeConnection, data};
        callbacks->set_properties = {setProperties, data};
        callbacks->delete_properties = {[](SmsConn, SmPointer, int, char**) {}, data};
        callbacks->get_properties = {[](SmsConn, SmPointer) {}, data};
        return 1;
    }

    static Status registerClient(SmsConn client, SmPointer, char* previousId)
    {
        char* id = SmsGenerateClientID(client);
        SmsRegisterClientReply(client, id);
        std::free(id);
        // A client that joins is asked to save itself at once, which ends its registration.
        if (previousId == nullptr)
            SmsSaveYourself(client, SmSaveLocal, False, SmInteractStyleNone, False);
        std::free(previousId);
        say("registered");
        return 1;
    }

    static void setProperties(SmsConn, SmPointer, int count, SmProp** properties)
    {
        for (int index = 0; index < count; ++index) {
            if (std::strcmp(properties[index]->name, SmRestartStyleHint) == 0)
                say("restart " +
                    std::to_string(*static_cast<const unsigned char*>(properties[index]->vals[0].value)));
            SmFreeProperty(properties[index]);
        }
        std::free(properties);
    }

    static void closeConnection(SmsConn client, SmPointer data, int count, char** reasons)
    {
        SmFreeReasons(count, reasons);
        Manager& self = from(data);
        std::erase(self.clients_, client);
        IceConn connection = SmsGetIceConnection(client);
        std::erase(self.connections_, connection);
        SmsCleanUp(client);
        IceSetShutdownNegotiation(connection, False);
        IceCloseConnection(connection);
        say("closed");
    }

    int listenerCount_ = 0;
    IceListenObj* listeners_ = nullptr;
    std::vector<IceConn> connections_;
    std::vector<SmsConn> clients_;
};

} // namespace

int main()
{
    // A client that crashes must not take its manager along.
    IceSetIOErrorHandler([](IceConn) {});
    Manager manager;
    while (manager.turn()) {
    }
    return EXIT_SUCCESS;
}
