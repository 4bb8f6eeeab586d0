#include "SystemFiles.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qsizetype longestFile = 64 * 1024;
constexpr qsizetype mostNames = 256;

class Descriptor
{
public:
    explicit Descriptor(const QByteArray &path)
        : m_number(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
    {
    }
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    int number() const { return m_number; }

    bool isRegularFile() const
    {
        struct stat status;
        return ::fstat(m_number, &status) == 0 && S_ISREG(status.st_mode);
    }

private:
    int m_number;
};

} // namespace

SystemFiles::SystemFiles(QByteArray root) : m_root(std::move(root)) { }

std::optional<QByteArray> SystemFiles::read(const QByteArray &path) const
{
    const Descriptor file(m_root + path);
    if (!file.isRegularFile())
        return std::nullopt;

    QByteArray content(longestFile, Qt::Uninitialized);
    qsizetype length = 0;
    while (length < longestFile) {
        const auto count =
            ::read(file.number(), content.data() + length, static_cast<size_t>(longestFile - length));
        if (count == 0)
            break;
        if (count > 0)
            length += count;
        else if (errno != EINTR)
            return std::nullopt;
    }
    content.truncate(length);
    return content;
}

std::optional<QString> SystemFiles::line(const QByteArray &path) const
{
    const auto content = read(path);
    if (!content)
        return std::nullopt;
    constexpr auto isEnd = [](char byte) { return byte == '\n' || byte == '\0'; };
    const auto *end = std::find_if(content->begin(), content->end(), isEnd);
    const auto text = QString::fromUtf8(content->first(end - content->begin())).trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::optional<qint64> SystemFiles::number(const QByteArray &path) const
{
    bool isNumber = false;
    const auto value = line(path).value_or(QString()).toLongLong(&isNumber);
    return isNumber ? std::optional<qint64>(value) : std::nullopt;
}

QList<QByteArray> SystemFiles::names(const QByteArray &folder) const
{
    const auto path = m_root + folder;
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(path.constData()), &::closedir);
    QList<QByteArray> names;
    while (directory && names.size() < mostNames) {
        const auto *entry = ::readdir(directory.get());
        if (!entry)
            break;
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..")
            names.append(name);
    }
    std::ranges::sort(names);
    return names;
}
