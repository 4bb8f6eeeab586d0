#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <map>
#include <string>

/// A message bus that lets everybody in, answers the calls that it has an answer for, whatever its type, and nothing
/// to any other: a bus that hangs at one step. It works on threads of its own.
class ScriptedBus
{
public:
    /// From the name of a method to the answer, a tuple in GLib's notation.
    using Script = std::map<std::string, std::string>;

    /// What every client of a bus says first, and its answer.
    static std::pair<const std::string, std::string> hello() { return {"Hello", "(':1.1',)"}; }

    /// Listens at `socket`; in a folder of its own when that is empty.
    explicit ScriptedBus(Script script, const QString &socket = {})
        : m_script(std::move(script)),
          m_address("unix:path=" + (socket.isEmpty() ? m_folder.filePath("bus") : socket).toUtf8())
    {
        auto *guid = g_dbus_generate_guid();
        m_server = g_dbus_server_new_sync(m_address.constData(), G_DBUS_SERVER_FLAGS_RUN_IN_THREAD, guid, nullptr,
                                          nullptr, nullptr);
        g_free(guid);
        EXPECT_TRUE(m_server);
        g_signal_connect(m_server, "new-connection", G_CALLBACK(&ScriptedBus::welcome), this);
        g_dbus_server_start(m_server);
    }
    ~ScriptedBus()
    {
        g_dbus_server_stop(m_server);
        g_object_unref(m_server);
    }
    Q_DISABLE_COPY_MOVE(ScriptedBus)

    QByteArray address() const { return m_address; }

private:
    static gboolean welcome(GDBusServer *, GDBusConnection *connection, gpointer bus)
    {
        // Stays open for as long as the other side wants it.
        g_dbus_connection_add_filter(static_cast<GDBusConnection *>(g_object_ref(connection)),
                                     &ScriptedBus::answer, bus, nullptr);
        return TRUE;
    }

    static GDBusMessage *answer(GDBusConnection *connection, GDBusMessage *message, gboolean isIncoming,
                                gpointer bus)
    {
        if (!isIncoming)
            return message;
        const auto &script = static_cast<const ScriptedBus *>(bus)->m_script;
        const auto *member = g_dbus_message_get_member(message);
        if (const auto line = script.find(member ? member : ""); line != script.end()) {
            auto *reply = g_dbus_message_new_method_reply(message);
            g_dbus_message_set_body(reply, g_variant_new_parsed(line->second.c_str()));
            g_dbus_connection_send_message(connection, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
            g_object_unref(reply);
        }
        g_object_unref(message);
        return nullptr;
    }

    QTemporaryDir m_folder;
    const Script m_script;
    const QByteArray m_address;
    GDBusServer *m_server = nullptr;
};
