#include <cstdio>
#include <memory>

#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

#include "ChildProcess.h"

int main(int argumentCount, char** arguments)
{
    ::testing::InitGoogleTest(&argumentCount, arguments);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    tessel::ChildProcess server({"Xvfb", "-displayfd", "%fd", "-noreset", "-screen", "0", "1280x1024x24"});
    const std::string display = server.firstLine();
    if (display.empty()) {
        std::fputs("Xvfb did not start.\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", QByteArray::fromStdString(":" + display));
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("XDG_SESSION_TYPE");
    const QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
