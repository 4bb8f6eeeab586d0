#include "Surroundings.h"

#include <QGuiApplication>

#include <gmock/gmock.h>

/// Makes the QML module's C++ types known; the build writes it. A static library has to be asked.
void qml_register_types_Tarnvale();

/// The main function of tests that draw.
int main(int argc, char **argv)
{
    setSurroundings();
    QGuiApplication application(argc, argv);
    qml_register_types_Tarnvale();
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
