#include "Fuzz.h"

#include <QDirIterator>
#include <QFile>

#include <cstdio>

/// Reads every file of the folder given as the only argument once, as the fuzzing program would.
int main(int argc, char **argv)
{
    int count = 0;
    QDirIterator files(argc == 2 ? QFile::decodeName(argv[1]) : QString(), QDir::Files);
    for (; files.hasNext(); ++count) {
        QFile file(files.next());
        if (!file.open(QFile::ReadOnly))
            return EXIT_FAILURE;
        const auto content = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(content.constData()),
                               static_cast<size_t>(content.size()));
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
