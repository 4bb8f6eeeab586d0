#include "LinuxFolderChooser.h"

#include "BusConnection.h"
#include "OwnThread.h"
#include "ReadyFuture.h"
#include "SessionBus.h"

#include <QFutureWatcher>

#include <utility>

namespace {

constexpr auto portalService = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto chooserInterface = "org.freedesktop.portal.FileChooser";

/// Given to the portal until it says what it is; the bus may have to start it first. The user looks at a button
/// meanwhile.
constexpr std::chrono::seconds patienceForPortal{3};
/// Given to it to open a dialog, which is what the bus's library gives every call.
constexpr std::chrono::seconds patienceForDialog{25};

/// What a dialog is to say, whose it is and where it begins, in the bytes of the bus.
struct DialogWords
{
    QByteArray parentWindow;
    QByteArray title;
    QByteArray prompt;
    QByteArray firstFolder;
};

/// How the portal's dialog ended.
struct PortalAnswer
{
    /// Whether there was one at all.
    bool isOffered = false;
    /// Absent when the user chose nothing.
    std::optional<QByteArray> uri = {};
};

bool offersFolders(const BusConnection &bus)
{
    constexpr guint32 firstWithFolders = 3;
    const auto answer = bus.call({portalService, portalPath, "org.freedesktop.DBus.Properties", "Get"},
                                 g_variant_new("(ss)", chooserInterface, "version"), "(v)", patienceForPortal);
    if (!answer.values)
        return false;
    GVariant *version = nullptr;
    g_variant_get(answer.values.get(), "(v)", &version);
    const bool isOffered =
        g_variant_is_of_type(version, G_VARIANT_TYPE_UINT32) && g_variant_get_uint32(version) >= firstWithFolders;
    g_variant_unref(version);
    return isOffered;
}

bool opensDialog(const BusConnection &bus, const DialogWords &words)
{
    GVariantBuilder options;
    g_variant_builder_init(&options, G_VARIANT_TYPE_VARDICT);
    const auto add = [&](const char *key, GVariant *value) {
        g_variant_builder_add(&options, "{sv}", key, value);
    };
    add("accept_label", g_variant_new_string(words.prompt.constData()));
    // A path is bytes here, and ends with a zero.
    add("current_folder", g_variant_new_bytestring(words.firstFolder.constData()));
    add("directory", g_variant_new_boolean(TRUE));
    add("modal", g_variant_new_boolean(TRUE));
    add("multiple", g_variant_new_boolean(FALSE));
    auto *request = g_variant_new("(ssa{sv})", words.parentWindow.constData(), words.title.constData(), &options);
    const auto opened =
        bus.call({portalService, portalPath, chooserInterface, "OpenFile"}, request, "(o)", patienceForDialog);
    return opened.values != nullptr;
}

/// The one chosen location in the portal's response; absent in any other.
std::optional<QByteArray> chosenUri(GVariant *response)
{
    // 0: chosen, 1: cancelled, 2: ended in some other way.
    constexpr guint32 chosen = 0;
    if (!g_variant_is_of_type(response, G_VARIANT_TYPE("(ua{sv})")))
        return std::nullopt;
    guint32 code = 0;
    GVariant *results = nullptr;
    g_variant_get(response, "(u@a{sv})", &code, &results);
    std::optional<QByteArray> uri;
    const char **uris = nullptr;
    if (code == chosen && g_variant_lookup(results, "uris", "^a&s", &uris)) {
        if (uris[0] && !uris[1])
            uri = uris[0];
        g_free(uris);
    }
    g_variant_unref(results);
    return uri;
}

/// Blocks until the dialog has come to its end.
PortalAnswer askPortal(const QByteArray &address, const DialogWords &words, const std::stop_token &stop)
{
    std::optional<PortalAnswer> answer;
    // Opened for one dialog, so whatever a portal tells it is about that one. Its end closes what is still open.
    BusConnection bus(address, patienceForPortal, stop);
    if (!offersFolders(bus))
        return {};
    // Before the request, so that no answer comes too early.
    bus.subscribe({portalService, "org.freedesktop.portal.Request", "Response"}, [&](GVariant *response) {
        answer = {true, chosenUri(response)};
    });
    bus.subscribe({"org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged", portalService},
                  [&](GVariant *change) {
                      const char *newOwner = nullptr;
                      g_variant_get(change, "(&s&s&s)", nullptr, nullptr, &newOwner);
                      if (g_str_equal(newOwner, ""))
                          answer = {true, std::nullopt};
                  });
    if (!opensDialog(bus, words))
        return {};
    bus.listen([&] { return answer.has_value(); });
    return answer.value_or(PortalAnswer{true});
}

template <typename Result, typename Finished>
void whenFinished(const QFuture<Result> &future, QObject *context, Finished finished)
{
    auto *watcher = new QFutureWatcher<Result>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, finished] {
        finished(watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(future);
}

} // namespace

LinuxFolderChooser::LinuxFolderChooser(FolderChooser &otherwise, QByteArray firstFolder,
                                       std::function<QString()> parentWindow, QByteArray busAddress)
    : m_otherwise(otherwise), m_firstFolder(std::move(firstFolder)), m_parentWindow(std::move(parentWindow)),
      m_busAddress(busAddress.isEmpty() ? sessionBusAddress() : std::move(busAddress))
{
}

LinuxFolderChooser::~LinuxFolderChooser()
{
    m_stop.request_stop();
}

QFuture<std::optional<Url>> LinuxFolderChooser::chooseFolder(const QString &title, const QString &prompt)
{
    if (m_isChoosing)
        return readyFuture(std::optional<Url>());

    m_isChoosing = true;
    m_promise = {};
    m_promise.start();
    const DialogWords words{m_parentWindow().toUtf8(), title.toUtf8(), prompt.toUtf8(), m_firstFolder};
    const auto dialog = onThreadOfItsOwn(
        [bus = m_busAddress, words, stop = m_stop.get_token()] { return askPortal(bus, words, stop); });
    whenFinished(dialog, this, [=, this](const PortalAnswer &ended) {
        if (!ended.isOffered) {
            return whenFinished(m_otherwise.chooseFolder(title, prompt), this,
                                [this](const std::optional<Url> &folder) { answer(folder); });
        }
        answer(ended.uri ? Url::fromUri(*ended.uri) : std::nullopt);
    });
    return m_promise.future();
}

void LinuxFolderChooser::answer(const std::optional<Url> &folder)
{
    m_isChoosing = false;
    m_promise.addResult(folder);
    m_promise.finish();
}
