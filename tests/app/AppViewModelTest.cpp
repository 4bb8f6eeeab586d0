#include "AppFixture.h"

#include <QMetaProperty>

namespace {

using AppViewModelTest = AppFixture;

/// Which properties announced a change, each once, in the order of their declaration.
class Changes
{
public:
    explicit Changes(QObject &object)
    {
        const auto *const meta = object.metaObject();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
            m_spies.emplace_back(meta->property(i).name(),
                                 std::make_unique<QSignalSpy>(&object, meta->property(i).notifySignal()));
    }
    std::vector<std::string> take()
    {
        std::vector<std::string> names;
        for (const auto &[name, spy] : m_spies) {
            if (!spy->isEmpty())
                names.emplace_back(name);
            spy->clear();
        }
        return names;
    }

private:
    std::vector<std::pair<const char *, std::unique_ptr<QSignalSpy>>> m_spies;
};

} // namespace

TEST_F(AppViewModelTest, startsInPolishOnTheDashboardWithNothingFound)
{
    EXPECT_EQ(app.language(), AppLanguage::polish);
    EXPECT_EQ(app.sidebarSelection(), SidebarSelection::dashboard);
    EXPECT_EQ(app.property("selectedMediaCategories").value<QList<int>>(), (QList<int>{0, 1, 2}));
    EXPECT_EQ(app.property("selectedTextFileCategories").value<QList<int>>(), (QList<int>{0, 1, 2, 3, 4}));
    for (const auto *const list :
         {"applications", "associatedItems", "leftoverItems", "cleanerItems", "mediaFiles", "textFiles"})
        EXPECT_TRUE(app.property(list).value<ListModelBase *>()->isEmpty()) << list;
    for (const auto *const absent :
         {"selectedApplication", "selectedMediaFolder", "selectedTextFolder", "dashboardSnapshot", "progress",
          "pendingDeletion", "lastReport", "userNotice"})
        EXPECT_FALSE(app.property(absent).isValid()) << absent;
    for (const auto *const empty : {"applicationQuery", "leftoverQuery", "statusMessage"})
        EXPECT_EQ(app.property(empty), QVariant(QString())) << empty;
    EXPECT_FALSE(app.isProcessing());
}

TEST_F(AppViewModelTest, everyPublishedFieldHasASignalOfItsOwn)
{
    const auto *const meta = app.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyOffset() + 22; ++i)
        EXPECT_EQ(meta->property(i).notifySignal().name(), QByteArray(meta->property(i).name()) + "Changed");
}

TEST_F(AppViewModelTest, announcesWhatChangedAndNothingElse)
{
    Changes changes(app);
    app.setLanguage(AppLanguage::english);
    EXPECT_THAT(changes.take(), ElementsAre("language"));
    app.setLanguage(AppLanguage::english);
    EXPECT_THAT(changes.take(), IsEmpty());
    app.setSidebarSelection(SidebarSelection::cleaner);
    EXPECT_THAT(changes.take(), ElementsAre("sidebarSelection"));
    facts.physicalMemoryValue = 16;
    app.refreshDashboard();
    EXPECT_THAT(changes.take(), ElementsAre("dashboardSnapshot"));
    EXPECT_EQ(app.dashboardSnapshot()->memory.totalBytes, 16u);

    largeCache("org.big");
    waitFor(scans.scanCleaner());
    changes.take();
    app.cleanerItemModel()->setSelected(0, true);
    EXPECT_THAT(changes.take(), testing::Contains("cleanerItems"));
    app.requestDeletion(ScanScope::cleaner);
    EXPECT_THAT(changes.take(), ElementsAre("pendingDeletion"));
}

TEST_F(AppViewModelTest, commonSequenceGoesBusyBeforeTheTextAndIdleAfterTheResult)
{
    QStringList log;
    QObject::connect(&app, &AppViewModel::isProcessingChanged,
                     [&] { log << (app.isProcessing() ? "busy" : "idle"); });
    QObject::connect(&app, &AppViewModel::statusMessageChanged, [&] { log << app.statusMessage(); });
    QObject::connect(&app, &AppViewModel::cleanerItemsChanged, [&] { log << "items"; });
    largeCache("org.big");

    app.setLanguage(AppLanguage::english);
    app.scanCleaner();
    settle();

    EXPECT_EQ(log, (QStringList{"busy", "Scanning…", "items", "", "idle"}));
    EXPECT_FALSE(app.progress());
}

TEST_F(AppViewModelTest, buttonsAreEnabledByWhatTheirOperationsNeed)
{
    app.setApplicationQuery(" \t\u00a0");
    EXPECT_FALSE(app.canScanByName());
    // The two screens trim differently: a line break counts as a name here and as nothing there.
    app.setApplicationQuery(" \n");
    app.setLeftoverQuery(" \n");
    EXPECT_TRUE(app.canScanByName());
    EXPECT_FALSE(app.canSearchLeftovers());
    app.setLeftoverQuery("x");
    EXPECT_TRUE(app.canSearchLeftovers());

    EXPECT_FALSE(app.canScanMedia());
    chooseMedia(disk.folder("/Volumes/Disk"));
    EXPECT_TRUE(app.canScanMedia());
    EXPECT_FALSE(app.canScanTextFiles());
    for (const auto category : allCases<MediaCategory>())
        app.toggleMediaCategory(category);
    EXPECT_FALSE(app.canScanMedia());

    largeCache("org.big");
    QSignalSpy enabling(&app, &AppViewModel::enablingChanged);
    disk.hold();
    app.scanCleaner();
    EXPECT_FALSE(app.canScan() || app.canScanByName() || app.canSearchLeftovers());
    settle();
    EXPECT_FALSE(app.canDeleteCleanerItems());
    app.cleanerItemModel()->setSelected(0, true);
    EXPECT_TRUE(app.canDeleteCleanerItems());
    EXPECT_GE(enabling.count(), 3);
    app.scanMedia();
    EXPECT_TRUE(app.canDeleteCleanerItems());
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
    disk.release();
    second.reset();
    owner.reset();
    QTest::qWait(10);
}

TEST_F(AppViewModelTest, aBatteryThatIsReadLateIsShownByItself)
{
    QPromise<void> reading;
    reading.start();
    facts.firstPowerReadingValue = reading.future();
    AppViewModel late(platform);
    late.refreshDashboard();
    EXPECT_FALSE(late.dashboardSnapshot()->battery);
    facts.powerSourceValue.emplace();
    reading.finish();
    EXPECT_TRUE(QTest::qWaitFor([&] { return late.dashboardSnapshot()->battery.has_value(); }));
}

TEST_F(AppViewModelTest, revealsTheFileOfARowEvenWhileAScanRuns)
{
    const auto film = disk.file("/Volumes/Disk/film.mov");
    chooseMedia(Url("/Volumes/Disk"));
    waitFor(scans.scanMedia());
    disk.hold();
    app.scanCleaner();
    app.revealMediaFile(0);
    app.revealMediaFile(1);
    EXPECT_THAT(workspace.revealed, ElementsAre(film));
    settle();
}
