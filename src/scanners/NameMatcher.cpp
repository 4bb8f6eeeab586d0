#include "NameMatcher.h"

#include "FileNames.h"
#include "Spelling.h"

#include <QLatin1StringView>

NameMatcher::NameMatcher(QStringView name) : m_name(canonicalForm(name)) { }

bool NameMatcher::matches(QStringView name) const
{
    return canonicalForm(name).compare(m_name, Qt::CaseInsensitive) == 0;
}

bool NameMatcher::matchesFileName(QByteArrayView fileName) const
{
    // Nearly every name of a disk is plain ASCII, which is composed already, and of another length.
    if (isAscii(fileName)) {
        return fileName.size() == m_name.size()
               && m_name.compare(QLatin1StringView(fileName.data(), fileName.size()), Qt::CaseInsensitive) == 0;
    }
    const auto name = decodedFileName(fileName);
    return name && matches(*name);
}
