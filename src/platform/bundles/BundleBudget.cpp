#include "BundleBudget.h"

#include "FileSystem.h"

#include <algorithm>

std::optional<QByteArray> BundleBudget::readFile(const FileSystem &fileSystem, const Url &url, qint64 maximumSize)
{
    return spendOpening() ? spent(fileSystem.readFile(url, std::min(maximumSize, m_bytes))) : std::nullopt;
}

std::optional<QByteArray> BundleBudget::readFilePart(const FileSystem &fileSystem, const Url &url, qint64 offset,
                                                     qint64 maximumLength)
{
    return spendOpening() ? spent(fileSystem.readFilePart(url, offset, std::min(maximumLength, m_bytes)))
                          : std::nullopt;
}

bool BundleBudget::spendValue(int depth)
{
    return depth <= deepest && --m_valuesOfList >= 0 && --m_values >= 0 && !m_stop.stop_requested();
}

bool BundleBudget::spendKey(qsizetype characters)
{
    m_characters -= std::min(characters, m_characters + 1);
    return m_characters >= 0;
}

bool BundleBudget::spendOpening()
{
    m_files = std::max(m_files - 1, -1);
    return m_files >= 0 && m_bytes > 0 && !m_stop.stop_requested();
}

std::optional<QByteArray> BundleBudget::spent(std::optional<QByteArray> content)
{
    m_bytes -= content ? content->size() : 0;
    return content;
}
