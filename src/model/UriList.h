#pragma once

#include "Url.h"

#include <QList>

/// The local files and folders that a text/uri-list names, in its order. Comments, and lines that name anything
/// else, are passed over.
QList<Url> urlsInUriList(QByteArrayView text);
