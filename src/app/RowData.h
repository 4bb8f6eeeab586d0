#pragma once

#include "InstalledApplication.h"
#include "MediaFile.h"
#include "ScanItem.h"
#include "TextFile.h"

#include <QVariant>

/// What a view shows of one row under a role of `ListModelBase`; an invalid variant for what the row does not
/// have.
QVariant rowData(const InstalledApplication &application, int role);
QVariant rowData(const ScanItem &item, int role);
QVariant rowData(const MediaFile &file, int role);
QVariant rowData(const TextFile &file, int role);
