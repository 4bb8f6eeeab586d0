#include "Program.h"

#include <QGuiApplication>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    Program program;
    return program.run();
}
