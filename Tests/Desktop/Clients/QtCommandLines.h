#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QSocketNotifier>

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <unistd.h>

#include "PercentText.h"

namespace tessel::desktop {

/// Calls `obey` on the main thread with the first word and the rest of every line of the standard input, and
/// prints "ok" and what it returned. Ends the program with the input.
class QtCommandLines {
public:
    using Obey = std::function<std::string(std::string_view word, std::string_view rest)>;

    explicit QtCommandLines(Obey obey)
        : obey_(std::move(obey))
        , notifier_(STDIN_FILENO, QSocketNotifier::Read)
    {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { read(); });
    }

private:
    void read()
    {
        char buffer[65536];
        const auto count = ::read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0) {
            notifier_.setEnabled(false);
            QCoreApplication::quit();
            return;
        }
        pending_.append(buffer, static_cast<std::size_t>(count));
        for (auto end = pending_.find('\n'); end != std::string::npos; end = pending_.find('\n')) {
            const auto line = pending_.substr(0, end);
            pending_.erase(0, end + 1);
            const auto [word, rest] = splitLine(line);
            std::printf("ok %s\n", obey_(word, rest).c_str());
            std::fflush(stdout);
        }
    }

    Obey obey_;
    QSocketNotifier notifier_;
    std::string pending_;
};

} // namespace tessel::desktop
