#pragma once

#include "ScanItem.h"

#include <QList>
#include <QSet>
#include <QString>

#include <optional>

class ApplicationRegistry;
class FileSystem;

/// Searches the user's Library for what applications left behind and for items of an exact name. Everything found
/// starts unselected: neither search can prove that it is garbage. Stateless; safe to call from any thread.
class LeftoverScanner
{
public:
    LeftoverScanner(const FileSystem &fileSystem, const ApplicationRegistry &applicationRegistry);

    /// Entries that are named like a bundle identifier whose application is neither among
    /// `knownBundleIdentifiers` nor known to the system, largest first. Identifiers are the same in any case and in any
    /// canonical spelling. Blocks.
    QList<ScanItem> scanLeftovers(const QSet<QString> &knownBundleIdentifiers) const;

    /// `text` without white space at its ends; absent when that is no acceptable file name.
    static std::optional<QString> validatedSearchName(const QString &text);

    /// Items whose name equals the name that `text` spells, whatever the case, by path; nothing when `text` is not
    /// acceptable. Blocks.
    QList<ScanItem> searchItems(const QString &text) const;

private:
    const FileSystem &m_fileSystem;
    const ApplicationRegistry &m_applicationRegistry;
};
