#include "AppFixture.h"

#include <QCoro/QCoroTask>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QString unconfirmed = QStringLiteral("Finder nie potwierdził przeniesienia elementu do Kosza.");

class RemovalWorkflowTest : public AppFixture
{
protected:
    RemovalWorkflowTest() { app.setLanguage(AppLanguage::english); }

    /// The Trash refuses the item; without a text, it just does not confirm.
    void refuse(const Url &url, const std::optional<QString> &error = std::nullopt)
    {
        workspace.reactTo(url, {.moves = false, .confirms = false, .error = error});
    }

    /// Puts `count` leftovers on the disk and searches for them; all are selected.
    void findLeftovers(int count)
    {
        for (int i = 0; i < count; ++i)
            disk.file("~/Library/Caches/org.gone.app" + QByteArray::number(i), 1000);
        QCoro::waitFor(app.scans().scanLeftovers());
        selectAll(*app.leftoverItemModel());
    }

    void findCaches(int count)
    {
        for (int i = 0; i < count; ++i)
            largeCache("cache" + QByteArray::number(i));
        QCoro::waitFor(app.scans().scanCleaner());
        selectAll(*app.cleanerItemModel());
    }

    static void selectAll(ListModelBase &items)
    {
        for (int row = 0; row < items.count(); ++row)
            items.setSelected(row, true);
    }

    void remove(ScanScope scope)
    {
        app.requestDeletion(scope);
        const auto request = app.pendingDeletion();
        ASSERT_TRUE(request);
        QCoro::waitFor(app.removal().confirmDeletion(*request));
        EXPECT_FALSE(app.isProcessing());
    }
};

} // namespace

TEST_F(RemovalWorkflowTest, requestHoldsTheSelectedItemsInTheOrderOfTheirList)
{
    app.requestDeletion(ScanScope::leftovers);
    EXPECT_FALSE(app.pendingDeletion());
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Select items first."));

    findLeftovers(3);
    app.leftoverItemModel()->setSelected(1, false);
    app.requestDeletion(ScanScope::leftovers);
    ASSERT_TRUE(app.pendingDeletion());
    const auto first = *app.pendingDeletion();
    EXPECT_EQ(first.scope, ScanScope::leftovers);
    EXPECT_THAT(first.items, ElementsAre(app.leftoverItems().at(0), app.leftoverItems().at(2)));
    EXPECT_EQ(app.statusMessage(), QString());

    app.requestDeletion(ScanScope::leftovers);
    EXPECT_NE(app.pendingDeletion()->id, first.id);
    app.cancelDeletion();
    EXPECT_FALSE(app.pendingDeletion());
    EXPECT_EQ(app.leftoverItems().size(), 3);
}

TEST_F(RemovalWorkflowTest, movedItemsLeaveTheirListAndNoOther)
{
    disk.file("~/Library/Caches/org.gone.big", 2'000'000);
    findLeftovers(2);
    findCaches(1);
    ASSERT_THAT(namesOf(app.cleanerItems()), testing::Contains("org.gone.big"));
    const auto caches = app.cleanerItems();

    remove(ScanScope::leftovers);
    EXPECT_THAT(app.leftoverItems(), IsEmpty());
    EXPECT_EQ(app.cleanerItems(), caches);
    ASSERT_TRUE(app.lastReport());
    EXPECT_EQ(app.lastReport()->deletedCount, 3);
    EXPECT_EQ(app.lastReport()->failedCount, 0);
    EXPECT_EQ(app.lastReport()->bytesFreed, 2'002'000);
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Moved to Trash: 3 items (2 MB)."));
    EXPECT_FALSE(app.userNotice());
}

TEST_F(RemovalWorkflowTest, uninstallingForgetsTheApplicationAndScansTheCatalogAgain)
{
    const auto application = notes();
    QCoro::waitFor(app.scans().loadApplications(false));
    QCoro::waitFor(app.scans().scan(application));
    remove(ScanScope::uninstaller);
    EXPECT_THAT(workspace.recycled, ElementsAre(Url("/Users/me/Library/Caches/org.notes"), application.url));
    EXPECT_FALSE(app.selectedApplication());
    EXPECT_THAT(app.applications(), IsEmpty());
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Moved to Trash: 2 items (9 KB)."));
}

TEST_F(RemovalWorkflowTest, whatTheTrashRefusedStaysListedAndSelected)
{
    const auto application = notes();
    refuse(application.url);
    QCoro::waitFor(app.scans().scan(application));
    remove(ScanScope::uninstaller);

    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("Notes.app"));
    EXPECT_TRUE(app.associatedItems().first().isSelected);
    EXPECT_EQ(app.selectedApplication(), application);
    EXPECT_EQ(app.lastReport()->failures.size(), 1);
    EXPECT_EQ(app.lastReport()->failures.first().errorDescription, unconfirmed);
    EXPECT_EQ(helper.bundleIdentifier, QStringLiteral("org.notes"));
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Uninstall completed. Additional leftovers scan recommended."));
    ASSERT_TRUE(app.userNotice());
    EXPECT_EQ(app.userNotice()->title, QStringLiteral("Uninstall completed with notes"));
    app.dismissNotice();
    EXPECT_FALSE(app.userNotice());
}

TEST_F(RemovalWorkflowTest, leftoversRefusedByTheTrashAreCountedInTheNotice)
{
    findLeftovers(5);
    refuse(app.leftoverItems().at(1).url);
    refuse(app.leftoverItems().at(3).url, QStringLiteral("no .Trash here"));
    remove(ScanScope::leftovers);
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Leftovers cleanup completed with notes."));
    ASSERT_TRUE(app.userNotice());
    EXPECT_TRUE(app.userNotice()->message.startsWith(
        u"Moved to Trash: 3 items. macOS did not allow 2 items to be moved automatically."));
    EXPECT_THAT(helper.requests, IsEmpty());
}

TEST_F(RemovalWorkflowTest, otherFailuresAreListedUpToFive)
{
    findLeftovers(8);
    const auto leftovers = app.leftoverItems();
    for (int i = 1; i < 8; ++i)
        refuse(leftovers.at(i).url, i == 7 ? QStringLiteral("KOSZ") : QStringLiteral("refused"));
    remove(ScanScope::leftovers);
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Moved: 1, failures: 7."));
    ASSERT_TRUE(app.userNotice());
    EXPECT_EQ(app.userNotice()->title, QStringLiteral("Some items could not be moved"));
    QStringList lines;
    for (int i = 1; i <= 5; ++i)
        lines.append(leftovers.at(i).url.displayName() + QStringLiteral(": refused"));
    EXPECT_EQ(app.userNotice()->message, lines.join(QChar(u'\n')));
    EXPECT_EQ(app.lastReport()->failures.size(), 7);
}

TEST_F(RemovalWorkflowTest, cachesRefusedByTheTrashAreAnOrdinaryFailure)
{
    findCaches(2);
    refuse(app.cleanerItems().at(0).url);
    remove(ScanScope::cleaner);
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Moved: 1, failures: 1."));
    EXPECT_EQ(app.userNotice()->message,
              QStringLiteral("%1: %2").arg(app.cleanerItems().first().url.displayName(), unconfirmed));
}

TEST_F(RemovalWorkflowTest, confirmingWhileAnotherWorkflowRunsMovesNothing)
{
    findCaches(2);
    app.requestDeletion(ScanScope::cleaner);
    const auto request = *app.pendingDeletion();
    disk.hold();
    app.loadApplications(true);
    app.confirmDeletion(request);
    EXPECT_FALSE(app.pendingDeletion());
    settle();
    EXPECT_THAT(workspace.recycled, IsEmpty());
    EXPECT_FALSE(app.lastReport());
}

TEST_F(RemovalWorkflowTest, listThatChangesDuringARemovalIsPrunedAsItIsThen)
{
    findCaches(3);
    app.cleanerItemModel()->setSelected(2, false);
    app.requestDeletion(ScanScope::cleaner);
    app.confirmDeletion(*app.pendingDeletion());
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Move to Trash"));
    // While it runs: ticks change, and a scan ends at its busy check.
    app.cleanerItemModel()->setSelected(0, false);
    app.cleanerItemModel()->setSelected(2, true);
    settle();
    EXPECT_THAT(namesOf(app.cleanerItems()), ElementsAre("cache2"));
    EXPECT_EQ(app.cleanerItemModel()->selectedBytes(), 2'000'000);
}

TEST_F(RemovalWorkflowTest, removalInFlightDoesNotTouchAStateThatIsGone)
{
    findCaches(2);
    app.requestDeletion(ScanScope::cleaner);
    app.confirmDeletion(*app.pendingDeletion());
    owner.reset();
    EXPECT_TRUE(QTest::qWaitFor([this] { return workspace.recycled.size() == 2; }));
    QTest::qWait(10);
}
