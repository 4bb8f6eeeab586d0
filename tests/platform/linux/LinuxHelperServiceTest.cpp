#include "LinuxHelperService.h"

#include "TestBus.h"

#include <QElapsedTimer>
#include <QTimer>

#include <gmock/gmock.h>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Ne;
using Messages = QHash<QByteArray, QString>;

const QString helperName = "com.example.Tarnvale.Helper";

/// A bus, and what a removal meets when it asks the helper on it for help.
struct HelperOnBus
{
    /// `command` starts the helper; none is installed when it is empty.
    explicit HelperOnBus(const QString &command)
    {
        if (!command.isEmpty())
            bus.addService(helperName, command);
    }

    HelperAnswer ask(const QList<QByteArray> &paths = {"/Applications/Ala.app", "/Library/Caches/z\xc5\x82oto"})
    {
        const auto future = service.moveItemsToTrash(paths, "org.ala");
        return waitFor(future);
    }

    std::string error()
    {
        const auto answer = ask();
        EXPECT_TRUE(answer.messages.isEmpty());
        return answer.connectionError.value_or("none").toStdString();
    }

    TestBus bus;
    LinuxHelperService service{bus.address()};
};

TEST(LinuxHelperService, repliesReportOnWhatWasSentAndOnNothingElse)
{
    const std::pair<const char *, Messages> rows[] = {
        {TEST_HELPER_PATH " full",
         {{"/Applications/Ala.app", ""}, {"/Library/Caches/z\xc5\x82oto", "It is in use."}}},
        {TEST_HELPER_PATH " foreign", {{"/Applications/Ala.app", ""}}},
        {TEST_HELPER_PATH " empty", {}},
        {TEST_HELPER_PATH " nothing", {}},
    };
    for (const auto &[command, messages] : rows) {
        HelperOnBus helper(command);
        for (const auto *request : {" first", " second, with a connection of its own"}) {
            const auto answer = helper.ask();
            EXPECT_EQ(answer.connectionError, std::nullopt) << command << request;
            EXPECT_EQ(answer.messages, messages) << command << request;
        }
        EXPECT_EQ(helper.service.status(), 1);
        EXPECT_EQ(helper.service.registerService(), std::nullopt);
    }
}

TEST(LinuxHelperService, failuresOfTheHelperAreErrorsInTheSystemsWords)
{
    const std::pair<const char *, const char *> rows[] = {
        {TEST_HELPER_PATH " numbers", "a{sv}"},
        {TEST_HELPER_PATH " dies", "disconnected"},
        {TEST_HELPER_PATH " refuses", "Not for you"},
        {"/bin/false", "Process "},
    };
    for (const auto &[command, words] : rows) {
        HelperOnBus helper(command);
        EXPECT_THAT(helper.error(), HasSubstr(words)) << command;
        EXPECT_EQ(helper.service.status(), 1);
    }
}

TEST(LinuxHelperService, aHelperThatWasNeverThere)
{
    HelperOnBus helper("");
    EXPECT_EQ(helper.service.status(), 3);
    EXPECT_THAT(helper.service.registerService().value_or("none").toStdString(),
                HasSubstr(helperName.toStdString() + " was not provided by any .service files"));
}

TEST(LinuxHelperService, noBus)
{
    HelperOnBus helper("");
    helper.bus.kill();
    EXPECT_EQ(helper.service.status(), 0);
    EXPECT_THAT(helper.service.registerService().value_or("none").toStdString(), HasSubstr("connect"));
    EXPECT_THAT(helper.error(), HasSubstr("connect"));
}

TEST(LinuxHelperService, aBusThatGoesAwayEndsTheRequestAndSaysWhy)
{
    HelperOnBus helper(TEST_HELPER_PATH " silent");
    QTimer::singleShot(300, [&] { helper.bus.kill(); });
    EXPECT_THAT(helper.error(), AllOf(Ne("none"), Ne("")));
}

TEST(LinuxHelperService, aBusThatHangsIsNotWaitedForLong)
{
    HelperOnBus helper(TEST_HELPER_PATH " full");
    helper.bus.freeze();
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(helper.service.status(), 0);
    EXPECT_EQ(helper.service.registerService(), "The system bus does not answer.");
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST(LinuxHelperService, aPathThatIsNotTextIsNotSent)
{
    HelperOnBus helper(TEST_HELPER_PATH " full");
    EXPECT_EQ(helper.ask({"/bad\xff", "/good", "/also"}).messages,
              (Messages{{"/good", ""}, {"/also", "It is in use."}}));
    const auto nobodyCalled = helper.service.moveItemsToTrash({"/bad\xff"}, "org.ala");
    EXPECT_TRUE(nobodyCalled.isFinished());
    EXPECT_EQ(nobodyCalled.result().connectionError, std::nullopt);
}

} // namespace
