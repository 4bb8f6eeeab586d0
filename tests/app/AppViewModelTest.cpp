#include "AppFixture.h"

using AppViewModelTest = AppFixture;

TEST_F(AppViewModelTest, buttonsAreEnabledByWhatTheirOperationsNeed)
{
    app.setApplicationQuery(" \t\u00a0");
    EXPECT_FALSE(app.canScanByName());
    // The two screens trim differently: a line break counts as a name here and as nothing there.
    for (const auto *lineBreak : {" \n", " \r", " \u0085", " \u2028", " \u2029"}) {
        app.setApplicationQuery(lineBreak);
        app.setLeftoverQuery(lineBreak);
        EXPECT_TRUE(app.canScanByName() && !app.canSearchLeftovers()) << lineBreak;
    }
    app.setLeftoverQuery("x");
    EXPECT_TRUE(app.canSearchLeftovers() && !app.canScanMedia() && !app.canScanTextFiles());
    chooseMedia(disk.folder("/Volumes/Disk"));
    EXPECT_TRUE(app.canScanMedia() && !app.canScanTextFiles());
    app.chooseTextFolder();
    EXPECT_TRUE(app.canScanTextFiles());

    largeCache("org.big");
    QSignalSpy enabling(&app, &AppViewModel::enablingChanged);
    disk.hold();
    app.scanCleaner();
    EXPECT_FALSE(app.canScan() || app.canScanByName() || app.canSearchLeftovers() || app.canScanMedia()
                 || app.canScanTextFiles());
    settle();
    EXPECT_THAT(app.deletableScopes(), IsEmpty());
    app.cleanerItemModel()->setSelected(0, true);
    EXPECT_THAT(app.deletableScopes(), ElementsAre(static_cast<int>(ScanScope::cleaner)));
    EXPECT_GE(enabling.count(), 3);
    toggleEveryCategory();
    EXPECT_FALSE(app.canScanMedia() || app.canScanTextFiles());
}

TEST_F(AppViewModelTest, selectingTheSameApplicationAgainKeepsWhatWasFound)
{
    const auto application = notes();
    waitFor(scans.loadApplications(false));
    waitFor(scans.scan(application));
    ASSERT_FALSE(app.associatedItems().isEmpty());
    const auto found = app.associatedItems();

    // As another spelling of the same path, and as a reset list would do it.
    auto same = application;
    same.url = Url("/Applications/./Notes.app");
    app.selectApplication(same);
    app.selectApplicationAt(-1);
    EXPECT_EQ(app.associatedItems(), found);
    EXPECT_EQ(app.selectedApplicationRow(), 0);

    waitFor(scans.loadApplications(true));
    EXPECT_EQ(app.associatedItems(), found);

    app.selectApplication({});
    EXPECT_THAT(app.associatedItems(), IsEmpty());
    EXPECT_EQ(app.selectedApplicationRow(), -1);
    app.selectApplicationAt(0);
    app.selectApplicationAt(1);
    EXPECT_EQ(app.selectedApplicationRow(), 0);
    app.selectApplication(disk.application("/Volumes/Disk/Draw.app", {.identifier = "org.draw"}));
    EXPECT_EQ(app.selectedApplicationRow(), -1);
}

TEST_F(AppViewModelTest, scanInFlightDoesNotTouchAStateThatIsGone)
{
    largeCache("org.big");
    notes();
    auto second = std::make_unique<AppViewModel>(platform);
    disk.hold();
    app.scanCleaner();
    second->setApplicationQuery("Notes");
    second->scanApplicationByName();
    EXPECT_FALSE(app.waitForBackground(QDeadlineTimer(1)) || second->waitForBackground(QDeadlineTimer(1)));
    disk.release();
    second.reset();
    owner.reset();
    QTest::qWait(10);
}

TEST_F(AppViewModelTest, aBatteryThatIsReadLateIsShownByItselfAndNoOftener)
{
    QPromise<void> reading;
    reading.start();
    facts.power.source.emplace().isCharging = false;
    facts.latePowerReadingValue = reading.future();
    app.refreshDashboard();
    ASSERT_TRUE(app.dashboardSnapshot());
    EXPECT_FALSE(app.dashboardSnapshot()->battery->isCharging);
    facts.power.source->isCharging = true;
    const QSignalSpy changes(&app, &AppViewModel::dashboardSnapshotChanged);
    // The next reading is late, too: who asks for it would ask for ever.
    QPromise<void> next;
    next.start();
    next.finish();
    facts.latePowerReadingValue = next.future();
    reading.finish();
    EXPECT_TRUE(QTest::qWaitFor([&] { return app.dashboardSnapshot()->battery->isCharging; }));
    QTest::qWait(10);
    EXPECT_EQ(changes.size(), 1);
}
