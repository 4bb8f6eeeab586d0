#include "Fuzz.h"
#include "UriList.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView text(data, static_cast<qsizetype>(size));
    for (const auto &url : urlsInUriList(text)) {
        require(url.path().startsWith('/') && !url.path().contains('\0'));
        require(Url::fromUri(url.toUri()) == url);
        require(url.standardizedPath().startsWith('/') && url.standardized().standardized() == url.standardized());
    }
    return 0;
}
