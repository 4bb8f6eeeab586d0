#include "TrashService.h"

#include "FakeWorkspace.h"
#include "TestDisk.h"

#include <functional>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

const QString outside = QStringLiteral("Ścieżka znajduje się poza dozwolonym obszarem.");
const QString ofTheSystem = QStringLiteral("Usuwanie aplikacji systemowych jest zablokowane.");
const QString unconfirmed = QStringLiteral("Finder nie potwierdził przeniesienia elementu do Kosza.");
const QString refused = QStringLiteral("refused");

/// Replies what a test tells it to, and keeps what it was asked.
class FakePrivilegedHelper : public PrivilegedHelper
{
public:
    HelperReply reply;
    std::function<void()> meanwhile = [] {};
    QList<QList<Url>> requests;
    QStringList bundleIdentifiers;

    QCoro::Task<HelperReply> moveItemsToTrash(QList<Url> items, QString bundleIdentifier) override
    {
        requests.append(items);
        bundleIdentifiers.append(bundleIdentifier);
        meanwhile();
        co_return reply;
    }
};

struct TrashServiceTest : testing::Test
{
    TestDisk disk;
    FakeWorkspace workspace{disk};
    FakePrivilegedHelper helper;
    TrashService service{disk, disk.bundles, workspace, helper};

    Url stubborn(const QByteArray &path, const QString &error = refused)
    {
        const auto url = disk.file(path);
        workspace.reactTo(url, {.moves = false, .confirms = false, .error = error});
        return url;
    }

    static ScanItem item(const Url &url, ScanItemKind kind = ScanItemKind::cache)
    {
        return {url, kind, ScanConfidence::exact, 1, true};
    }

    /// The description of every outcome; "moved" where there is none.
    QStringList remove(const QList<Url> &urls, std::optional<QString> bundleIdentifier = std::nullopt)
    {
        QList<ScanItem> items;
        for (const auto &url : urls)
            items.append(item(url));
        return removeItems(items, bundleIdentifier);
    }

    QStringList removeItems(const QList<ScanItem> &items, std::optional<QString> bundleIdentifier)
    {
        const auto outcomes = QCoro::waitFor(service.moveToTrash(items, bundleIdentifier));
        QStringList descriptions;
        EXPECT_EQ(outcomes.size(), items.size());
        for (qsizetype i = 0; i < outcomes.size(); ++i) {
            EXPECT_EQ(outcomes[i].item, items[i]);
            descriptions.append(outcomes[i].errorDescription.value_or("moved"));
        }
        return descriptions;
    }
};

TEST_F(TrashServiceTest, mainThreadHasItsTurnWhileManyVanishedItemsAreSettled)
{
    const QList<ScanItem> vanished(20'000, item(Url("/Users/me/Library/Caches/gone")));
    auto removal = service.moveToTrash(vanished, QStringLiteral("org.notes"));
    EXPECT_FALSE(removal.isReady());
    const auto outcomes = QCoro::waitFor(removal);
    EXPECT_EQ(outcomes.size(), vanished.size());
    EXPECT_FALSE(outcomes.last().errorDescription);
}

TEST_F(TrashServiceTest, checkDecidesInItsOrderWhatIsHandedToTheTrash)
{
    const auto cache = disk.file("~/Library/Caches/com.acme.app");
    const auto missing = disk.url("~/Library/Caches/missing");
    const auto dangling = disk.link("~/Library/Caches/dangling", "nowhere");
    const auto systemApplication = disk.folder("/System/Applications/Foo.app");
    const auto document = disk.file("~/Documents/thesis.odt");
    const auto outOfSight = disk.file("~/Library/Caches/closed/x");
    disk.makeUnreadable("~/Library/Caches/closed");
    workspace.reactTo(outOfSight, {.moves = false, .confirms = false, .error = refused});
    EXPECT_THAT(
        remove({cache, outOfSight, missing, dangling, systemApplication, Url("/System/gone"), document,
                disk.url("~/Library/Caches"), Url("/Applications/../System/Applications/Foo.app")}),
        ElementsAre("moved", refused, "moved", "moved", ofTheSystem, "moved", outside, outside, ofTheSystem));
    EXPECT_THAT(workspace.recycled, ElementsAre(cache, outOfSight));
    EXPECT_TRUE(disk.exists(document));

    using Error = TrashServiceError;
    EXPECT_EQ(service.validate(missing), (Error{Error::missingItem, {}}));
    EXPECT_EQ(Error({Error::missingItem, {}}).description(), "Element już nie istnieje.");
    EXPECT_EQ(service.validate(Url("/System/gone")), (Error{Error::missingItem, {}}));
}

TEST_F(TrashServiceTest, itemsAreMovedOneAfterAnotherUnderTheUrlsAsTheyWereGiven)
{
    disk.file("/Applications/Foo.app");
    const auto own = disk.file("~/Applications/Foo.app");
    const auto cache = disk.file("~/Library/Caches/a/inside").parent();
    const Url indirect("/Applications/./Foo.app/");
    EXPECT_THAT(remove({indirect, cache, cache / "inside", own, cache}),
                ElementsAre("moved", "moved", "moved", "moved", "moved"));
    EXPECT_THAT(workspace.recycled, ElementsAre(indirect, cache, own))
        << "an item is looked at when it is its turn: it may have gone with another";
    EXPECT_EQ(workspace.mostAtOnce, 1);
    EXPECT_THAT(remove({}, "org.acme"), IsEmpty());
    EXPECT_THAT(helper.requests, IsEmpty());
}

TEST_F(TrashServiceTest, whatTheTrashSaysCountsOnlyWhileTheItemIsThere)
{
    const std::pair<FakeWorkspace::Reaction, QString> rows[] = {
        {{.moves = true, .confirms = true}, "moved"},
        {{.moves = true, .confirms = false}, "moved"},
        {{.moves = true, .confirms = false, .error = refused}, "moved"},
        {{.moves = false, .confirms = false, .error = refused}, refused},
        {{.moves = false, .confirms = true, .error = refused}, refused},
        {{.moves = false, .confirms = false}, unconfirmed},
        {{.moves = false, .confirms = true}, "moved"},
    };
    for (const auto &[reaction, description] : rows) {
        const auto url = disk.file("~/Library/Caches/x");
        workspace.reactTo(url, reaction);
        EXPECT_THAT(remove({url}), ElementsAre(description));
        EXPECT_THAT(helper.requests, IsEmpty()) << "no application is concerned";
    }
}

TEST_F(TrashServiceTest, helperGetsEveryFailureAndItsReplyIsMergedByPath)
{
    const auto moved = disk.file("~/Library/Caches/moved");
    const auto taken = stubborn("~/Library/Caches/taken");
    const auto explained = stubborn("~/Library/Caches/explained");
    const auto untold = stubborn("~/Library/Caches/untold");
    const auto document = disk.file("~/Documents/thesis.odt");
    const auto missing = disk.url("~/Library/Caches/missing");
    const Url indirect("/Users/me/Library/./Caches/taken");
    workspace.reactTo(indirect, {.moves = false, .confirms = false, .error = refused});
    const QList<Url> all{moved, indirect, explained, untold, document, missing};

    EXPECT_THAT(remove(all, "org.acme"), ElementsAre("moved", refused, refused, refused, outside, "moved"))
        << "an empty reply changes nothing";
    EXPECT_THAT(helper.requests, ElementsAre(QList{indirect, explained, untold, document, missing}));
    EXPECT_THAT(helper.bundleIdentifiers, ElementsAre("org.acme"));

    // Something writes it anew while the helper works; it was moved all the same.
    disk.file("~/Library/Caches/moved");
    helper.meanwhile = [&] { disk.file("~/Library/Caches/moved"); };
    helper.reply.messages = {{taken.path(), ""}, {explained.path(), "in use"}, {moved.path(), "not asked"}};
    EXPECT_THAT(remove(all, "org.acme"), ElementsAre("moved", "moved", "in use", refused, outside, "moved"));

    helper.reply.errorDescription = "approve first";
    helper.meanwhile = [&] {
        disk.file("~/Library/Caches/moved");
        disk.remove(untold.path());
    };
    EXPECT_THAT(remove(all, "org.acme"),
                ElementsAre("moved", "approve first", "approve first", "moved", "approve first", "moved"))
        << "and what went meanwhile is gone";
}

TEST_F(TrashServiceTest, helperIsAskedOnlyForAKnownApplication)
{
    const auto failing = item(stubborn("~/Library/Caches/x"));
    const auto nameless = item(disk.folder("/Applications/Nameless.app"), ScanItemKind::application);
    disk.bundles.add(nameless.url, {});
    const auto named = item(disk.application("/Applications/Notes.app", {.identifier = "org.notes"}).url,
                            ScanItemKind::application);

    EXPECT_THAT(removeItems({failing}, std::nullopt), ElementsAre(refused));
    EXPECT_THAT(removeItems({failing, nameless, named}, std::nullopt), ElementsAre(refused, "moved", "moved"));
    EXPECT_THAT(helper.requests, IsEmpty()) << "only the first application counts";

    // Its bundle is gone by the time that the helper is asked.
    disk.folder(named.url.path());
    EXPECT_THAT(removeItems({named, failing}, std::nullopt), ElementsAre("moved", refused));
    EXPECT_THAT(removeItems({failing}, ""), ElementsAre(refused));
    EXPECT_THAT(helper.bundleIdentifiers, ElementsAre("org.notes", ""));
}
