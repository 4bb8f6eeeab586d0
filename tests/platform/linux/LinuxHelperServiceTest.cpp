#include "LinuxHelperService.h"

#include "FakeBundleReader.h"
#include "InMemoryFileSystem.h"
#include "PrivilegedHelperClient.h"
#include "TestBus.h"

#include <QCoro/QCoroTask>
#include <QElapsedTimer>
#include <QTimer>

#include <gmock/gmock.h>

namespace {

using testing::AllOf;
using testing::HasSubstr;

const QString helperName = "com.example.Tarnvale.Helper";
const QList<Url> items{Url("/Applications/Ala.app/"), Url("/Library/Caches/z\xc5\x82oto")};

/// A bus, a helper on it, and what a removal meets when it asks the helper for help.
class LinuxHelperServiceTest : public testing::Test
{
protected:
    LinuxHelperServiceTest()
    {
        const Url bundle("/Applications/Tarnvale.app");
        bundles.setMainBundleUrl(bundle);
        disk.executable((bundle / PrivilegedHelperClient::helperExecutablePath).path());
        disk.file((bundle / PrivilegedHelperClient::helperDaemonPlistPath).path());
    }

    void install(const QString &manner)
    {
        bus.addService(helperName, QStringLiteral(TEST_HELPER_PATH " ") + manner);
    }

    HelperReply ask(const QList<Url> &urls = items)
    {
        auto task = client.moveItemsToTrash(urls, "org.ala");
        return QCoro::waitFor(task);
    }

    HelperReply askHelper(const QString &manner)
    {
        install(manner);
        return ask();
    }

    std::string errorFrom(const QString &manner)
    {
        const auto reply = askHelper(manner);
        EXPECT_TRUE(reply.messages.isEmpty());
        return reply.errorDescription.value_or(QString()).toStdString();
    }

    TestBus bus;
    InMemoryFileSystem disk;
    FakeBundleReader bundles;
    LinuxHelperService service{bus.address()};
    PrivilegedHelperClient client{disk, bundles, service};
    const std::string connectionFailed = "Nie udało się połączyć z helperem administratora: ";
};

TEST_F(LinuxHelperServiceTest, fullReply)
{
    const auto reply = askHelper("full");
    EXPECT_EQ(reply.errorDescription, std::nullopt);
    EXPECT_EQ(reply.messages, (QHash<QByteArray, QString>{{"/Applications/Ala.app", ""},
                                                          {"/Library/Caches/z\xc5\x82oto", "It is in use."}}));
    EXPECT_EQ(service.status(), 1);
    EXPECT_EQ(ask().messages.size(), 2) << "every request has a connection of its own";
}

TEST_F(LinuxHelperServiceTest, partialReplyAndForeignKeys)
{
    const QHash<QByteArray, QString> onlyTheFirst{{"/Applications/Ala.app", ""}};
    EXPECT_EQ(askHelper("partial").messages, onlyTheFirst);
}

TEST_F(LinuxHelperServiceTest, keysThatWereNotSentAreLeftOut)
{
    EXPECT_EQ(askHelper("foreign").messages.keys(), QList<QByteArray>{"/Applications/Ala.app"});
}

TEST_F(LinuxHelperServiceTest, repliesThatReportOnNothing)
{
    for (const auto *manner : {"empty", "nothing"}) {
        TestBus ownBus;
        ownBus.addService(helperName, QStringLiteral(TEST_HELPER_PATH " ") + manner);
        LinuxHelperService ownService(ownBus.address());
        const auto future = ownService.moveItemsToTrash({"/a"}, "org.ala");
        const auto answer = waitFor(future);
        EXPECT_EQ(answer.connectionError, std::nullopt) << manner;
        EXPECT_TRUE(answer.messages.isEmpty()) << manner;
    }
}

TEST_F(LinuxHelperServiceTest, aReplyOfAnotherTypeIsAnError)
{
    EXPECT_THAT(errorFrom("numbers"), AllOf(HasSubstr(connectionFailed), HasSubstr("a{sv}")));
}

TEST_F(LinuxHelperServiceTest, aReplyThatIsNoMapIsAnError)
{
    EXPECT_THAT(errorFrom("text"), HasSubstr(connectionFailed + "Unexpected reply signature"));
}

TEST_F(LinuxHelperServiceTest, aHelperThatDiesMidCall)
{
    EXPECT_THAT(errorFrom("dies"), AllOf(HasSubstr(connectionFailed), HasSubstr("disconnected")));
}

TEST_F(LinuxHelperServiceTest, aHelperThatRefuses)
{
    EXPECT_EQ(errorFrom("refuses"), connectionFailed + "Not for you");
}

TEST_F(LinuxHelperServiceTest, aHelperThatDoesNotStart)
{
    bus.addService(helperName, "/bin/false");
    EXPECT_THAT(ask().errorDescription->toStdString(), HasSubstr(connectionFailed + "Process "));
    EXPECT_EQ(service.status(), 1);
}

TEST_F(LinuxHelperServiceTest, aHelperThatWasNeverThere)
{
    EXPECT_EQ(service.status(), 3);
    EXPECT_THAT(ask().errorDescription->toStdString(),
                AllOf(HasSubstr(connectionFailed + "Rejestracja helpera nie powiodła się. Status: 3. Błąd: "),
                      HasSubstr(helperName.toStdString() + " was not provided by any .service files")));
}

TEST_F(LinuxHelperServiceTest, noBus)
{
    bus.kill();
    EXPECT_EQ(service.status(), 0);
    EXPECT_THAT(ask().errorDescription->toStdString(),
                AllOf(HasSubstr("Rejestracja helpera nie powiodła się. Status: 0. Błąd: "), HasSubstr("connect")));
    const auto future = service.moveItemsToTrash({"/a"}, "org.ala");
    EXPECT_THAT(waitFor(future).connectionError->toStdString(), HasSubstr("connect"));
}

TEST_F(LinuxHelperServiceTest, aBusThatGoesAwayEndsTheRequest)
{
    QTimer::singleShot(300, [this] { bus.kill(); });
    const auto error = errorFrom("silent");
    EXPECT_THAT(error, HasSubstr(connectionFailed));
    EXPECT_GT(error.size(), connectionFailed.size()) << "the system says why";
}

TEST_F(LinuxHelperServiceTest, aBusThatHangsIsNotWaitedForLong)
{
    install("full");
    bus.freeze();
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(service.status(), 0);
    EXPECT_EQ(service.registerService(), "The system bus does not answer.");
    EXPECT_LT(clock.elapsed(), 10'000);
}

TEST_F(LinuxHelperServiceTest, aPathThatIsNotTextIsNotSent)
{
    install("full");
    const auto future = service.moveItemsToTrash({"/bad\xff", "/good", "/also"}, "org.ala");
    EXPECT_EQ(waitFor(future).messages, (QHash<QByteArray, QString>{{"/good", ""}, {"/also", "It is in use."}}));
    const auto nobodyCalled = service.moveItemsToTrash({"/bad\xff"}, "org.ala");
    EXPECT_TRUE(nobodyCalled.isFinished());
    EXPECT_EQ(nobodyCalled.result().connectionError, std::nullopt);
}

} // namespace
