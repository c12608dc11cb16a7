// What the fuzzers share: the way in for an input, the way out for a finding, and files in memory.
#pragma once

#include <string>
#include <string_view>

namespace Fuzzing {

/// Defined by each fuzzer: feeds any bytes to what it tries.
void tryInput(std::string input);

/// Cuts a part off an input.
/// \param input loses the part, and the byte 1 behind it.
/// \return what stands before the first byte 1; everything when there is none.
std::string takePart(std::string& input);

/// Ends the program when something does not hold, so that the fuzzer keeps the input.
/// \param what the complaint, and `about` the text that it is about.
void require(bool condition, const char* what, const std::string& about);

/// A file of these bytes that is on no disk.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view bytes);
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile();

    static const char* folder() { return "/proc/self/fd"; }
    std::string name() const { return std::to_string(descriptor_); }
    std::string path() const { return folder() + ("/" + name()); }

private:
    int descriptor_;
};

} // namespace Fuzzing
