#include "Fuzz.h"

#include <QDirIterator>
#include <QFile>

#include <cstdio>

/// Reads every file of the folders given as arguments once, as the fuzzing program would, and prints what each costs.
int main(int argc, char **argv)
{
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        for (QDirIterator files(QFile::decodeName(argv[i]), QDir::Files); files.hasNext(); ++count) {
            QFile file(files.next());
            if (!file.open(QFile::ReadOnly))
                return EXIT_FAILURE;
            const auto content = file.readAll();
            const auto cost = measuredReading(content);
            std::printf("%-32s %9lld bytes %7.3f s %6.1f MiB\n", qPrintable(files.fileName()),
                        static_cast<long long>(content.size()), cost.seconds, cost.mebibytes);
            std::fflush(stdout);
        }
    }
    return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
