#include "ExtensionKey.h"

#include "FileNames.h"
#include "Url.h"

#include <limits>

namespace {

/// For the few names that are not plain ones.
quint64 keyOfText(QByteArrayView extension)
{
    const auto text = decodedFileName(extension).value_or(QString()).toLower().toUtf8();
    return extensionKey({text.constData(), static_cast<size_t>(text.size())});
}

} // namespace

quint64 extensionKeyOf(QByteArrayView fileName)
{
    // From the end, as most of a name is not its extension.
    quint64 key = 0;
    int shift = 0;
    for (auto next = fileName.size(); next > 0; shift += 8) {
        const auto c = static_cast<unsigned char>(fileName[--next]);
        if (c == '.')
            return key;
        // Beyond ASCII lie letters that are plain ones in lower case, such as the sign of the kelvin.
        if (c >= 0x80)
            return keyOfText(extensionOf(fileName));
        if (shift == std::numeric_limits<quint64>::digits)
            return 0;
        key |= static_cast<quint64>(c >= 'A' && c <= 'Z' ? c | 0x20 : c) << shift;
    }
    return 0;
}
