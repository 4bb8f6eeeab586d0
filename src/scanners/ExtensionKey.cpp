#include "ExtensionKey.h"

#include "FileNames.h"
#include "Url.h"

#include <array>

quint64 extensionKeyOf(QByteArrayView fileName)
{
    const auto extension = extensionOf(fileName);
    std::array<char, sizeof(quint64)> lowercased;
    if (extension.size() > std::ssize(lowercased))
        return 0;
    auto *end = lowercased.data();
    for (const char c : extension) {
        // Beyond ASCII lie letters that are plain ones in lower case, such as the sign of the kelvin.
        if (static_cast<unsigned char>(c) >= 0x80) {
            const auto text = decodedFileName(extension).value_or(QString()).toLower().toUtf8();
            return extensionKey({text.constData(), static_cast<size_t>(text.size())});
        }
        *end++ = c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    }
    return extensionKey({lowercased.data(), end});
}
