// In a file of its own, since the standard streams take memory in every program that they are in.
#include "trtools.h"

#include <iostream>

namespace VXLOCAL::TRTools {

void printBytes(const std::string& text) {
    std::cout << "Printing bytes of: " << text << '\n' << std::flush;
    for (const char byte : text) {
        std::cout << std::hex << byte << '\n' << std::flush;
    }
}

} // namespace VXLOCAL::TRTools
