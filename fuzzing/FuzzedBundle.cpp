#include "FuzzedBundle.h"

#include <QtEndian>

#include <algorithm>

namespace {

// A part is its kind, the length of its content in three bytes, and its content.
constexpr qsizetype headSize = 4;
constexpr char listingKind = FuzzedBundle::fileCount;

QByteArray written(char kind, const QByteArray &content)
{
    QByteArray length(4, '\0');
    qToBigEndian(static_cast<quint32>(content.size()), length.data());
    return kind + length.last(3) + content;
}

quint32 integerIn(QByteArrayView bytes)
{
    quint32 value = 0;
    for (const char byte : bytes.first(std::min<qsizetype>(bytes.size(), 3)))
        value = value << 8 | static_cast<quint8>(byte);
    return value;
}

} // namespace

class FuzzedBundle::Listing : public DirectoryWalk
{
public:
    Listing(const FuzzedBundle &bundle, const Url &folder) : m_bundle(bundle), m_folder(folder) { }

    bool next() override
    {
        if (m_next == m_bundle.m_entries)
            return false;
        ++m_bundle.m_entriesListed;
        const auto number = QByteArray::number(m_next++);
        m_name = m_next % 2 ? number + ".lproj" : "AppIcon" + number + ".png";
        return true;
    }
    QByteArrayView name() const override { return m_name; }
    FileType type() const override { return m_next % 2 ? FileType::directory : FileType::regular; }
    int level() const override { return 1; }
    Url url() const override { return m_folder / m_name; }
    std::optional<ResourceValues> resourceValues() const override { return std::nullopt; }
    void skipDescendants() override { }

private:
    const FuzzedBundle &m_bundle;
    const Url m_folder;
    quint32 m_next = 0;
    QByteArray m_name;
};

FuzzedBundle::FuzzedBundle(QByteArrayView description)
{
    while (description.size() >= headSize) {
        const auto kind = static_cast<size_t>(static_cast<quint8>(description.front())) % (fileCount + 1);
        const auto length =
            std::min<qsizetype>(integerIn(description.sliced(1, 3)), description.size() - headSize);
        const auto content = description.sliced(headSize, length);
        if (kind == fileCount)
            m_entries = integerIn(content);
        else
            m_contents[kind] = content.toByteArray();
        description = description.sliced(headSize + length);
    }
}

QByteArray FuzzedBundle::part(File file, const QByteArray &content)
{
    return written(static_cast<char>(file), content);
}

QByteArray FuzzedBundle::listing(quint32 entries)
{
    QByteArray number(4, '\0');
    qToBigEndian(entries, number.data());
    return written(listingKind, number.last(3));
}

DirectoryEnumeration FuzzedBundle::contentsOfDirectory(const Url &folder) const
{
    return DirectoryEnumeration(std::make_unique<Listing>(*this, folder));
}

std::optional<QByteArray> FuzzedBundle::readFile(const Url &url, qint64 maximumSize) const
{
    return contentOf(url).size() <= maximumSize ? readFilePart(url, 0, maximumSize) : std::nullopt;
}

std::optional<QByteArray> FuzzedBundle::readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const
{
    if (offset < 0)
        return std::nullopt;
    auto part = contentOf(url).mid(offset, std::max<qint64>(maximumLength, 0));
    // As from a disk: nothing is shared.
    part.detach();
    m_bytesRead += part.size();
    return part;
}

const QByteArray &FuzzedBundle::contentOf(const Url &url) const
{
    const auto name = url.lastPathComponent();
    const auto file = name == "Info.plist"                          ? information
                      : name == "InfoPlist.loctable"                ? translationTable
                      : name == "InfoPlist.strings"                 ? translation
                      : url.parent().lastPathComponent() == "MacOS" ? executable
                                                                    : icon;
    return m_contents[file];
}
