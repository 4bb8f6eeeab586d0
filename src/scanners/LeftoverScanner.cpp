#include "LeftoverScanner.h"

#include "AllocatedSize.h"
#include "ApplicationRegistry.h"
#include "FileNames.h"
#include "LibraryFolder.h"
#include "NameMatcher.h"
#include "OrderedResults.h"
#include "Spelling.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <functional>
#include <unordered_set>

namespace {

struct LeftoverFolder
{
    /// In the Library.
    const char *name;
    /// What follows the identifier in the names of its entries, where something does.
    QStringView suffix;
};

// clang-format off
constexpr LeftoverFolder leftoverFolders[] = {
    {"Caches",                  {}},
    {"Containers",              {}},
    {"Saved Application State", u".savedState"},
    {"HTTPStorages",            {}},
    {"WebKit",                  {}},
};

// In the Library.
constexpr const char *searchFolders[] = {
    "Application Support",
    "Caches",
    "Containers",
    "Group Containers",
    "Preferences",
    "Logs",
    "Saved Application State",
    "WebKit",
    "HTTPStorages",
    "Cookies",
    "LaunchAgents",
    "Application Scripts",
};
// clang-format on

// How far below a search folder a name is compared.
constexpr int deepestSearchedLevel = 6;

constexpr qsizetype shortestSearchName = 3;
constexpr qsizetype longestSearchName = 255;

/// The first characters of `text` as a person sees them: a letter is one character together with its combining
/// marks.
QList<QStringView> characters(QStringView text, qsizetype atMost)
{
    QList<QStringView> result;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    qsizetype start = 0;
    for (auto end = finder.toNextBoundary(); end != -1 && result.size() < atMost; end = finder.toNextBoundary()) {
        result.append(text.sliced(start, end - start));
        start = end;
    }
    return result;
}

bool isIdentifierCharacter(QStringView character)
{
    const auto first = character.front();
    const char32_t scalar =
        first.isHighSurrogate() ? QChar::surrogateToUcs4(first, character[1]) : first.unicode();
    return QChar::isLetterOrNumber(scalar) || scalar == U'-' || scalar == U'_';
}

/// Whether `text` is at least three pieces of letters, numbers, "-" and "_", with dots between them.
bool looksLikeBundleIdentifier(QStringView text)
{
    int pieces = 1;
    bool pieceIsEmpty = true;
    for (const auto character : characters(text, text.size())) {
        if (character == u".") {
            if (pieceIsEmpty)
                return false;
            ++pieces;
            pieceIsEmpty = true;
        } else if (isIdentifierCharacter(character)) {
            pieceIsEmpty = false;
        } else {
            return false;
        }
    }
    return pieces >= 3 && !pieceIsEmpty;
}

/// The identifier that an entry of a leftover folder is named after; absent when it is not named like one.
std::optional<QString> candidateIdentifier(QByteArrayView fileName, QStringView suffix)
{
    // Two dots at least: telling by bytes spares most names the work.
    if (std::ranges::count(fileName, '.') < 2)
        return std::nullopt;
    auto name = decodedFileName(fileName);
    if (name && name->endsWith(suffix))
        name->chop(suffix.size());
    return name && looksLikeBundleIdentifier(*name) ? name : std::nullopt;
}

// Never offered, whether or not the system still knows their owner.
bool belongsToOperatingSystem(QStringView identifier)
{
    return identifier.startsWith(u"com.apple.");
}

ScanItem leftover(const Url &url)
{
    return {url, ScanItemKind::leftover, ScanConfidence::probable, /*sizeBytes*/ 0, /*isSelected*/ false};
}

/// The system's registry, read when it is asked for the first time.
class LazyIndex
{
public:
    explicit LazyIndex(const ApplicationRegistry &registry) : m_registry(registry) { }

    bool knows(const QString &bundleIdentifier)
    {
        if (!m_index)
            m_index = m_registry.index();
        return m_index->urlForApplication(bundleIdentifier).has_value();
    }

private:
    const ApplicationRegistry &m_registry;
    std::unique_ptr<ApplicationIndex> m_index;
};

} // namespace

LeftoverScanner::LeftoverScanner(const FileSystem &fileSystem, const ApplicationRegistry &applicationRegistry)
    : m_fileSystem(fileSystem), m_applicationRegistry(applicationRegistry)
{
}

QList<ScanItem> LeftoverScanner::scanLeftovers(const QSet<QString> &knownBundleIdentifiers) const
{
    QSet<QString> known;
    for (const auto &identifier : knownBundleIdentifiers)
        known.insert(caselessForm(identifier));
    QList<ScanItem> items;
    std::unordered_set<QByteArray> seenPaths;
    LazyIndex system(m_applicationRegistry);
    for (const auto &[folder, suffix] : leftoverFolders) {
        for (const auto &entry : m_fileSystem.contentsOfDirectory(libraryFolder(m_fileSystem) / folder)) {
            const auto identifier = candidateIdentifier(entry.name(), suffix);
            if (!identifier || belongsToOperatingSystem(*identifier) || known.contains(caselessForm(*identifier))
                || system.knows(*identifier))
                continue;
            const auto url = entry.url();
            if (seenPaths.insert(url.standardizedPath()).second)
                items.push_back(leftover(url));
        }
    }
    measure(m_fileSystem, items);
    std::ranges::stable_sort(items, std::greater{}, &ScanItem::sizeBytes);
    return items;
}

std::optional<QString> LeftoverScanner::validatedSearchName(const QString &text)
{
    // The shortest name is longer than "." and "..", which would lead elsewhere.
    const auto name = text.trimmed();
    const auto length = characters(name, longestSearchName + 1).size();
    const bool isAcceptable = length >= shortestSearchName && length <= longestSearchName && !name.contains(u'\\')
                              && isFileName(encodedFileName(name));
    return isAcceptable ? std::optional(name) : std::nullopt;
}

QList<ScanItem> LeftoverScanner::searchItems(const QString &text) const
{
    const auto name = validatedSearchName(text);
    if (!name)
        return {};

    QList<Url> folders;
    for (const auto *folder : searchFolders)
        folders.push_back(libraryFolder(m_fileSystem) / folder);
    const NameMatcher wanted(*name);
    OrderedResults<ScanItem> found;
    m_fileSystem.walk(folders, [&found, &wanted](FolderPart &part) {
        for (auto &entry : part) {
            const bool isWanted = wanted.matchesFileName(entry.name());
            if (isWanted)
                found.add(entry.place(), leftover(entry.url()));
            if (isWanted || entry.level() == deepestSearchedLevel)
                entry.skipDescendants();
        }
    });
    auto items = found.take();
    measure(m_fileSystem, items);
    std::ranges::sort(items, {}, [](const ScanItem &item) { return item.url.path(); });
    return items;
}
