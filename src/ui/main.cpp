#include "Program.h"
#include "Renderer.h"

#include <QGuiApplication>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    chooseRenderer();
    Program program;
    return program.run();
}
