// The methods that only macOS answers, supplied to the toolkit of this machine so that they record
// the calls of the backend. Linking this file into a program is what makes the backend call them.
// Main thread only, except for scripts.
#pragma once

#include "Platform/AppKit/Compatibility.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace AppKitTest {

/// A recogniser of clicks, and what it tells whom.
struct Recognizer {
    NSView* view;
    Vexora::Strong<NSGestureRecognizer> object;
    id target;
    SEL action;
};

/// Everything that was recorded since the last reset.
struct RecordedCalls {
    std::vector<std::pair<NSView*, Vexora::Strong<NSLayoutConstraint>>> constraints;
    std::vector<Recognizer> recognizers;
    std::map<NSView*, std::string> labels;
    std::map<NSView*, std::string> descriptions;
    std::vector<std::string> announcements;
    /// How the user was asked for attention.
    std::vector<NSUInteger> attention;
    std::map<NSView*, std::string> roles;
    std::map<NSView*, bool> elements;
    std::map<NSWindow*, std::string> appearances;
    std::map<NSWindow*, NSUInteger> collections;
    /// The keys of the commands that no menu shows, where they are heard nevertheless.
    std::map<NSMenuItem*, std::string> hiddenCommands;
    /// Sizes and weights of the system fonts that were asked for.
    std::vector<std::pair<double, double>> fonts;
    /// The sources of the scripts that were run.
    std::vector<std::string> scripts;
    /// Whether the next scripts run without an error.
    bool scriptsSucceed = true;
    /// How many of them were given an empty dictionary for errors.
    std::size_t freshErrors = 0;
    /// Whether the user asks for contrast.
    bool contrast = false;
};

RecordedCalls& macCalls();

/// The recognisers of a view.
std::vector<Recognizer> recognizersOf(NSView* view);

/// Does what a recogniser does when it has recognised a click.
void recognize(const Recognizer& recognizer);

} // namespace AppKitTest
