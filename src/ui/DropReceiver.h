#pragma once

#include "Url.h"

#include <QQuickItem>

#include <optional>

class QMimeData;

/// Takes one dropped file or folder.
///
/// What is dragged is read as bytes: the types that Qt offers for dropped locations lose names that are not UTF-8.
class DropReceiver : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// Whether something that it would take hovers over it.
    Q_PROPERTY(bool isTargeted READ isTargeted NOTIFY isTargetedChanged)

public:
    explicit DropReceiver(QQuickItem *parent = nullptr);

    bool isTargeted() const { return m_isTargeted; }

    /// The first local file among what is dragged: an entry of a list of URIs, else a text that is a file's URI.
    /// Absent when there is none; the drop is refused then.
    static std::optional<Url> firstFile(const QMimeData &dragged);

Q_SIGNALS:
    void isTargetedChanged();
    /// The location of what was dropped, as the desktop hands it over. Comes after the drop itself, so that the
    /// program that was dragged from does not wait for what is done with it.
    void urlDropped(const Url &url);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void setTargeted(bool isTargeted);

    bool m_isTargeted = false;
};
