// The identifiers of all messages that the program shows, for whatever goes through them one by one.
#pragma once

#include <array>
#include <string_view>

namespace TestSupport {

inline constexpr std::array<std::string_view, 18> messageIdentifiers = {
    "A system-wide installation already exists. Removing or upgrading requires "
    "administrator-level access.",
    "Ondrel Vexora Lumiq is already up to date.",
    "A newer version of Ondrel Vexora Lumiq is installed on your system. Installation terminated.",
    "Pre-installation steps failed.",
    "Failed to extract Ondrel Vexora Lumiq.",
    "Failed to copy Ondrel Vexora Lumiq Web plugin.",
    "Post-installation steps failed.",
    "Open logs",
    "Ondrel Vexora Lumiq Setup",
    "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.",
    "To install Ondrel Vexora Lumiq, click <b>Start</b>.",
    "Start",
    "License Agreement",
    "Go back",
    "Installing <b>Ondrel Vexora Lumiq</b>...",
    "Installation completed!",
    "Close",
    "Installation failed",
};

} // namespace TestSupport
