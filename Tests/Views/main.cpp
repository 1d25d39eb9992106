// The views' tests need no display: without QT_QPA_PLATFORM their windows are nowhere to be seen.

#include <QtCore/QLocale>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

int main(int argumentCount, char** arguments)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argumentCount, arguments);
    const QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    return RUN_ALL_TESTS();
}
