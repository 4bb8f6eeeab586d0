#pragma once

#include <QByteArray>

/// Where the user's session bus listens; empty where none runs. The bus library left alone would start one.
QByteArray sessionBusAddress();
