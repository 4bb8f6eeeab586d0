#include "AppFixture.h"

#include <QCoro/QCoroTask>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ScanWorkflowsTest : public AppFixture
{
protected:
    ScanWorkflowsTest() { app.setLanguage(AppLanguage::english); }

    void searchApplication(const QString &query)
    {
        app.setApplicationQuery(query);
        QCoro::waitFor(app.scans().scanApplicationByName());
    }
    void drop(const Url &url) { QCoro::waitFor(app.scans().handleDroppedApplication(url)); }
    void chooseMedia(const Url &folder)
    {
        app.chooseMediaFolder();
        chooser.answer(folder);
    }
};

} // namespace

TEST_F(ScanWorkflowsTest, catalogIsScannedOnceUnlessForced)
{
    disk.application("/Applications/B.app", {.identifier = QStringLiteral("b.b.b")});
    QCoro::waitFor(app.scans().loadApplications(false));
    disk.application("/Applications/A.app", {.identifier = QStringLiteral("a.a.a")});
    QCoro::waitFor(app.scans().loadApplications(false));
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("B.app"));
    QCoro::waitFor(app.scans().loadApplications(true));
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("A.app", "B.app"));
    EXPECT_FALSE(app.selectedApplication());
    EXPECT_EQ(app.statusMessage(), QString());
}

TEST_F(ScanWorkflowsTest, nameLeadsToTheFilesOfItsApplication)
{
    const auto application = notes();
    searchApplication(QStringLiteral("  notes\n"));
    EXPECT_EQ(app.selectedApplication(), application);
    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("org.notes", "Notes.app"));
    EXPECT_EQ(app.applicationQuery(), QStringLiteral("  notes\n"));
    EXPECT_EQ(app.statusMessage(), QString());

    // An unknown name empties the list and keeps the selection; a blank one changes nothing at all.
    searchApplication(QStringLiteral("Note"));
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    EXPECT_EQ(app.selectedApplication(), application);
    EXPECT_EQ(app.statusMessage(), QStringLiteral("No application with that name was found."));
    searchApplication(QStringLiteral(" \u2028 "));
    EXPECT_EQ(app.statusMessage(), QStringLiteral("No application with that name was found."));
}

TEST_F(ScanWorkflowsTest, applicationWithoutFilesSaysSo)
{
    const auto application =
        disk.application("/System/Applications/Chess.app", {.identifier = QStringLiteral("c.h.s")});
    QCoro::waitFor(app.scans().scan(application));
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    EXPECT_EQ(app.statusMessage(), QStringLiteral("No safely associated items were found."));
}

TEST_F(ScanWorkflowsTest, droppedBundleIsScannedWithoutJoiningTheCatalog)
{
    disk.file("~/Library/Caches/org.draw", 100);
    disk.application("/Volumes/Disk/Draw.APP", {.identifier = QStringLiteral("org.draw"), .size = 300});
    drop(Url("/Volumes/./Disk/Draw.APP"));
    ASSERT_TRUE(app.selectedApplication());
    EXPECT_EQ(*app.selectedApplication(), (InstalledApplication{QStringLiteral("Draw"), QStringLiteral("org.draw"),
                                                                Url("/Volumes/Disk/Draw.APP"), 300, false}));
    EXPECT_EQ(app.applicationQuery(), QStringLiteral("Draw"));
    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("Draw.APP", "org.draw"));
    EXPECT_THAT(app.applications(), IsEmpty());

    const auto system = disk.application("/System/Applications/Mail.app",
                                         {.identifier = QStringLiteral("m.a.l"), .name = QStringLiteral("Post")});
    drop(system.url);
    EXPECT_EQ(*app.selectedApplication(), system);
    EXPECT_EQ(workspace.grants, 2);
    EXPECT_EQ(workspace.openGrants, 0);
}

TEST_F(ScanWorkflowsTest, whatIsNotABundleWithAnIdentifierIsRefused)
{
    const auto application = notes();
    const QList<Url> refused{
        disk.file("/Users/me/plain.txt"), disk.folder("/Users/me/Empty.app"),
        disk.application("/Users/me/Nameless.app", {.identifier = QString()}).url,
        disk.application("/Users/me/NoExtension", {.identifier = QStringLiteral("n.n.n")}).url};
    for (const auto &url : refused) {
        QCoro::waitFor(app.scans().scan(application));
        drop(url);
        EXPECT_FALSE(app.selectedApplication());
        EXPECT_THAT(app.associatedItems(), IsEmpty());
        EXPECT_EQ(app.statusMessage(), QStringLiteral("The dropped item is not a valid .app application."));
    }
    EXPECT_EQ(workspace.openGrants, 0);
}

TEST_F(ScanWorkflowsTest, leftoversLeaveOutWhatTheCatalogKnows)
{
    notes();
    disk.file("~/Library/Caches/org.gone.app", 10);
    QCoro::waitFor(app.scans().scanLeftovers());
    EXPECT_THAT(namesOf(app.leftoverItems()), ElementsAre("org.gone.app"));
    EXPECT_EQ(app.leftoverItemModel()->selectedCount(), 0);
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("Notes.app"));
    EXPECT_EQ(app.statusMessage(), QString());

    disk.remove("~/Library/Caches/org.gone.app");
    QCoro::waitFor(app.scans().scanLeftovers());
    EXPECT_EQ(app.statusMessage(), QStringLiteral("No items matching the safety criteria were found."));
}

TEST_F(ScanWorkflowsTest, searchAnswersWithItsCountOrWhyThereIsNothing)
{
    disk.file("~/Library/Logs/some.name");
    const auto search = [this](const QString &query) {
        app.setLeftoverQuery(query);
        QCoro::waitFor(app.scans().searchLeftovers());
        return app.statusMessage();
    };
    EXPECT_TRUE(search(QStringLiteral(" Some.Name ")).startsWith(u"Found: 1. "));
    EXPECT_THAT(namesOf(app.leftoverItems()), ElementsAre("some.name"));
    EXPECT_EQ(search(QStringLiteral("some")),
              QStringLiteral("No item with that name was found in the supported user library folders."));

    search(QStringLiteral("some.name"));
    EXPECT_EQ(search(QStringLiteral("a/b")),
              QStringLiteral("Enter a valid file or folder name without path separators."));
    EXPECT_THAT(app.leftoverItems(), IsEmpty());
}

TEST_F(ScanWorkflowsTest, cacheScanTakesItemsOfOneMebibyteAtLowPriority)
{
    disk.file("~/Library/Caches/exact", 1'048'576);
    disk.file("~/Library/Caches/short", 1'048'575);
    QCoro::waitFor(app.scans().scanCleaner());
    EXPECT_THAT(namesOf(app.cleanerItems()), ElementsAre("exact"));
    EXPECT_EQ(priority.timesUtility, 1);
    EXPECT_EQ(priority.timesUserInitiated, 0);
}

TEST_F(ScanWorkflowsTest, folderIsAskedForBeforeTheCategories)
{
    for (const auto category : allCases<MediaCategory>())
        app.toggleMediaCategory(category);
    app.scanMedia();
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Choose a folder or disk first."));
    chooseMedia(disk.folder("/Volumes/Disk"));
    EXPECT_EQ(app.statusMessage(), QString());
    app.scanMedia();
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Select at least one file category."));
    EXPECT_FALSE(app.isProcessing());
}

TEST_F(ScanWorkflowsTest, finderFindsTheChosenCategoriesAndKeepsThemUntilTheNextFolder)
{
    disk.file("/Volumes/Disk/film.mov", 10);
    disk.file("/Volumes/Disk/song.mp3", 20);
    disk.file("/Volumes/Disk/page.pdf", 30);
    app.toggleMediaCategory(MediaCategory::audio);
    chooseMedia(Url("/Volumes/Disk"));
    EXPECT_EQ(chooser.title, QStringLiteral("Choose Folder or Disk"));
    EXPECT_EQ(chooser.prompt, QStringLiteral("Choose"));
    QCoro::waitFor(app.scans().scanMedia());
    EXPECT_THAT(namesOf(app.mediaFiles()), ElementsAre("film.mov"));
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Files found: 1."));

    app.toggleMediaCategory(MediaCategory::video);
    app.chooseMediaFolder();
    chooser.answer(std::nullopt);
    EXPECT_EQ(app.mediaFiles().size(), 1);
    EXPECT_EQ(app.selectedMediaFolder(), Url("/Volumes/Disk"));

    app.chooseTextFolder();
    chooser.answer(Url("/Volumes/Disk"));
    QCoro::waitFor(app.scans().scanTextFiles());
    EXPECT_THAT(namesOf(app.textFiles()), ElementsAre("page.pdf"));

    chooseMedia(disk.folder("/Volumes/Other"));
    EXPECT_THAT(app.mediaFiles(), IsEmpty());
    EXPECT_EQ(app.textFiles().size(), 1);
    QCoro::waitFor(app.scans().scanMedia());
    EXPECT_EQ(app.statusMessage(), QStringLiteral("No files of the selected types were found."));
}

TEST_F(ScanWorkflowsTest, whileOneRunsAnotherStillDoesWhatComesBeforeItsBusyCheck)
{
    const auto application = notes();
    largeCache("org.gone.app");
    QCoro::waitFor(app.scans().scan(application));
    QCoro::waitFor(app.scans().scanLeftovers());
    chooseMedia(Url("/Users/me"));
    const auto found = app.associatedItems();
    ASSERT_FALSE(app.leftoverItems().isEmpty());

    disk.hold();
    app.scanCleaner();
    ASSERT_TRUE(app.isProcessing());

    app.loadApplications(true);
    EXPECT_EQ(app.associatedItems(), found);
    app.scanLeftovers();
    EXPECT_THAT(app.leftoverItems(), IsEmpty());
    app.setLeftoverQuery(QStringLiteral("some.name"));
    app.searchLeftovers();
    const auto other = disk.bundles.mainBundleUrl();
    app.scan({QStringLiteral("Other"), QStringLiteral("o.t.h"), other, 0, false});
    EXPECT_EQ(app.selectedApplication()->url, other);
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    app.scanMedia();
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Scanning…"));
    app.setLeftoverQuery(QStringLiteral(".."));
    app.searchLeftovers();
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Enter a valid file or folder name without path separators."));

    settle();
    EXPECT_THAT(namesOf(app.cleanerItems()), ElementsAre("org.gone.app"));
    EXPECT_EQ(app.statusMessage(), QString());
}

TEST_F(ScanWorkflowsTest, pressingTwiceDoesNotLoseWhatTheFirstPressFinds)
{
    largeCache("org.big");
    disk.hold();
    app.scanCleaner();
    app.scanCleaner();
    settle();
    EXPECT_THAT(namesOf(app.cleanerItems()), ElementsAre("org.big"));
}
