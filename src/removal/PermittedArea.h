#pragma once

#include "Url.h"

/// Whether `item` lies inside of one of the folders that a removal may take things out of. The folders themselves
/// do not, nor do the home folder, its library as a whole and anything of the operating system. Both paths are
/// standardised first; the disk is not asked, and links are not resolved. Any thread.
bool isInsidePermittedArea(const Url &item, const Url &homeDirectory);

/// Whether `item`'s standardised path lies below "/System". Any thread.
bool belongsToSystem(const Url &item);
