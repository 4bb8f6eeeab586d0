#pragma once

#include "Url.h"

#include <QByteArray>

class BundleBudget;
class FileSystem;

/// The picture that stands for the bundle at `bundle`, as .icns or .png: the one that its information names, else
/// a loose one of the usual name. Empty when there is none, or only in a compiled catalog, or when
/// it costs more than `budget` grants. Blocks; safe to call
/// from any thread.
QByteArray bundlePicture(const FileSystem &fileSystem, const Url &bundle, BundleBudget &budget);
