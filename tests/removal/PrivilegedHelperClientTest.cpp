#include "PrivilegedHelperClient.h"

#include "FakeHelperService.h"
#include "TestDisk.h"

#include <gmock/gmock.h>
#include <tuple>

using testing::ElementsAre;
using testing::IsEmpty;

const QString approvalText = QStringLiteral("Helper administratora wymaga zatwierdzenia w Ustawienia systemowe → "
                                            "Ogólne → Elementy logowania.");
const QString connectionText = QStringLiteral("Nie udało się połączyć z helperem administratora: ");
const QString notFoundText = QStringLiteral("Nie znaleziono helpera administratora wewnątrz aplikacji. ");

struct PrivilegedHelperClientTest : testing::Test
{
    static constexpr auto executable = "/Applications/Tarnvale.app/Contents/Library/HelperTools/"
                                       "com.example.Tarnvale.Helper";
    static constexpr auto daemonPlist = "/Applications/Tarnvale.app/Contents/Library/LaunchDaemons/"
                                        "com.example.Tarnvale.Helper.plist";

    TestDisk disk;
    FakeHelperService service;
    PrivilegedHelperClient client{disk, disk.bundles, service};

    PrivilegedHelperClientTest()
    {
        disk.executable(executable);
        disk.file(daemonPlist);
    }

    HelperReply send(const QList<Url> &items = {Url("/Applications/Foo.app")})
    {
        return QCoro::waitFor(client.moveItemsToTrash(items, "org.acme"));
    }
    QString failure() { return send().errorDescription.value_or("none"); }
};

TEST_F(PrivilegedHelperClientTest, mainThreadHasItsTurnWhileManyPathsArePutIntoTheRequest)
{
    const QList<Url> items(50'000, Url("/Applications/Foo.app"));
    auto sending = client.moveItemsToTrash(items, QStringLiteral("org.acme"));
    EXPECT_FALSE(sending.isReady());
    QCoro::waitFor(sending);
    ASSERT_EQ(service.requests.size(), 1);
    EXPECT_EQ(service.requests.first().size(), items.size());
}

TEST_F(PrivilegedHelperClientTest, installationIsCheckedInItsOrder)
{
    disk.remove(daemonPlist);
    EXPECT_EQ(failure(), notFoundText + "Oczekiwana ścieżka pliku LaunchDaemon: " + daemonPlist);
    disk.folder(daemonPlist);
    EXPECT_EQ(failure(), notFoundText + "Oczekiwana ścieżka pliku LaunchDaemon: " + daemonPlist);
    disk.remove(executable);
    disk.file(executable);
    EXPECT_EQ(failure(), notFoundText + "Helper istnieje, ale nie jest plikiem wykonywalnym: " + executable);
    disk.remove(executable);
    EXPECT_EQ(failure(), notFoundText + "Oczekiwana ścieżka helpera: " + executable);
    disk.folder(executable);
    EXPECT_EQ(failure(), notFoundText + "Oczekiwana ścieżka helpera: " + executable);
    disk.bundles.setMainBundleUrl(Url("/Users/me/./Downloads/Tarnvale.app/"));
    EXPECT_EQ(failure(), "Helper administratora nie może zostać zarejestrowany z tej lokalizacji. "
                         "Uruchom aplikację z folderu /Applications. Aktualna lokalizacja: "
                         "/Users/me/Downloads/Tarnvale.app. LaunchDaemon z uprawnieniami administratora nie "
                         "powinien być rejestrowany z DerivedData, Downloads ani Desktop.");
    EXPECT_EQ(service.registrations, 0);
    EXPECT_THAT(service.requests, IsEmpty());

    const auto isAccepted = [](const char *path) {
        return !PrivilegedHelperClient::validateApplicationLocation(Url(path));
    };
    for (const auto *path : {"/Applications/Tarnvale.app", "/Applications/Tools/Tarnvale.app",
                             "/Users/Shared/Applications/Tarnvale.app"})
        EXPECT_TRUE(isAccepted(path)) << path;
    for (const auto *path : {"/applications/Tarnvale.app", "/Applications/../Tarnvale.app", "/Applications",
                             "/Users/me/Applications/Tarnvale.app", "/usr/bin"})
        EXPECT_FALSE(isAccepted(path)) << path;
}

TEST_F(PrivilegedHelperClientTest, statusDecidesBeforeAndAfterRegistration)
{
    const auto unregistered = [](const QString &status) {
        return connectionText
               + "Helper został znaleziony w paczce aplikacji, ale macOS nie zarejestrował usługi. Status: "
               + status + ".";
    };
    const auto rejected = [](const QString &status) {
        return connectionText + "Rejestracja helpera nie powiodła się. Status: " + status + ". Błąd: denied";
    };
    // Statuses, the error of the registration, what comes of it, registrations.
    const std::tuple<QList<int>, std::optional<QString>, QString, int> rows[] = {
        {{1}, {}, "none", 0},
        {{2}, {}, approvalText, 0},
        {{7}, {}, connectionText + "Nieznany status SMAppService dla helpera administratora.", 0},
        {{0, 1}, {}, "none", 1},
        {{3, 1}, {}, "none", 1},
        {{0, 2}, {}, approvalText, 1},
        {{0, 0}, {}, unregistered("0"), 1},
        {{3, 3}, {}, unregistered("3"), 1},
        {{0, 7}, {}, connectionText + "Nieznany status SMAppService po rejestracji helpera: 7.", 1},
        {{0, 1}, "denied", "none", 1},
        {{0, 2}, "denied", approvalText, 1},
        {{0, 0}, "denied", rejected("0"), 1},
        {{3, 7}, "denied", rejected("7"), 1},
    };
    for (const auto &[statuses, registrationError, outcome, registrations] : rows) {
        service = {};
        service.statuses = statuses;
        service.registrationError = registrationError;
        EXPECT_EQ(failure(), outcome);
        EXPECT_EQ(service.registrations, registrations) << qPrintable(outcome);
        EXPECT_EQ(service.timesSettingsOpened, outcome == approvalText ? 1 : 0) << qPrintable(outcome);
        EXPECT_EQ(service.requests.size(), outcome == "none" ? 1 : 0) << qPrintable(outcome);
    }
}

TEST_F(PrivilegedHelperClientTest, oneRequestCarriesStandardisedPathsAndOnlyThoseThatAreText)
{
    service.answer.messages = {{"/a/c", ""}, {"/d", "in use"}};
    EXPECT_EQ(send({Url("/a/b/../c/"), Url("/\xff"), Url("/d")}).messages, service.answer.messages);
    EXPECT_THAT(service.requests, ElementsAre(QList<QByteArray>{"/a/c", "/d"}));
    EXPECT_EQ(service.bundleIdentifier, "org.acme");

    service.answer.connectionError = "the helper died";
    EXPECT_EQ(failure(), connectionText + "the helper died");

    // Nothing to send: no settings are opened, and the item keeps the reason that it has.
    service = {};
    service.statuses = {2};
    const auto reply = send({Url("/\xff")});
    EXPECT_TRUE(reply.messages.isEmpty() && !reply.errorDescription);
    EXPECT_EQ(service.timesSettingsOpened, 0);
}
