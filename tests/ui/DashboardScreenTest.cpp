#include "AppViewModel.h"
#include "Appearance.h"
#include "BackgroundPriority.h"
#include "FakeApplicationRegistry.h"
#include "FakeBundleReader.h"
#include "FakeCodeSignature.h"
#include "FakeHelperService.h"
#include "FakeSystemFacts.h"
#include "FakeWorkspace.h"
#include "FolderChooser.h"
#include "Platform.h"
#include "TarnvaleApp.h"

#include <QCoreApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include <gmock/gmock.h>

using testing::Contains;
using testing::IsSupersetOf;
using testing::Not;

namespace {

class LightAppearance : public Appearance
{
public:
    bool isDark() const override { return false; }
};

class NoPriority : public BackgroundPriority
{
public:
    void apply(TaskPriority) const override { }
};

class NobodyChooses : public FolderChooser
{
public:
    QFuture<std::optional<Url>> chooseFolder(const QString &, const QString &) override
    {
        return QtFuture::makeReadyFuture(std::optional<Url>());
    }
};

/// A computer that counts how often it is read.
class CountingFacts : public FakeSystemFacts
{
public:
    double uptime() const override
    {
        ++timesRead;
        return uptimeValue;
    }
    mutable int timesRead = 0;
};

/// The window, opened on the dashboard of a laptop.
class DashboardScreen : public testing::Test
{
protected:
    DashboardScreen()
    {
        disk.setVolume(VolumeValues{QStringLiteral("Dysk Karoliny"), 1000, std::nullopt, 250});
        facts.localizedHostNameValue = QStringLiteral("Laptop Karoliny");
        facts.physicalMemoryValue = 1000;
        facts.pageSizeValue = 1;
        facts.pagesValue = VirtualMemoryStatistics{100, 0, 300, 200, 20};
        facts.powerSourceValue = PowerSourceDescription{4080, 5000, QStringLiteral("AC Power"), true};
        facts.registryEntryValue = BatteryRegistryEntry{213, 5550, QStringLiteral("Good"), std::nullopt};
        facts.timeRemainingValue = -2;
    }

    void open()
    {
        app =
            std::make_unique<TarnvaleApp>(platform, appearance, [](const Url &url) { return std::optional(url); });
        settle();
    }

    AppViewModel &state() { return app->viewModel(); }

    void settle(QSize size = {980, 640})
    {
        app->window().resize(size);
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCoreApplication::processEvents();
            app->window().grabWindow();
        }
    }

    static void collect(QQuickItem &item, QList<QQuickItem *> &into)
    {
        if (!item.isVisible())
            return;
        into.append(&item);
        for (auto *child : item.childItems())
            collect(*child, into);
    }

    QList<QQuickItem *> items()
    {
        QList<QQuickItem *> all;
        collect(*app->window().contentItem(), all);
        return all;
    }

    /// The texts that are shown, as pieces of text are: neither buttons nor fields.
    QList<QQuickItem *> textItems()
    {
        auto all = items();
        all.removeIf([](QQuickItem *item) { return !item->inherits("QQuickText"); });
        return all;
    }

    std::vector<std::string> texts()
    {
        std::vector<std::string> all;
        for (const auto *item : textItems())
            all.push_back(item->property("text").toString().toStdString());
        return all;
    }

    void press(const QString &button)
    {
        for (auto *item : items()) {
            if (item->inherits("QQuickAbstractButton") && item->property("text").toString() == button)
                return QTest::mouseClick(&app->window(), Qt::LeftButton, {}, item->mapToScene({9, 9}).toPoint());
        }
        ADD_FAILURE() << "no button " << qPrintable(button);
    }

    InMemoryFileSystem disk;
    FakeBundleReader bundleReader;
    FakeCodeSignature codeSignature;
    FakeApplicationRegistry registry;
    CountingFacts facts;
    NoPriority priority;
    FakeWorkspace workspace{disk};
    FakeHelperService helperService;
    NobodyChooses chooser;
    Platform platform{disk,     bundleReader, codeSignature, registry, facts,
                      priority, workspace,    helperService, chooser};
    LightAppearance appearance;
    std::unique_ptr<TarnvaleApp> app;
};

TEST_F(DashboardScreen, followsTheLanguageWithoutANewReading)
{
    open();
    EXPECT_THAT(texts(), IsSupersetOf({"Panel sterowania", "Laptop Karoliny", "Dysk Karoliny", "81%", "75%", "52%",
                                       "Zasilacz podłączony", "Tak", "90%", "Dobry", "213", "4080 / 5000 mAh",
                                       "5550 mAh", "Pamięć skompresowana", "Unknown CPU"}));
    const auto readings = facts.timesRead;
    state().setLanguage(AppLanguage::english);
    settle();
    EXPECT_THAT(texts(), IsSupersetOf({"Dashboard", "Laptop Karoliny", "Power adapter connected", "Yes", "Good",
                                       "Compressed memory"}));
    EXPECT_THAT(texts(), Not(Contains("Dobry")));
    EXPECT_EQ(facts.timesRead, readings);
}

TEST_F(DashboardScreen, readsAnewWheneverItIsShownAndWhenAsked)
{
    open();
    EXPECT_EQ(facts.timesRead, 1);
    state().setSidebarSelection(SidebarSelection::dashboard);
    settle();
    EXPECT_EQ(facts.timesRead, 1) << "it was shown already";

    facts.localizedHostNameValue = QStringLiteral("Nowa nazwa");
    state().setSidebarSelection(SidebarSelection::leftovers);
    settle();
    state().setSidebarSelection(SidebarSelection::dashboard);
    settle();
    EXPECT_EQ(facts.timesRead, 2);
    EXPECT_THAT(texts(), Contains("Nowa nazwa"));

    facts.powerSourceValue.reset();
    press(QStringLiteral("Odśwież"));
    settle();
    EXPECT_EQ(facts.timesRead, 3);
    EXPECT_THAT(texts(), Contains("Nie wykryto baterii"));
    EXPECT_THAT(texts(), Not(Contains("Naładowanie")));
}

TEST_F(DashboardScreen, showsWhatIsMissingAsMissing)
{
    static_cast<FakeSystemFacts &>(facts) = {};
    facts.powerSourceValue = PowerSourceDescription{};
    disk.setVolume(std::nullopt);
    open();
    const auto shown = texts();
    EXPECT_THAT(shown, IsSupersetOf({"Unknown Mac", "Unknown CPU", "Macintosh HD", "0%"}));
    // Eight of the battery but for whether it charges, five of the memory with its gauge, the time of the start.
    EXPECT_EQ(std::ranges::count(shown, "Niedostępne"), 7 + 6 + 1);
}

TEST_F(DashboardScreen, nothingIsCutOffAndLongNamesEndInsideTheirCards)
{
    open();
    for (const auto language : {AppLanguage::polish, AppLanguage::english}) {
        state().setLanguage(language);
        for (const QSize size : {QSize(980, 640), QSize(1240, 700), QSize(1600, 1000)}) {
            settle(size);
            for (const auto *item : textItems()) {
                EXPECT_FALSE(item->property("truncated").toBool())
                    << qPrintable(item->property("text").toString()) << " at " << size.width();
            }
        }
    }

    const auto longName = QStringLiteral("Dział księgowości i kadr ").repeated(30);
    facts.localizedHostNameValue = facts.modelValue = facts.processorBrandValue = longName;
    facts.registryEntryValue->batteryHealth = longName;
    disk.setVolume(VolumeValues{longName, 1000, std::nullopt, 250});
    state().refreshDashboard();
    for (const auto width : {980, 1600}) {
        settle({width, 1000});
        auto truncated = 0;
        for (const auto *item : textItems()) {
            truncated += item->property("truncated").toBool();
            EXPECT_LE(item->mapToScene({item->width(), 0}).x(), width - 24)
                << qPrintable(item->property("text").toString().left(30)) << " at " << width;
        }
        EXPECT_EQ(truncated, 5);
    }
}

} // namespace
