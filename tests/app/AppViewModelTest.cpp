#include "AppFixture.h"

#include <QMetaProperty>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class AppViewModelTest : public AppFixture
{
};

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
    QSet<QByteArray> signalNames;
    const auto *const meta = app.metaObject();
    for (int i = 0; i < 22; ++i) {
        const auto property = meta->property(meta->propertyOffset() + i);
        EXPECT_EQ(property.notifySignal().name(), QByteArray(property.name()) + "Changed");
        signalNames.insert(property.notifySignal().name());
    }
    EXPECT_EQ(signalNames.size(), 22);
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
    app.refreshDashboard();
    EXPECT_THAT(changes.take(), ElementsAre("dashboardSnapshot"));

    largeCache("org.big");
    app.scanCleaner();
    settle();
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

TEST_F(AppViewModelTest, storedTextsStayInTheLanguageInWhichTheyWereStored)
{
    app.requestDeletion(ScanScope::cleaner);
    app.setLanguage(AppLanguage::english);
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Najpierw zaznacz elementy."));
    app.requestDeletion(ScanScope::cleaner);
    EXPECT_EQ(app.statusMessage(), QStringLiteral("Select items first."));
}

TEST_F(AppViewModelTest, buttonsAreEnabledByWhatTheirOperationsNeed)
{
    for (const auto &query : {QString(), QStringLiteral(" \t\u00a0")}) {
        app.setApplicationQuery(query);
        EXPECT_FALSE(app.canScanByName());
    }
    // The two screens trim differently: a line break counts as a name here and as nothing there.
    app.setApplicationQuery(QStringLiteral(" \n"));
    app.setLeftoverQuery(QStringLiteral(" \n"));
    EXPECT_TRUE(app.canScanByName());
    EXPECT_FALSE(app.canSearchLeftovers());
    app.setLeftoverQuery(QStringLiteral("x"));
    EXPECT_TRUE(app.canSearchLeftovers());

    EXPECT_FALSE(app.canScanMedia());
    app.chooseMediaFolder();
    chooser.answer(disk.folder("/Volumes/Disk"));
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
    app.loadApplications(false);
    settle();
    app.scan(application);
    settle();
    ASSERT_FALSE(app.associatedItems().isEmpty());
    const auto found = app.associatedItems();

    // As another spelling of the same path, and as a reset list would do it.
    auto same = application;
    same.url = Url("/Applications/./Notes.app");
    app.selectApplication(same);
    app.selectApplicationAt(-1);
    EXPECT_EQ(app.associatedItems(), found);
    EXPECT_EQ(app.selectedApplicationRow(), 0);

    app.loadApplications(true);
    settle();
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
    second->setApplicationQuery(QStringLiteral("Notes"));
    second->scanApplicationByName();
    disk.release();
    second.reset();
    owner.reset();
    QTest::qWait(10);
}

TEST_F(AppViewModelTest, refreshingTheDashboardLeavesBusyFlagAndStatusAlone)
{
    facts.physicalMemoryValue = 16;
    app.requestDeletion(ScanScope::cleaner);
    const auto status = app.statusMessage();
    app.refreshDashboard();
    ASSERT_TRUE(app.dashboardSnapshot());
    EXPECT_EQ(app.dashboardSnapshot()->memory.totalBytes, 16u);
    EXPECT_FALSE(app.dashboardSnapshot()->battery);
    EXPECT_EQ(app.statusMessage(), status);
}

TEST_F(AppViewModelTest, revealsTheFileOfARowEvenWhileAScanRuns)
{
    const auto film = disk.file("/Volumes/Disk/film.mov");
    app.chooseMediaFolder();
    chooser.answer(Url("/Volumes/Disk"));
    app.scanMedia();
    settle();
    disk.hold();
    app.scanCleaner();
    app.revealMediaFile(0);
    app.revealMediaFile(1);
    EXPECT_THAT(workspace.revealed, ElementsAre(film));
    settle();
}
