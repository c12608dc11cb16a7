// A program that knows the library by its public headers only. Ends with status 0 when it could
// translate.
#include <kvparser.h>
#include <tr.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

int main() {
    std::string folder =
        (std::filesystem::temp_directory_path() / "vexora-consumer-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        std::cerr << "cannot make " << folder << '\n';
        return EXIT_FAILURE;
    }
    std::ofstream(folder + "/Localizable.strings")
        << "\"Install %d files\" = \"%d Dateien installieren\"\n";

    std::string text;
    try {
        auto* translator = VXLOCAL::Translator::getInstance();
        translator->init(new VXLOCAL::KVParser("Localizable.strings"), "de", folder,
                         "Localizable.strings");
        text = translator->tr("Install %d files", 42);
    } catch (const std::runtime_error& error) {
        std::cerr << error.what();
    }
    std::filesystem::remove_all(folder);

    std::cout << text << '\n';
    return text == "42 Dateien installieren" ? EXIT_SUCCESS : EXIT_FAILURE;
}
