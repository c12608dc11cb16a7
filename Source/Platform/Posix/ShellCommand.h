// Whether a shell reads a command line as the one program that it is meant to start. Any thread.
#pragma once

#include "Platform/Posix/ProcessLauncher.h"

#include <optional>
#include <string>
#include <vector>

namespace Vexora {

/// The variables, each as NAME=VALUE, with which a command line is read: in every other environment
/// a shell may take its bytes for other characters, or have other options.
std::vector<std::string> shellEnvironment();

/// The program in a line that is its absolute path, with a backslash before each blank, and the one
/// argument true. Nothing for any other line, and for one with a character that can make a shell do
/// something, or end a word, wherever it stands.
std::optional<std::string> programOfShellCommand(const std::string& line);

/// Has a shell read a line, without running it, in shellEnvironment.
///
/// A path with * or ? or [] is a pattern, and what it matches may change until the line runs. So it must
/// match nothing but itself, in folders that belong to this user or to root, that nobody else may
/// write to, and that this user may read: what root sees there is then the same, and stays so unless
/// one of the two adds a name. Who may exchange a folder further up, or the program itself, is not
/// looked at.
///
/// \param shell the path of a POSIX shell, the very one that is going to run the line.
/// \return whether the line starts exactly programOfShellCommand with the one argument true.
bool shellStartsItsProgramAlone(PosixProcessLauncher& processes, const std::string& shell,
                                const std::string& line);

} // namespace Vexora
