#include "NameMatcher.h"

#include "FileNames.h"

#include <QLatin1StringView>

#include <algorithm>

namespace {

bool isAscii(QByteArrayView text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

NameMatcher::NameMatcher(QStringView name) : m_name(name.toString().normalized(QString::NormalizationForm_C)) { }

bool NameMatcher::matches(QStringView name) const
{
    const auto composed = name.toString().normalized(QString::NormalizationForm_C);
    return composed.compare(m_name, Qt::CaseInsensitive) == 0;
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
