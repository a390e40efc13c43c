#pragma once

#include <functional>
#include <memory>

class QGuiApplication;

namespace kestro {

/// Makes the application object on the display that the environment names, ready for movies and windows of
/// our own. Where no display can be reached the process says so in one line on standard error and ends with a
/// failure: Qt would abort it, and gives no other way out. Never null; once a process; main thread.
/// Tested by test_display.
[[nodiscard]] std::unique_ptr<QGuiApplication> startGui();

/// Makes an application object of a kind of its own of what it is given, which lives as long as the process.
using ApplicationMaker = std::function<std::unique_ptr<QGuiApplication>(int& count, char** words)>;
/// The same with an application object that `maker` makes.
[[nodiscard]] std::unique_ptr<QGuiApplication> startGuiWith(const ApplicationMaker& maker);

/// The same for drawing in an X11 window that another program hands over, point by pixel, whatever window
/// system and scale the environment asks for. The process is not for a session to start anew.
[[nodiscard]] std::unique_ptr<QGuiApplication> startGuiInGivenWindow();

/// The same without any display: everything is drawn in memory.
[[nodiscard]] std::unique_ptr<QGuiApplication> startGuiOffScreen();

} // namespace kestro
