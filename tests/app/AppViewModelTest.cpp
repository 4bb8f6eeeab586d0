#include "AppFixture.h"

using AppViewModelTest = AppFixture;

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
