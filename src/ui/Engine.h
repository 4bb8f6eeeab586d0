#pragma once

#include <memory>

class QQmlApplicationEngine;

/// An engine for windows of the program, with what all of them draw with; the application is dressed for them. Made on
/// the main thread after the QGuiApplication. Leaves no files behind.
std::unique_ptr<QQmlApplicationEngine> makeEngine();
