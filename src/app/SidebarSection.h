#pragma once

#include "Enumerations.h"

#include <QList>
#include <QObject>
#include <QString>

/// A screen: what the sidebar and the screen's heading say of it, and the view that draws it.
struct SidebarSection
{
    Q_GADGET
    Q_PROPERTY(Tarnvale::SidebarSelection selection MEMBER selection)
    Q_PROPERTY(QString textKey READ textKey)
    Q_PROPERTY(QString headingKey MEMBER headingKey)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString view MEMBER view)

public:
    SidebarSelection selection;
    /// The keys of its heading and, below, of its name in the sidebar.
    QString headingKey;
    QString symbol;
    /// The name of a QML type that takes the state object as `viewModel` and this row as `section`.
    QString view;

    QString textKey() const { return rawValue(selection); }
};

/// One row for each `SidebarSelection`, in the order of the sidebar.
const QList<SidebarSection> &sidebarSections();
