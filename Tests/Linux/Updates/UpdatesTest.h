#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtNetwork/QSslConfiguration>

#include <optional>

#include "CertificateAuthority.h"
#include "HTTPSServer.h"

namespace tessel::test {

/// A web server that proves who it is to whoever trusts `authority`, and an event loop for both ends.
class UpdatesTest : public testing::Test {
protected:
    /// Runs the event loop until the condition holds, for a minute at most.
    template <class Condition>
    static bool runUntil(Condition condition)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        while (!condition() && elapsed.elapsed() < 60'000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        return condition();
    }

    QSslConfiguration security() const
    {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates({authority_.certificate()});
        return configuration;
    }

    int argumentCount_ = 0;
    QCoreApplication application_{argumentCount_, nullptr};
    CertificateAuthority authority_;
    HTTPSServer server_{authority_.issue("IP:127.0.0.1")};
};

} // namespace tessel::test
