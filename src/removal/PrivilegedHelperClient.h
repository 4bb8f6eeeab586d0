#pragma once

#include "PrivilegedHelper.h"

class BundleReader;
class FileSystem;
class HelperService;

/// The client of the privileged helper daemon: makes sure that it is installed and enabled, and sends it one
/// request a call. Keeps nothing between calls.
class PrivilegedHelperClient : public PrivilegedHelper
{
public:
    PrivilegedHelperClient(const FileSystem &fileSystem, const BundleReader &bundleReader, HelperService &service);

    QCoro::Task<HelperReply> moveItemsToTrash(QList<Url> items, QString bundleIdentifier) override;

private:
    const FileSystem &m_fileSystem;
    const BundleReader &m_bundleReader;
    HelperService &m_service;
};
