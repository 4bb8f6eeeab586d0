#include "Surroundings.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

/// The tests' main function: with an application object, so that timers, signals and futures work.
int main(int argc, char **argv)
{
    setSurroundings();
    QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
