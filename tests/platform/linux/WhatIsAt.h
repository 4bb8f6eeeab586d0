#pragma once

#include "FileSystem.h"

#include <mutex>
#include <string>
#include <utility>

/// Which questions about `url` the file system answers, and what it lists and walks there; only "isGone " where `url` leads
/// to nothing, and empty where it cannot be looked at.
inline std::string whatIsAt(const FileSystem &disk, const Url &url)
{
    const std::pair<const char *, bool> answers[] = {
        {"isGone ", disk.isGone(url)},
        {"exists ", disk.exists(url)},
        {"isDirectory ", disk.isDirectory(url)},
        {"isExecutable ", disk.isExecutable(url)},
        {"resolved ", disk.resolved(url).has_value()},
        {"readFile ", disk.readFile(url, 100).has_value()},
        {"readFilePart ", disk.readFilePart(url, 0, 100).has_value()},
        {"volumeValues ", disk.volumeValues(url).has_value()},
    };
    std::string what;
    for (const auto &[question, isAnswered] : answers)
        what += isAnswered ? question : "";
    for (const auto &entry : disk.contentsOfDirectory(url))
        what += entry.name().toByteArray().toStdString() + ' ';
    std::mutex mutex;
    disk.walk({url}, [&](FolderPart &part) {
        for (const auto &entry : part) {
            const std::lock_guard lock(mutex);
            what += entry.name().toByteArray().toStdString() + ' ';
        }
    });
    return what;
}
