#include "Fuzzing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace Fuzzing {

std::string takePart(std::string& input) {
    const std::size_t end = std::min(input.find('\1'), input.size());
    std::string part = input.substr(0, end);
    input.erase(0, end + 1);
    return part;
}

void require(bool condition, const char* what, const std::string& about) {
    if (!condition) {
        std::cerr << what << ": " << about << '\n';
        std::abort();
    }
}

MemoryFile::MemoryFile(std::string_view bytes) : descriptor_(memfd_create("input", MFD_CLOEXEC)) {
    require(descriptor_ >= 0, "no file in memory", "");
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
        require(written > 0, "cannot write", "");
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

MemoryFile::~MemoryFile() {
    close(descriptor_);
}

} // namespace Fuzzing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzzing::tryInput({reinterpret_cast<const char*>(data), size});
    return 0;
}
