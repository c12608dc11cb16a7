// Where the process runs and for whom, as environment variables, the user database and the place of
// the executable tell it. Any thread, as long as nobody changes the environment.
#pragma once

#include "Platform/Services.h"

namespace Vexora {

/// HOME when it is an absolute path, otherwise the home directory in the user database, without
/// trailing slashes. For the root folder that is the empty string, so that "/Library" can follow
/// directly; also when there is no home directory at all.
std::string posixHomeDirectory();

/// The first of LC_ALL, LC_MESSAGES and LANG that is set and not empty, without encoding and
/// modifier. "C", "POSIX" and none of them count as "en_US".
std::string posixLocaleIdentifier();

/// Where the system's link to an executable leads. \throws std::system_error when the system does not
/// tell, for the path is too long, for example.
std::string executableBehind(const std::string& link);

/// The folder "Resources" beside the given executable, whose path is absolute and free of symbolic
/// links.
std::string resourcePathBeside(const std::string& executablePath);

/// The folder "Resources" beside the running executable, found through its real path wherever it is
/// now. \throws std::system_error when the system does not tell where the executable is.
std::string posixResourcePath();

/// The three of them as the seam needs them.
class PosixEnvironment final : public Environment {
public:
    std::string homeDirectory() override { return posixHomeDirectory(); }
    std::string resourcePath() override { return posixResourcePath(); }
    std::string localeIdentifier() override { return posixLocaleIdentifier(); }
};

} // namespace Vexora
