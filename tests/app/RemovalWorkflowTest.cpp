#include "AppFixture.h"

using testing::FieldsAre;

const QString unconfirmed = "Finder nie potwierdził przeniesienia elementu do Kosza.";

struct RemovalWorkflowTest : AppFixture
{
    RemovalWorkflowTest() { app.setLanguage(AppLanguage::english); }

    /// The Trash refuses the item; without a text, it just does not confirm.
    void refuse(const Url &url, const std::optional<QString> &error = {})
    {
        workspace.reactTo(url, {.moves = false, .confirms = false, .error = error});
    }

    /// Puts `count` leftovers on the disk and searches for them; all are selected.
    void findLeftovers(int count)
    {
        for (int i = 0; i < count; ++i)
            disk.file("~/Library/Caches/org.gone.app" + QByteArray::number(i), 1000);
        waitFor(scans.scanLeftovers());
        app.leftoverItemModel()->toggleAll();
    }

    void findCaches(int count)
    {
        for (int i = 0; i < count; ++i)
            largeCache("cache" + QByteArray::number(i));
        waitFor(scans.scanCleaner());
        app.cleanerItemModel()->toggleAll();
    }

    void remove(ScanScope scope)
    {
        app.requestDeletion(scope);
        const auto request = app.pendingDeletion();
        ASSERT_TRUE(request);
        waitFor(app.removal().confirmDeletion(*request));
        EXPECT_FALSE(app.isProcessing());
    }

    void installNewApplication() { disk.application("/Applications/New.app", {.identifier = "org.new"}); }

    void expectNotice(const char *status, const char *title, const QString &beginning = {})
    {
        EXPECT_EQ(app.statusMessage(), status);
        ASSERT_TRUE(app.userNotice());
        EXPECT_EQ(app.userNotice()->title, title);
        EXPECT_TRUE(app.userNotice()->message.startsWith(beginning)) << qPrintable(app.userNotice()->message);
    }
};

TEST_F(RemovalWorkflowTest, selectedItemsLeaveTheirListAndNoOther)
{
    app.requestDeletion(ScanScope::leftovers);
    EXPECT_FALSE(app.pendingDeletion());
    EXPECT_EQ(app.statusMessage(), "Select items first.");

    disk.file("~/Library/Caches/org.gone.big", 2'000'000);
    findLeftovers(3);
    findCaches(1);
    ASSERT_THAT(namesOf(app.cleanerItems()), testing::Contains("org.gone.big"));
    const auto caches = app.cleanerItems();
    const auto leftovers = app.leftoverItems();
    app.leftoverItemModel()->setSelected(2, false);
    app.requestDeletion(ScanScope::leftovers);
    EXPECT_EQ(app.statusMessage(), QString());
    EXPECT_EQ(app.pendingDeletion()->scope, ScanScope::leftovers);
    EXPECT_THAT(app.pendingDeletion()->items, ElementsAre(leftovers.at(0), leftovers.at(1), leftovers.at(3)));
    app.cancelDeletion();
    EXPECT_FALSE(app.pendingDeletion());

    remove(ScanScope::leftovers);
    EXPECT_THAT(namesOf(app.leftoverItems()), ElementsAre("org.gone.app1"));
    EXPECT_EQ(app.cleanerItems(), caches);
    EXPECT_THAT(*app.lastReport(), FieldsAre(3, 0, 2'002'000, IsEmpty()));
    EXPECT_EQ(app.statusMessage(), "Moved to Trash: 3 items (2 MB).");
    EXPECT_FALSE(app.userNotice());
}

TEST_F(RemovalWorkflowTest, whatTheTrashRefusedStaysListedAndSelectedUntilItIsGone)
{
    const auto application = notes();
    refuse(application.url);
    waitFor(scans.scan(application));
    installNewApplication();
    remove(ScanScope::uninstaller);

    EXPECT_THAT(namesOf(app.applications()), testing::UnorderedElementsAre("Notes.app", "New.app"))
        << "the catalog is read again whatever failed";
    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("Notes.app"));
    EXPECT_TRUE(app.associatedItems().first().isSelected);
    EXPECT_EQ(app.selectedApplication(), application);
    EXPECT_THAT(*app.lastReport(), FieldsAre(1, 1, 5000, testing::SizeIs(1)));
    EXPECT_EQ(app.lastReport()->failures.at(0).errorDescription, unconfirmed);
    EXPECT_EQ(helper.bundleIdentifier, "org.notes");
    expectNotice("Uninstall completed. Additional leftovers scan recommended.", "Uninstall completed with notes");
    app.dismissNotice();
    EXPECT_FALSE(app.userNotice());

    workspace.reactTo(application.url, {});
    remove(ScanScope::uninstaller);
    EXPECT_THAT(workspace.recycled,
                ElementsAre(Url("/Users/me/Library/Caches/org.notes"), application.url, application.url));
    EXPECT_FALSE(app.selectedApplication());
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("New.app"));
    EXPECT_EQ(app.statusMessage(), "Moved to Trash: 1 items (4 KB).");
}

TEST_F(RemovalWorkflowTest, helperIsToldTheApplicationThatTheRequestIsAbout)
{
    const auto application = notes();
    refuse(application.url);
    waitFor(scans.scan(application));
    app.requestDeletion(ScanScope::uninstaller);
    const auto request = *app.pendingDeletion();
    app.selectApplication(disk.application("/Applications/Draw.app", {.identifier = "org.draw"}));
    waitFor(app.removal().confirmDeletion(request));
    EXPECT_EQ(helper.bundleIdentifier, "org.notes");
}

TEST_F(RemovalWorkflowTest, failuresAreListedUpToFiveAndLeftoversThatTheTrashRefusedAreCounted)
{
    const auto application = notes();
    waitFor(scans.loadApplications(false));
    waitFor(scans.scan(application));
    installNewApplication();
    findLeftovers(8);
    QStringList lines;
    for (int i = 1; i < 8; ++i) {
        const auto &url = app.leftoverItems().at(i).url;
        refuse(url, i == 7 ? "KOSZ" : "refused");
        lines.append(url.displayName() + ": refused");
    }
    remove(ScanScope::leftovers);
    expectNotice("Moved: 1, failures: 7.", "Some items could not be moved");
    EXPECT_EQ(app.userNotice()->message, lines.first(5).join(u'\n'));

    for (int i = 0; i < 6; ++i)
        workspace.reactTo(app.leftoverItems().at(i).url, {});
    refuse(app.leftoverItems().at(2).url);
    refuse(app.leftoverItems().at(4).url, "no .Trash here");
    refuse(app.leftoverItems().at(6).url, "KOSZ");
    remove(ScanScope::leftovers);
    expectNotice("Leftovers cleanup completed with notes.", "Leftovers cleanup completed with notes",
                 "Moved to Trash: 4 items. macOS did not allow 3 items to be moved automatically.");

    // Caches have no notice of their own.
    findCaches(1);
    refuse(app.cleanerItems().at(0).url);
    remove(ScanScope::cleaner);
    expectNotice("Moved: 0, failures: 1.", "Some items could not be moved", "cache0: " + unconfirmed);

    // The application is selected all the while, and is not concerned.
    EXPECT_THAT(helper.requests, IsEmpty()) << "the helper of the system gets nothing of it";
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("Notes.app")) << "the catalog is not read again";
}

TEST_F(RemovalWorkflowTest, removalWaitsForNoOtherWorkflowAndPrunesTheListAsItIsThen)
{
    findCaches(3);
    app.cleanerItemModel()->setSelected(2, false);
    app.requestDeletion(ScanScope::cleaner);
    const auto request = *app.pendingDeletion();
    disk.hold();
    app.loadApplications(true);
    app.confirmDeletion(request);
    EXPECT_FALSE(app.pendingDeletion());
    settle();
    EXPECT_THAT(workspace.recycled, IsEmpty());
    EXPECT_FALSE(app.lastReport());

    app.confirmDeletion(request);
    EXPECT_EQ(app.statusMessage(), "Move to Trash");
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
