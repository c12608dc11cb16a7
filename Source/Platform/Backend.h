// Everything the application runs on, made by the one backend that the program is built with.
// Created first and on the main thread; it lives as long as the process.
#pragma once

#include "Platform/Platform.h"

#include <functional>
#include <memory>

namespace Vexora {

class Backend {
public:
    /// For the program alone, before its backend: the process ends with status 0 also where the toolkit
    /// ends it, because the display is missing or goes away.
    static void endWellAlways();

    /// Connects to the desktop. Without one the process ends with the toolkit's message, and with
    /// one of ours and status 0 where the system does not tell where the program is.
    /// \param argc how many arguments the program has, its name included.
    /// \param argv the arguments, of which the backend takes the name alone: the program has no
    /// options. They outlive the backend.
    Backend(int argc, char** argv);
    ~Backend();

    Platform& platform();

    /// Shows the main window with that content and runs the event loop.
    /// \param didFinishLaunching called once, right after the window has been shown.
    /// \return the event loop's status.
    int run(View& content, const std::function<void()>& didFinishLaunching);

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace Vexora
