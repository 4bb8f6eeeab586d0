#include "LinuxHelperService.h"

#include "ScriptedBus.h"
#include "TestBus.h"

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <gmock/gmock.h>
#include <string>
#include <tuple>
#include <utility>

using testing::AllOf;
using testing::HasSubstr;
using testing::Ne;
using Messages = QHash<QByteArray, QString>;

const QByteArray ala = "/Applications/Ala.app";
const QString helperName = QString::fromLatin1(HelperService::helperLabel);

/// A bus, and what a removal meets when it asks the helper on it for help.
struct HelperOnBus
{
    /// `command` starts the helper; none is installed when it is empty.
    explicit HelperOnBus(const QString &command)
    {
        if (!command.isEmpty())
            bus.addService(helperName, command);
    }

    HelperAnswer ask(const QList<QByteArray> &paths = {ala, "/other"})
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

    int status() { return statusOf(service); }
    std::string registrationError() { return waitFor(service.registerService()).value_or("none").toStdString(); }

    static int statusOf(const HelperService &service) { return static_cast<int>(waitFor(service.status())); }

    TestBus bus;
    LinuxHelperService service{bus.address().toUtf8()};
};

TEST(LinuxHelperService, everyRequestHasAConnectionOfItsOwnAndOnlyPathsThatAreText)
{
    HelperOnBus helper(TEST_HELPER_PATH " full");
    for (const auto &paths :
         {QList<QByteArray>{ala, "/Library/z\xc5\x82oto"}, {"/bad\xff", ala, "/Library/z\xc5\x82oto"}}) {
        const auto answer = helper.ask(paths);
        EXPECT_EQ(answer.connectionError, std::nullopt) << paths.size();
        EXPECT_EQ(answer.messages, (Messages{{ala, ""}, {"/Library/z\xc5\x82oto", "It is in use."}}));
    }
    EXPECT_EQ(helper.status(), 1);
    EXPECT_EQ(helper.registrationError(), "none");
    const auto nobodyCalled = helper.service.moveItemsToTrash({"/bad\xff"}, "org.ala");
    EXPECT_TRUE(nobodyCalled.isFinished());
    EXPECT_EQ(nobodyCalled.result().connectionError, std::nullopt);

    // Cut at the zero, it would be the name of another application.
    const auto cut = helper.service.moveItemsToTrash({ala}, QString("org.ala") + QChar(0) + "b");
    EXPECT_TRUE(waitFor(cut).messages.isEmpty());
    EXPECT_NE(waitFor(cut).connectionError, std::nullopt);
}

TEST(LinuxHelperService, repliesReportOnWhatWasSentAndOnNothingElse)
{
    const std::tuple<const char *, Messages, const char *> rows[] = {
        {"({'/etc/passwd': '', '/Applications/Ala.app': 'a'},)", {{ala, "a"}}, "none"},
        {"(@a{ss} {},)", {}, "none"},
        {"()", {}, "none"},
        {"({'/Applications/Ala.app': <1>},)", {}, "The helper answered (a{sv}) and not (a{ss})."},
    };
    for (const auto &[reply, messages, error] : rows) {
        const ScriptedBus bus({ScriptedBus::hello(), {"moveItemsToTrash", reply}});
        LinuxHelperService service(bus.address());
        const auto answer = waitFor(service.moveItemsToTrash({ala}, "org.ala"));
        EXPECT_EQ(answer.messages, messages) << reply;
        EXPECT_EQ(answer.connectionError.value_or("none"), error) << reply;
    }
}

TEST(LinuxHelperService, failuresOfTheHelperAreErrorsInTheSystemsWords)
{
    const std::pair<const char *, const char *> rows[] = {
        {TEST_HELPER_PATH " dies", "disconnected"},
        {TEST_HELPER_PATH " refuses", "Not for you"},
        {"/bin/false", "Process "},
    };
    for (const auto &[command, words] : rows) {
        HelperOnBus helper(command);
        EXPECT_THAT(helper.error(), HasSubstr(words)) << command;
        EXPECT_EQ(helper.status(), 1);
    }
}

TEST(LinuxHelperService, withoutAHelperOrABus)
{
    HelperOnBus helper("");
    EXPECT_EQ(helper.status(), 3);
    EXPECT_THAT(helper.registrationError(),
                HasSubstr(helperName.toStdString() + " was not provided by any .service files"));
    helper.bus.kill();
    EXPECT_EQ(helper.status(), 0);
    EXPECT_THAT(helper.registrationError(), HasSubstr("connect"));
    EXPECT_THAT(helper.error(), HasSubstr("connect"));
}

TEST(LinuxHelperService, aBusThatGoesAwayEndsTheRequestAndSaysWhy)
{
    HelperOnBus helper(TEST_HELPER_PATH " slow");
    QTimer::singleShot(300, [&] { helper.bus.kill(); });
    EXPECT_THAT(helper.error(), AllOf(Ne("none"), Ne("")));
}

TEST(LinuxHelperService, aBusThatHangsIsNotWaitedFor)
{
    HelperOnBus helper(TEST_HELPER_PATH " full");
    // The bus notices a new file in its own time; before it starts something it looks.
    EXPECT_EQ(helper.registrationError(), "none");
    EXPECT_EQ(helper.status(), 1);
    helper.bus.freeze();
    QElapsedTimer clock;
    clock.start();
    const auto status = helper.service.status();
    const auto registration = helper.service.registerService();
    const auto request = helper.service.moveItemsToTrash({"/a"}, "org.ala");
    EXPECT_LT(clock.elapsed(), 500) << "on the main thread";
    EXPECT_FALSE(status.isFinished() || registration.isFinished() || request.isFinished());
    EXPECT_EQ(waitFor(status), HelperStatus::notRegistered);
    EXPECT_EQ(waitFor(registration), "The bus does not answer.");
    EXPECT_EQ(waitFor(request).connectionError, "The bus does not answer.");
}

TEST(LinuxHelperService, silenceOfTheBusAndAnswersOfTheWrongTypeAreNoAnswers)
{
    const std::string label = HelperService::helperLabel;
    const std::pair<const std::string, std::string> unknown{"ListActivatableNames", "(['org.other'],)"};
    const std::pair<ScriptedBus::Script, int> rows[] = {
        {{}, 0},
        {{ScriptedBus::hello()}, 0},
        {{ScriptedBus::hello(), {"ListActivatableNames", "('" + label + "',)"}}, 0},
        {{ScriptedBus::hello(), {"ListActivatableNames", "(['" + label + "'],)"}}, 1},
        {{ScriptedBus::hello(), unknown}, 0},
        {{ScriptedBus::hello(), unknown, {"NameHasOwner", "('yes',)"}}, 0},
        {{ScriptedBus::hello(), unknown, {"NameHasOwner", "(@u 1,)"}}, 0},
        {{ScriptedBus::hello(), unknown, {"NameHasOwner", "(true,)"}}, 1},
        {{ScriptedBus::hello(), unknown, {"NameHasOwner", "(false,)"}}, 3},
    };
    for (const auto &[script, status] : rows) {
        const ScriptedBus bus(script);
        const LinuxHelperService service(bus.address());
        EXPECT_EQ(HelperOnBus::statusOf(service), status) << testing::PrintToString(script);
    }
}

// Not on the main thread, where it would show as 30 seconds without a beat; the bound leaves room for a busy machine.
TEST(LinuxHelperService, aSlowHelperIsWaitedForWhileTheMainThreadLives)
{
    HelperOnBus helper(TEST_HELPER_PATH " slow");
    qint64 longestPause = 0;
    QElapsedTimer clock, sinceBeat;
    QTimer heart;
    QObject::connect(&heart, &QTimer::timeout,
                     [&] { longestPause = std::max(longestPause, sinceBeat.restart()); });
    clock.start();
    sinceBeat.start();
    heart.start(20);
    const auto answer = helper.ask();
    longestPause = std::max(longestPause, sinceBeat.elapsed());
    EXPECT_EQ(answer.connectionError, std::nullopt);
    EXPECT_EQ(answer.messages.size(), 2);
    EXPECT_GE(clock.elapsed(), 30'000);
    EXPECT_LT(longestPause, 2'000);
}
