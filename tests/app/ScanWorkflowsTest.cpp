#include "AppFixture.h"

struct ScanWorkflowsTest : AppFixture
{
    ScanWorkflowsTest()
    {
        app.setLanguage(AppLanguage::english);
        QObject::connect(&app, &AppViewModel::statusMessageChanged, [this] { said << app.statusMessage(); });
    }

    /// Every text of the status line, in order; a text that ends a scan without one is empty.
    QStringList said;

    void searchApplication(const QString &query)
    {
        app.setApplicationQuery(query);
        waitFor(scans.scanApplicationByName());
    }
    void drop(const Url &url) { waitFor(scans.handleDroppedApplication(url)); }
};

TEST_F(ScanWorkflowsTest, catalogIsScannedOnceUnlessForced)
{
    disk.application("/Applications/B.app", {.identifier = "b.b.b"});
    waitFor(scans.loadApplications(false));
    disk.application("/Applications/A.app", {.identifier = "a.a.a"});
    waitFor(scans.loadApplications(false));
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("B.app"));
    waitFor(scans.loadApplications(true));
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("A.app", "B.app"));
    EXPECT_FALSE(app.selectedApplication());
    EXPECT_THAT(said, ElementsAre("Loading applications…", "", "Loading applications…", ""));
}

TEST_F(ScanWorkflowsTest, nameLeadsToTheFilesOfItsApplication)
{
    const auto application = notes();
    searchApplication("  notes\n");
    EXPECT_EQ(app.selectedApplication(), application);
    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("org.notes", "Notes.app"));
    EXPECT_EQ(app.applicationQuery(), "  notes\n");

    // An unknown name empties the list and keeps the selection; a blank one changes nothing at all.
    searchApplication("Note");
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    EXPECT_EQ(app.selectedApplication(), application);
    searchApplication(" \u2028 ");
    EXPECT_THAT(said, ElementsAre("Loading applications…", "", "Scanning…", "",
                                  "No application with that name was found."));

    waitFor(scans.scan(disk.application("/System/Applications/Chess.app", {.identifier = "c.h.s"})));
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    EXPECT_EQ(app.statusMessage(), "No safely associated items were found.");
    app.selectApplication(application);
    EXPECT_EQ(app.statusMessage(), QString());
}

TEST_F(ScanWorkflowsTest, droppedBundleIsScannedWithoutJoiningTheCatalog)
{
    disk.file("~/Library/Caches/org.draw", 100);
    disk.application("/Volumes/Disk/Draw.APP", {.identifier = "org.draw", .size = 300});
    drop(Url("/Volumes/./Disk/Draw.APP"));
    EXPECT_EQ(app.selectedApplication(),
              (InstalledApplication{"Draw", "org.draw", Url("/Volumes/Disk/Draw.APP"), 300, false}));
    EXPECT_EQ(app.applicationQuery(), "Draw");
    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("Draw.APP", "org.draw"));
    EXPECT_THAT(app.applications(), IsEmpty());

    // A link stands for itself: what it leads to is not removed with it.
    const auto link = disk.link("/Applications/Link.app", "/Volumes/Disk/Draw.APP");
    disk.bundles.add(link, {{"CFBundleIdentifier", "org.draw"}});
    drop(link);
    EXPECT_EQ(app.selectedApplication(), (InstalledApplication{"Link", "org.draw", link, 1, false}));
    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("org.draw", "Link.app"));

    const auto system = disk.application("/System/Applications/Mail.app", {.identifier = "m.a.l", .name = "Post"});
    drop(system.url);
    EXPECT_EQ(*app.selectedApplication(), system);

    waitFor(scans.scan(notes()));
    drop(disk.file("/Users/me/plain.txt"));
    EXPECT_FALSE(app.selectedApplication());
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    EXPECT_EQ(app.statusMessage(), "The dropped item is not a valid .app application.");
    EXPECT_EQ(workspace.grants, 4);
    EXPECT_EQ(workspace.openGrants, 0);
}

TEST_F(ScanWorkflowsTest, whatWasFoundForAnotherChoiceIsDropped)
{
    const auto first = notes();
    const auto second = disk.application("/Applications/Draw.app", {.identifier = "org.draw"});
    const auto during = [this](auto &&scan, auto &&meanwhile) {
        disk.hold();
        scan();
        meanwhile();
        settle();
    };
    const auto scanFirst = [&] { app.scan(first); };
    during(scanFirst, [&] { app.selectApplication(second); });
    EXPECT_EQ(app.selectedApplication(), second);
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    EXPECT_EQ(app.statusMessage(), QString());

    // Nobody asks any more; asked for again, it is wanted.
    during(scanFirst, [&] { app.selectApplication({}); });
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    during(scanFirst, [&] {
        app.selectApplication({});
        app.selectApplication(first);
    });
    EXPECT_THAT(namesOf(app.associatedItems()), ElementsAre("org.notes", "Notes.app"));

    chooseMedia(disk.file("/Volumes/Disk/film.mov", 10).parent());
    disk.file("/Volumes/Disk/page.pdf", 10);
    app.chooseTextFolder();
    chooser.folder = disk.folder("/Volumes/Other");
    during([&] { app.scanMedia(); }, [&] { app.chooseMediaFolder(); });
    during([&] { app.scanTextFiles(); }, [&] { app.chooseTextFolder(); });
    EXPECT_THAT(app.mediaFiles(), IsEmpty());
    EXPECT_THAT(app.textFiles(), IsEmpty());
    EXPECT_EQ(app.statusMessage(), QString());
}

TEST_F(ScanWorkflowsTest, droppedBundleIsReadInTheBackgroundAndLosesToALaterChoice)
{
    const auto notesApplication = notes();
    const auto draw = disk.application("/Volumes/Disk/Draw.app", {.identifier = "org.draw"});
    const auto plain = disk.file("/Users/me/plain.txt");
    const auto dropped = [this](const Url &url, const std::function<void()> &meanwhile) {
        disk.hold();
        app.handleDroppedApplication(url);
        EXPECT_FALSE(app.isProcessing());
        meanwhile();
        disk.release();
        EXPECT_TRUE(QTest::qWaitFor([this] { return workspace.openGrants == 0 && !app.isProcessing(); }));
        return app.selectedApplication();
    };
    EXPECT_EQ(dropped(draw.url, [] {}), draw);
    EXPECT_EQ(disk.timesWalkedOnMainThread, 0);
    EXPECT_EQ(app.applicationQuery(), "Draw");

    EXPECT_EQ(dropped(draw.url, [&] { app.selectApplication(notesApplication); }), notesApplication);
    EXPECT_EQ(dropped(plain, [&] { app.scan(notesApplication); }), notesApplication);
    EXPECT_EQ(dropped(plain, [&] { app.handleDroppedApplication(draw.url); }), draw);
    app.setApplicationQuery("No");
    EXPECT_EQ(dropped(draw.url, [&] { app.setApplicationQuery("Notes"); }), draw);
    EXPECT_EQ(app.applicationQuery(), "Notes");
    EXPECT_EQ(dropped(notesApplication.url, [&] { app.requestDeletion(ScanScope::uninstaller); }), draw);

    // A name is looked up when the catalog has come, which is later than the drop.
    app.scanApplicationByName();
    app.handleDroppedApplication(draw.url);
    EXPECT_TRUE(QTest::qWaitFor([this] { return workspace.openGrants == 0 && !app.isProcessing(); }));
    EXPECT_EQ(app.selectedApplication(), draw);
}

TEST_F(ScanWorkflowsTest, leftoversLeaveOutWhatTheCatalogKnowsAndGiveWayToOtherPrograms)
{
    disk.application("/Applications/Notes.app", {.identifier = "org.notes.app"});
    disk.file("~/Library/Caches/org.notes.app", 20);
    disk.file("~/Library/Caches/org.gone.app", 10);
    waitFor(scans.scanLeftovers());
    EXPECT_THAT(namesOf(app.leftoverItems()), ElementsAre("org.gone.app"));
    EXPECT_EQ(app.leftoverItemModel()->selectedCount(), 0);
    EXPECT_THAT(namesOf(app.applications()), ElementsAre("Notes.app"));
    EXPECT_EQ(priority.timesUserInitiated, 1) << "the catalog, which the user waits for elsewhere";
    EXPECT_EQ(priority.timesUtility, 1);

    disk.remove("~/Library/Caches/org.gone.app");
    waitFor(scans.scanLeftovers());
    EXPECT_THAT(said, ElementsAre("Loading applications…", "", "Scanning…", "", "Scanning…",
                                  "No items matching the safety criteria were found."));
}

TEST_F(ScanWorkflowsTest, searchAnswersWithItsCountOrWhyThereIsNothing)
{
    disk.file("~/Library/Logs/some.name");
    for (const auto *query : {"some", "some.name", " Some.Name ", "a/b"}) {
        app.setLeftoverQuery(query);
        waitFor(scans.searchLeftovers());
        EXPECT_EQ(app.leftoverItems().size(), QString(query).contains("ame") ? 1 : 0) << query;
    }
    const auto searching = QStringLiteral("Searching the user library…");
    const auto found =
        QStringLiteral("Found: 1. Search results are not necessarily leftovers and are unselected by default.");
    EXPECT_THAT(said,
                ElementsAre(searching, "No item with that name was found in the supported user library folders.",
                            searching, found, searching, found,
                            "Enter a valid file or folder name without path separators."));
}

TEST_F(ScanWorkflowsTest, cacheScanTakesItemsOfOneMebibyteAtLowPriority)
{
    // What every workflow does: it is busy before the text, and idle after the result.
    QObject::connect(&app, &AppViewModel::isProcessingChanged,
                     [this] { said << (app.isProcessing() ? "busy" : "idle"); });
    QObject::connect(&app, &AppViewModel::cleanerItemsChanged, [this] { said << "items"; });
    disk.file("~/Library/Caches/exact", 1'048'576);
    disk.file("~/Library/Caches/short", 1'048'575);
    waitFor(scans.scanCleaner());
    EXPECT_THAT(namesOf(app.cleanerItems()), ElementsAre("exact"));
    EXPECT_THAT(said, ElementsAre("busy", "Scanning…", "items", "", "idle"));
    EXPECT_FALSE(app.progress());
    // No thread that scans at low priority does what the user waits for.
    waitFor(scans.loadApplications(true));
    EXPECT_EQ(priority.timesUtility, 1);
    EXPECT_EQ(priority.timesUserInitiated, 1);
}

TEST_F(ScanWorkflowsTest, finderAsksForAFolderAndCategoriesAndKeepsWhatItFindsUntilTheNextFolder)
{
    disk.file("/Volumes/Disk/film.mov", 10);
    disk.file("/Volumes/Disk/song.mp3", 20);
    disk.file("/Volumes/Disk/page.pdf", 30);
    disk.file("/Volumes/Disk/note.txt", 40);
    chooser.folder = Url("/Volumes/Disk");
    toggleEveryCategory();
    app.scanMedia();
    app.chooseMediaFolder();
    app.scanMedia();
    app.scanTextFiles();
    app.chooseTextFolder();
    app.scanTextFiles();
    app.toggleMediaCategory(MediaCategory::video);
    app.toggleTextFileCategory(TextFileCategory::pdf);
    waitFor(scans.scanMedia());
    waitFor(scans.scanTextFiles());
    toggleEveryCategory();
    chooseMedia(std::nullopt);
    app.chooseTextFolder();
    app.mediaFileModel()->setSelected(0, true);
    EXPECT_EQ(app.mediaFileModel()->selectedCount(), 0);
    EXPECT_THAT(namesOf(app.mediaFiles()), ElementsAre("film.mov"));
    EXPECT_THAT(namesOf(app.textFiles()), ElementsAre("page.pdf"));
    for (const auto row : {-1, 0, 1}) {
        app.revealMediaFile(row);
        app.revealTextFile(row);
    }
    EXPECT_THAT(workspace.revealed, ElementsAre(Url("/Volumes/Disk/film.mov"), Url("/Volumes/Disk/page.pdf")));
    EXPECT_EQ(app.selectedMediaFolder(), Url("/Volumes/Disk"));
    EXPECT_EQ(app.selectedTextFolder(), Url("/Volumes/Disk"));

    chooseMedia(disk.folder("/Volumes/Other"));
    EXPECT_THAT(app.mediaFiles(), IsEmpty());
    EXPECT_EQ(app.textFiles().size(), 1);
    app.chooseTextFolder();
    EXPECT_THAT(app.textFiles(), IsEmpty());
    waitFor(scans.scanMedia());
    waitFor(scans.scanTextFiles());
    EXPECT_THAT(said,
                ElementsAre("Choose a folder or disk first.", "", "Select at least one file category.",
                            "Choose a folder or disk first.", "", "Select at least one file type.",
                            "Scanning media files…", "Files found: 1.", "Scanning text files…", "Files found: 1.",
                            "", "Scanning media files…", "No files of the selected types were found.",
                            "Scanning text files…", "No files of the selected types were found."));
}

TEST_F(ScanWorkflowsTest, finderTakesFiftyThousandFilesAtMost)
{
    for (int number = 0; number <= 50'000; ++number)
        disk.file("/Volumes/Disk/" + QByteArray::number(number) + ".mp3");
    chooseMedia(Url("/Volumes/Disk"));
    waitFor(scans.scanMedia());
    EXPECT_EQ(app.mediaFiles().size(), 50'000);
}

TEST_F(ScanWorkflowsTest, whileOneRunsAnotherStillDoesWhatComesBeforeItsBusyCheck)
{
    const auto application = notes();
    largeCache("org.gone.app");
    waitFor(scans.scan(application));
    waitFor(scans.scanLeftovers());
    disk.file("/Users/me/page.pdf");
    chooseMedia(disk.file("/Users/me/film.mov").parent());
    app.chooseTextFolder();
    const QSignalSpy mediaChanges(&app, &AppViewModel::mediaFilesChanged);
    const QSignalSpy textChanges(&app, &AppViewModel::textFilesChanged);
    waitFor(scans.scanMedia());
    waitFor(scans.scanTextFiles());
    const auto found = app.associatedItems();
    ASSERT_FALSE(app.leftoverItems().isEmpty() || app.mediaFiles().isEmpty() || app.textFiles().isEmpty());

    disk.hold();
    app.scanCleaner();
    ASSERT_TRUE(app.isProcessing());

    // Pressed twice, it does not lose what the first press finds.
    app.scanCleaner();
    app.loadApplications(true);
    EXPECT_EQ(app.associatedItems(), found);
    app.scanLeftovers();
    EXPECT_THAT(app.leftoverItems(), IsEmpty());
    app.setLeftoverQuery("some.name");
    app.searchLeftovers();
    const auto other = disk.bundles.mainBundleUrl();
    app.scan({"Other", "o.t.h", other, 0, false});
    EXPECT_EQ(app.selectedApplication()->url, other);
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    app.scanMedia();
    app.scanTextFiles();
    EXPECT_TRUE(app.mediaFiles().isEmpty() && app.textFiles().isEmpty());
    EXPECT_TRUE(mediaChanges.count() == 2 && textChanges.count() == 2) << "found, and cleared";
    EXPECT_EQ(app.statusMessage(), "Scanning…");
    app.setLeftoverQuery("..");
    app.searchLeftovers();
    EXPECT_EQ(app.statusMessage(), "Enter a valid file or folder name without path separators.");

    settle();
    EXPECT_THAT(namesOf(app.cleanerItems()), ElementsAre("org.gone.app"));
    EXPECT_EQ(app.statusMessage(), QString());
}
