#pragma once

#include <QByteArray>

#include <optional>
#include <stop_token>
#include <utility>

class FileSystem;
class Url;

/// What reading one bundle may cost, whatever its files claim; what would exceed it is refused, and so is everything
/// once `stop` is requested. More than the largest of bundles, those of developers' tools, need, and what this
/// computer does in less than a second. Used by one thread.
class BundleBudget
{
public:
    /// Bytes of a property list.
    static constexpr qsizetype largestList = 8 * 1024 * 1024;
    /// A value that holds nothing else is at depth 1.
    static constexpr int deepest = 64;
    static constexpr int mostValuesOfList = 100'000;

    explicit BundleBudget(std::stop_token stop = {}) : m_stop(std::move(stop)) { }

    /// As those of `FileSystem`; absent also when it is not granted.
    std::optional<QByteArray> readFile(const FileSystem &fileSystem, const Url &url, qint64 maximumSize);
    std::optional<QByteArray> readFilePart(const FileSystem &fileSystem, const Url &url, qint64 offset,
                                           qint64 maximumLength);

    /// Whether one more entry of a folder may be looked at.
    bool spendEntry() { return --m_entries >= 0 && !m_stop.stop_requested(); }

    /// To be called before the first value of each property list.
    void beginList() { m_valuesOfList = mostValuesOfList; }
    /// Whether one more value may be read at `depth`; to be asked once for each.
    bool spendValue(int depth);
    /// Whether a value may be put under a key of that many characters, which are compared with other keys for that.
    bool spendKey(qsizetype characters);

private:
    bool spendOpening();
    std::optional<QByteArray> spent(std::optional<QByteArray> content);

    const std::stop_token m_stop;
    qint64 m_bytes = 16 * 1024 * 1024;
    qsizetype m_characters = 16 * 1024 * 1024;
    int m_files = 20'000;
    int m_entries = 100'000;
    int m_values = 500'000;
    int m_valuesOfList = mostValuesOfList;
};
