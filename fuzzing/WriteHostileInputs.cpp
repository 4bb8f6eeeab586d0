#include "HostileInputs.h"

#include <QDir>
#include <QFile>
#include <QString>

#include <cstdio>
#include <cstdlib>

/// Writes the hostile inputs into FOLDER/READER/NAME; so many times smaller, where a second argument says so.
int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FOLDER [TIMES]\n", argv[0]);
        return EXIT_FAILURE;
    }
    const double times = argc > 2 ? std::atof(argv[2]) : 1;
    for (const auto &[reader, name, content] : hostileInputs(1 / times)) {
        const QDir folder(QFile::decodeName(argv[1]) + u'/' + QLatin1String(reader));
        QFile file(folder.filePath(QLatin1String(name)));
        if (!folder.mkpath(QStringLiteral(".")) || !file.open(QFile::WriteOnly)
            || file.write(content) != content.size()) {
            std::fprintf(stderr, "%s cannot be written\n", qPrintable(file.fileName()));
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
