#include "Fuzz.h"
#include "UriList.h"

void readInput(const QByteArray &input)
{
    for (const auto &url : urlsInUriList(input)) {
        require(url.path().startsWith('/') && !url.path().contains('\0'));
        require(Url::fromUri(url.toUri()) == url);
        require(url.standardizedPath().startsWith('/') && url.standardized().standardized() == url.standardized());
    }
}
