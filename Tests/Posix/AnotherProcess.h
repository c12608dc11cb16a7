// Checks that change the process they run in.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <functional>

namespace TestSupport {

/// Whether the check holds in a process of its own.
inline bool holdsInAnotherProcess(const std::function<bool()>& check) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(check() ? 0 : 1);
    }
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return status == 0;
}

} // namespace TestSupport
