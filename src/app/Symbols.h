#pragma once

#include "Enumerations.h"

#include <QStringView>

/// The symbol that stands for a kind or a category, and the name of its colour ("blue", "teal", …).
struct SymbolTile
{
    QStringView symbol;
    QStringView tint;
};

SymbolTile symbolTile(ScanItemKind kind);
SymbolTile symbolTile(MediaCategory category);
SymbolTile symbolTile(TextFileCategory category);
