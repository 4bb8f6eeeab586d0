#include "TrashSandbox.h"

#include "RemoveTree.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

TrashSandbox::TrashSandbox(const QString &folder)
    : environment(QProcessEnvironment::systemEnvironment()), m_folder(folder + "/tarnvale-trash-XXXXXX"),
      m_home(m_folder.path().toUtf8()), m_session(QCoreApplication::applicationDirPath() + "/workspace_session"),
      m_user(getuid())
{
    EXPECT_TRUE(m_folder.isValid());
    environment.insert("HOME", m_folder.path());
    for (const auto *name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "LANGUAGE"})
        environment.remove(name);
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
}

TrashSandbox::~TrashSandbox()
{
    // Qt cannot remove a name that is not UTF-8.
    removeTree(m_home.toStdString());
}

void TrashSandbox::giveTo(uid_t user)
{
    // The test program may lie where this user does not get.
    const auto copy = m_folder.filePath("workspace_session");
    ASSERT_TRUE(QFile::copy(m_session, copy));
    m_session = copy;
    m_user = user;
    ASSERT_EQ(lchown(m_home.constData(), user, user), 0);
    for (const auto &entry : fs::recursive_directory_iterator(m_home.toStdString()))
        ASSERT_EQ(lchown(entry.path().c_str(), user, user), 0);
}

Url TrashSandbox::file(const QByteArray &path, const QByteArray &content) const
{
    const fs::path whole(url(path).path().toStdString());
    fs::create_directories(whole.parent_path());
    std::ofstream(whole, std::ios::binary) << content.toStdString();
    return url(path);
}

std::map<std::string, std::string> TrashSandbox::snapshot(const QByteArray &path) const
{
    std::map<std::string, std::string> items;
    const auto root = url(path).path().toStdString();
    for (const auto &entry : fs::recursive_directory_iterator(root)) {
        struct stat status;
        EXPECT_EQ(lstat(entry.path().c_str(), &status), 0);
        auto &item = items[entry.path().lexically_relative(root).string()];
        item = std::to_string(status.st_mode);
        // A folder's time changes when something in it goes and comes back.
        if (S_ISLNK(status.st_mode)) {
            item += " -> " + fs::read_symlink(entry.path()).string();
        } else if (S_ISREG(status.st_mode)) {
            item +=
                ' ' + std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec) + ' ';
            std::ifstream file(entry.path(), std::ios::binary);
            item.append(std::istreambuf_iterator<char>(file), {});
        }
    }
    return items;
}

std::map<QByteArray, QByteArray> TrashSandbox::trashed(const QByteArray &trash, const QByteArray &topDirectory)
{
    std::map<QByteArray, QByteArray> items;
    const fs::path folder(trash.toStdString());
    if (!fs::exists(folder / "files"))
        return items;
    for (const auto &item : fs::directory_iterator(folder / "files")) {
        const auto recordPath = folder / "info" / (item.path().filename().string() + ".trashinfo");
        std::ifstream record(recordPath);
        std::string origin;
        while (!origin.starts_with("Path=") && std::getline(record, origin)) { }
        EXPECT_TRUE(record) << recordPath;
        auto path = QByteArray::fromPercentEncoding(origin.substr(std::min<size_t>(5, origin.size())).c_str());
        if (!path.startsWith('/'))
            path.prepend(topDirectory + '/');
        EXPECT_TRUE(items.emplace(path, item.path().c_str()).second) << path.data() << " came here twice";
    }
    return items;
}

void TrashSandbox::start(QProcess &process, const QString &program, const QStringList &arguments) const
{
    process.setProcessEnvironment(environment);
    if (m_user != getuid()) {
        process.setChildProcessModifier([user = m_user] {
            if (setuid(user) != 0)
                _exit(1);
        });
    }
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForStarted()) << qPrintable(program);
}

QByteArray TrashSandbox::run(const QString &program, const QStringList &arguments, const QByteArray &input) const
{
    QProcess process;
    start(process, program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(60'000) && process.exitCode() == 0)
        << qPrintable(program) << ": " << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

std::vector<std::string> TrashSandbox::recycle(const QList<Url> &items, const QByteArray &disk) const
{
    return answers(items, {QString::fromUtf8(disk)});
}

std::vector<std::string> TrashSandbox::remove(const QList<Url> &items, const QByteArray &disk) const
{
    return answers(items, {QString::fromUtf8(disk), "remove"});
}

std::vector<std::string> TrashSandbox::answers(const QList<Url> &items, const QStringList &arguments) const
{
    std::istringstream output(run(session(), arguments, lines(items)).toStdString());
    std::vector<std::string> all;
    for (std::string answer; std::getline(output, answer);)
        all.push_back(answer);
    EXPECT_EQ(all.size(), static_cast<size_t>(items.size()));
    return all;
}

QByteArray TrashSandbox::lines(const QList<Url> &items)
{
    QByteArray lines;
    for (const auto &item : items)
        lines += item.toUri() + '\n';
    return lines;
}
