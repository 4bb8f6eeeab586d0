#include "UriList.h"

QList<Url> urlsInUriList(QByteArrayView text)
{
    QList<Url> urls;
    while (!text.isEmpty()) {
        const auto end = text.indexOf('\n');
        const auto line = end < 0 ? text : text.first(end);
        text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
        // Lines end in CR LF; some programs close the text with a byte of value zero.
        auto uri = line.trimmed();
        while (uri.endsWith('\0'))
            uri.chop(1);
        if (const auto url = Url::fromUri(uri))
            urls.append(*url);
    }
    return urls;
}
