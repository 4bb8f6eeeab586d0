#include "TrashSandbox.h"

#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <iterator>
#include <set>
#include <sys/stat.h>

using testing::StartsWith;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

struct TrashRestoreTest : testing::Test
{
    TrashSandbox sandbox;

    /// An application as hostile to copying as they come: modes, times to the nanosecond, links.
    Url application() const
    {
        const auto bundle = sandbox.url("items/Notes & co.app");
        const auto executable =
            sandbox.file("items/Notes & co.app/Contents/MacOS/main", QByteArray(100'000, '\0'));
        sandbox.file("items/Notes & co.app/.zażółć", "\xff");
        chmod(executable.path().constData(), 04751);
        const timespec times[] = {{1'000'000'000, 1}, {1'234'567'890, 123'456'789}};
        utimensat(AT_FDCWD, executable.path().constData(), times, 0);
        const auto contents = (bundle / "Contents").path().toStdString();
        fs::create_symlink("MacOS/main", contents + "/link");
        fs::create_symlink("/nowhere", contents + "/dangling");
        fs::create_directory(contents + "/empty");
        chmod((contents + "/empty").c_str(), 0700);
        return bundle;
    }

    QList<Url> files(const QByteArrayList &names) const
    {
        QList<Url> urls;
        for (const auto &name : names)
            urls.append(sandbox.file("items/" + name));
        return urls;
    }

    /// Moves all of them and shows that each is where the answer says, and nowhere else. Their names there.
    std::set<std::string> moveAll(const QList<Url> &items) const
    {
        std::set<std::string> names;
        for (const auto &answer : sandbox.recycle(items)) {
            EXPECT_THAT(answer, StartsWith("moved file://"));
            const auto place = Url::fromUri(answer.substr(6)).value_or(Url());
            EXPECT_EQ(place.parent().path(), sandbox.trash() + "/files") << answer;
            EXPECT_TRUE(fs::exists(fs::symlink_status(place.path().toStdString()))) << answer;
            names.insert(place.lastPathComponent().toStdString());
        }
        EXPECT_EQ(std::ssize(names), items.size()) << "no two items are in one place";
        for (const auto &item : items)
            EXPECT_FALSE(fs::exists(fs::symlink_status(item.path().toStdString()))) << item.toUri().data();
        return names;
    }

    /// It restores one item a run: the first that came from `folder`.
    void restoreWithTrashCli(qsizetype count, const QByteArray &folder = "items") const
    {
        for (; count > 0; --count)
            sandbox.run("trash-restore", {QString::fromUtf8(sandbox.url(folder).path())}, "0\n");
    }

    void restoreAllWithGio() const
    {
        sandbox.run("dbus-run-session",
                    {"--", "sh", "-c", "gio trash --list | cut -f 1 | xargs -d '\\n' gio trash --restore"});
    }
};

TEST_F(TrashRestoreTest, itemsOfAnyNameComeBackByteForByte)
{
    auto items = files({"100%25", "%2F", "it's a \"quote\"", "a;b=#?"});
    items << application() << sandbox.url("items/dangling");
    fs::create_symlink("nowhere", items.last().path().toStdString());
    const auto texts = files({"new\nline", "\x01\x7f", "Zażółć.app", "a\\b"});
    const QList<Url> bytes{sandbox.file("items/\xff\xfe.app/x").parent(), sandbox.file("items/\xff")};
    const auto before = sandbox.snapshot("items");
    moveAll(items + texts);
    restoreWithTrashCli(items.size() + texts.size());
    EXPECT_EQ(sandbox.snapshot("items"), before);
    moveAll(items);
    restoreAllWithGio();
    EXPECT_EQ(sandbox.snapshot("items"), before);

    // trash-restore spells these names anew, and gio all that are not ASCII: the record is read as its format says.
    moveAll(bytes);
    for (const auto &[origin, place] : sandbox.trashed(sandbox.trash()))
        fs::rename(place.toStdString(), origin.toStdString());
    EXPECT_EQ(sandbox.snapshot("items"), before);
}

TEST_F(TrashRestoreTest, longestNamesComeBackWholeAndAreCutBetweenCharactersBeforeTheirExtension)
{
    const auto n = [](const char *text, int times) { return QByteArray(text).repeated(times); };
    // A record's name is 10 bytes longer. An extension that takes up more than half of the rest is none.
    const std::pair<QByteArray, QByteArray> rows[] = {
        {n("n", 245), n("n", 245)},
        {n("n", 246), n("n", 243) + ".2"},
        {n("ż", 127), n("ż", 122)},
        {n("ż", 124) + ".app", n("ż", 120) + ".app"},
        {'.' + n("ż", 127), '.' + n("ż", 122)},
        {n("a", 133) + '.' + n("e", 121), n("a", 123) + '.' + n("e", 121)},
        {n("b", 132) + '.' + n("e", 122), n("b", 132) + '.' + n("e", 112)},
        {"x." + n("e", 253), "x." + n("e", 243)},
    };
    QByteArrayList names;
    std::set<std::string> expected;
    for (const auto &[name, cut] : rows) {
        names.append(name);
        expected.insert(cut.toStdString());
    }
    const auto items = files(names);
    const auto before = sandbox.snapshot("items");
    EXPECT_EQ(moveAll(items), expected);
    restoreWithTrashCli(items.size());
    EXPECT_EQ(sandbox.snapshot("items"), before);
}

TEST_F(TrashRestoreTest, manyItemsAndHardLinksOfOneNameComeBackEachToItsPlace)
{
    QList<Url> items;
    for (int i = 0; i < 200; ++i) {
        const auto number = QByteArray::number(i);
        items.append(sandbox.file(i < 10 ? "items/twins/" + number + "/same.plist" : "items/" + number, number));
    }
    // One file under several paths, and folders of one name that hold it as well.
    const auto database = sandbox.file("items/backups/0/db.sqlite", "one file");
    for (int i = 1; i < 6; ++i) {
        const auto number = QByteArray::number(i);
        for (const auto &path : {"items/backups/" + number, "items/copies/" + number + "/db.sqlite"}) {
            fs::create_directories(sandbox.url(path).path().toStdString());
            fs::create_hard_link(database.path().toStdString(),
                                 sandbox.url(path + "/db.sqlite").path().toStdString());
        }
        items << sandbox.url("items/backups/" + number + "/db.sqlite")
              << sandbox.url("items/copies/" + number + "/db.sqlite");
    }
    const auto twins = sandbox.snapshot("items/twins");
    const auto before = sandbox.snapshot("items");
    moveAll(items << database);
    restoreWithTrashCli(10, "items/twins");
    EXPECT_EQ(sandbox.snapshot("items/twins"), twins);
    restoreAllWithGio();
    EXPECT_EQ(sandbox.snapshot("items"), before);
}

// Where a network file system says that a move has failed that was made, as well.
TEST_F(TrashRestoreTest, nothingInTheTrashIsOverwrittenWhetherItHasARecordOrNot)
{
    const QByteArray files = ".local/share/Trash/files/";
    for (const auto &[name, fault] : {std::pair(QByteArray("x"), TrashSandbox::Fault::none),
                                      {QByteArray("y"), TrashSandbox::Fault::plainRenameOnly},
                                      {QByteArray("z"), TrashSandbox::Fault::answerIsLost}}) {
        sandbox.setFault(fault);
        const auto item = sandbox.file("items/" + name + ".app", "new");
        const auto linked = sandbox.file("items/.linked" + name, "linked");
        sandbox.file(files + name + ".app", "orphan");
        sandbox.file(files + name + ".2.app/precious", "in an orphan folder");
        sandbox.file(".local/share/Trash/info/" + name + ".3.app.trashinfo", "a record of nothing");
        fs::create_symlink("nowhere", (sandbox.trash() + "/files/" + name + ".4.app").toStdString());
        fs::create_hard_link(linked.path().toStdString(),
                             (sandbox.trash() + "/files/.linked" + name).toStdString());
        auto kept = sandbox.snapshot(".local/share/Trash");
        const auto before = sandbox.snapshot("items");
        EXPECT_THAT(moveAll({item, linked}), UnorderedElementsAre((name + ".5.app").toStdString(),
                                                                  (".linked" + name + ".2").toStdString()));
        restoreWithTrashCli(2);
        EXPECT_EQ(sandbox.snapshot("items"), before);
        EXPECT_EQ(sandbox.snapshot(".local/share/Trash"), kept);
    }
}
