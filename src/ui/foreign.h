#pragma once

#include "AppViewModel.h"
#include "Appearance.h"
#include "Enumerations.h"
#include "InstalledApplication.h"
#include "ListModelBase.h"
#include "Presentation.h"
#include "SidebarSection.h"
#include "Url.h"
#include "UserNotice.h"

#include <qqml.h>

// What the QML files name of the layers below, which do not know QML.

namespace TarnvaleForeign {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(Tarnvale)
QML_NAMED_ELEMENT(Tarnvale)
} // namespace TarnvaleForeign

struct AppViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(AppViewModel)
    QML_NAMED_ELEMENT(AppViewModel)
    QML_UNCREATABLE("there is one, and the window is given it")
};

struct AppearanceForeign
{
    Q_GADGET
    QML_FOREIGN(Appearance)
    QML_NAMED_ELEMENT(Appearance)
    QML_UNCREATABLE("the platform has it")
};

struct ListModelBaseForeign
{
    Q_GADGET
    QML_FOREIGN(ListModelBase)
    QML_NAMED_ELEMENT(ListModelBase)
    QML_UNCREATABLE("lists belong to the state")
};

struct PresentationForeign
{
    Q_GADGET
    QML_FOREIGN(Presentation)
    QML_NAMED_ELEMENT(Presentation)
    QML_SINGLETON
};

struct UrlForeign
{
    Q_GADGET
    QML_FOREIGN(Url)
    QML_VALUE_TYPE(fileUrl)
};

struct InstalledApplicationForeign
{
    Q_GADGET
    QML_FOREIGN(InstalledApplication)
    QML_VALUE_TYPE(installedApplication)
};

struct SidebarSectionForeign
{
    Q_GADGET
    QML_FOREIGN(SidebarSection)
    QML_VALUE_TYPE(sidebarSection)
};

struct UserNoticeForeign
{
    Q_GADGET
    QML_FOREIGN(UserNotice)
    QML_VALUE_TYPE(userNotice)
};
