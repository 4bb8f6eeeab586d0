#pragma once

#include "InstalledApplication.h"
#include "ScanItem.h"

#include <QList>

class CodeSignature;
class FileSystem;

/// Answers which items of the user's Library belong to one application. Stateless; safe to call from any thread.
class AssociatedFileScanner
{
public:
    /// Which of a folder's entries answers to a name.
    enum class NamesOnDisk {
        /// The one of this spelling.
        asSpelled,
        /// The one that a Mac finds, which tells no case apart, whether or not the disk does: it may be a copy.
        asOnMac
    };

    AssociatedFileScanner(const FileSystem &fileSystem, const CodeSignature &codeSignature,
                          NamesOnDisk namesOnDisk = NamesOnDisk::asSpelled);

    /// What belongs to `application`, largest first. What its identifier or its entitlements name is exact and
    /// starts selected; what only its names name is probable and does not. Nothing of a system application starts
    /// selected and its bundle is left out. Blocks while everything found is measured.
    QList<ScanItem> scanAssociatedFiles(const InstalledApplication &application) const;

private:
    const FileSystem &m_fileSystem;
    const CodeSignature &m_codeSignature;
    const NamesOnDisk m_namesOnDisk;
};
