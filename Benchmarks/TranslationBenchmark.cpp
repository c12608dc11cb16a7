// Compares the localisation library with GNU gettext on the program's own texts, and shows how
// loading grows with the size of a strings file. Ends with the ratios; below 1 the library is
// faster.
//
// Needs msgfmt from the Debian package gettext. gettext translates in the locale C.UTF-8 when
// LANGUAGE names a language; that it really does is checked before anything is measured.
#include "kvparser.h"
#include "tr.h"

#include "FileRules.h"
#include "MedianReporter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <numeric>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <libintl.h>
#include <malloc.h>

// Both sides format texts that come from a table.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"

using namespace VXLOCAL;
namespace fs = std::filesystem;

namespace {

/// The benchmark's own, emptied at the start.
const fs::path scratch = SCRATCH_FOLDER;
constexpr const char* stringsFile = "Localizable.strings";
constexpr int repetitions = 9;
/// gettext never forgets a domain, so every measured load takes a new one out of this supply.
constexpr int loadsPerRepetition = 100;
constexpr int supply = repetitions * loadsPerRepetition;
/// What is put behind the program's texts, which need no arguments, to measure texts that do.
constexpr const char* argumentPart = " (%d %%)";
constexpr std::size_t bufferSize = 1000;

using Texts = std::map<std::string, std::string>;

/// What all benchmarks share; set up by prepare() before they run.
struct Setup {
    CheckStrings::Keys identifiers;
    std::vector<std::string> withArgument;
    int loadsOfGettext = 0;
};

Setup* setup = nullptr;

void require(bool condition, const std::string& what) {
    if (!condition) {
        throw std::runtime_error(what);
    }
}

/// Writes a whole file below the benchmark's own folder, and makes the folders on the way to it.
fs::path write(const fs::path& relativePath, const std::string& bytes) {
    const fs::path file = scratch / relativePath;
    fs::create_directories(file.parent_path());
    require(bool(std::ofstream(file, std::ios::binary) << bytes << std::flush),
            "cannot write " + file.string());
    return file;
}

std::string numbered(int number) {
    const std::string digits = std::to_string(number);
    return std::string(6 - digits.size(), '0') + digits;
}

/// The folder of a load, and its domain. gettext keeps folders in rising and domains in falling
/// order in lists that it walks from the front, so named like this each new one is found at once.
std::string loadFolder(int load) {
    return (scratch / numbered(load)).string();
}
std::string loadDomain(int load) {
    return numbered(supply - load);
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char byte : text) {
        result += byte == '"' || byte == '\\' ? "\\" : "";
        result += byte;
    }
    return result + "\"";
}

/// Writes texts for gettext into a folder, as the given domain.
void writeDomain(const fs::path& folder, const std::string& domain, const Texts& texts) {
    std::string po = "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n";
    for (const auto& [key, value] : texts) {
        po += "msgid " + quoted(key) + "\nmsgstr " + quoted(value) + "\n";
    }
    const fs::path source = write(folder / "texts.po", po);
    const fs::path target = scratch / folder / "de/LC_MESSAGES" / (domain + ".mo");
    fs::create_directories(target.parent_path());
    const std::string command = MSGFMT " -o '" + target.string() + "' '" + source.string() + "'";
    require(std::system(command.c_str()) == 0, "msgfmt failed");
}

/// Makes both libraries speak from a folder, and makes sure that they say the same.
void speakFrom(const std::string& folder, const std::string& domain, const Texts& texts) {
    Translator::getInstance()->init(new KVParser(stringsFile), "de", folder, stringsFile);
    bindtextdomain(domain.c_str(), folder.c_str());
    textdomain(domain.c_str());
    for (const auto& [key, value] : texts) {
        require(Translator::getInstance()->getMessage(key) == value, "not translated: " + key);
        require(gettext(key.c_str()) == value, "not translated by gettext: " + key);
    }
}

/// Writes the program's German texts for both libraries: once as they are in the folder "texts",
/// once with an argument in "arguments", and as they are in a folder for each load to be measured.
void prepare() {
    // Every large block comes fresh from the system, as in a program that loads once. Left alone,
    // the allocator would recycle those of up to 32 MB, and files of different sizes could not be
    // compared.
    mallopt(M_MMAP_THRESHOLD, 64 * 1024);

    fs::remove_all(scratch);
    setenv("LANGUAGE", "de", 1);
    require(std::setlocale(LC_ALL, "C.UTF-8") != nullptr, "no locale C.UTF-8");

    setup->identifiers = CheckStrings::readKeys(RESOURCES "/en.lproj/Localizable.strings");
    KVParser german(stringsFile);
    german.setLocaleDir(RESOURCES "/de.lproj");
    german.parse();
    Texts texts;
    Texts withArgument;
    std::string strings;
    for (const std::string& identifier : setup->identifiers) {
        const std::string key = identifier + argumentPart;
        texts[identifier] = german.getMessage(identifier);
        require(texts[identifier] != identifier, "no German text for: " + identifier);
        withArgument[key] = texts[identifier] + argumentPart;
        setup->withArgument.push_back(key);
        strings += "\"" + key + "\" = \"" + withArgument[key] + "\"\n";
    }

    const fs::path& root = scratch;
    writeDomain("texts", "texts", texts);
    fs::copy_file(german.localeFile("de"), root / "texts" / stringsFile);
    writeDomain("arguments", "arguments", withArgument);
    write(fs::path("arguments") / stringsFile, strings);
    for (int load = 0; load < supply; ++load) {
        const fs::path messages = fs::path(loadFolder(load)) / "de/LC_MESSAGES";
        fs::create_directories(messages);
        fs::create_hard_link(root / "texts/de/LC_MESSAGES/texts.mo",
                             messages / (loadDomain(load) + ".mo"));
        fs::create_hard_link(root / "texts" / stringsFile,
                             fs::path(loadFolder(load)) / stringsFile);
    }
    speakFrom((root / "arguments").string(), "arguments", withArgument);
    speakFrom((root / "texts").string(), "texts", texts);
}

/// Has both libraries speak from a folder that prepare() wrote and tested.
void speakFrom(const std::string& name) {
    speakFrom((scratch / name).string(), name, {});
}

void loadOurs(benchmark::State& state) {
    int load = 0;
    for (auto _ : state) {
        Translator::getInstance()->init(new KVParser(stringsFile), "de",
                                        loadFolder(load++ % supply), stringsFile);
        benchmark::DoNotOptimize(
            Translator::getInstance()->getMessage(*setup->identifiers.begin()));
    }
}

void loadGettext(benchmark::State& state) {
    for (auto _ : state) {
        if (setup->loadsOfGettext == supply) {
            state.SkipWithError("no fresh domain left");
            break;
        }
        const int load = setup->loadsOfGettext++;
        const std::string domain = loadDomain(load);
        bindtextdomain(domain.c_str(), loadFolder(load).c_str());
        const char* identifier = setup->identifiers.begin()->c_str();
        if (dgettext(domain.c_str(), identifier) == identifier) {
            state.SkipWithError("gettext loaded nothing");
            break;
        }
    }
}

void translateOurs(benchmark::State& state) {
    speakFrom("texts");
    for (auto _ : state) {
        for (const std::string& identifier : setup->identifiers) {
            benchmark::DoNotOptimize(Translator::getInstance()->tr(identifier.c_str()));
        }
    }
}

void translateGettext(benchmark::State& state) {
    speakFrom("texts");
    std::array<char, bufferSize> buffer;
    for (auto _ : state) {
        for (const std::string& identifier : setup->identifiers) {
            std::snprintf(buffer.data(), buffer.size(), gettext(identifier.c_str()));
            benchmark::DoNotOptimize(buffer);
        }
    }
}

void translateArgumentOurs(benchmark::State& state) {
    speakFrom("arguments");
    for (auto _ : state) {
        for (const std::string& identifier : setup->withArgument) {
            benchmark::DoNotOptimize(Translator::getInstance()->tr(identifier.c_str(), 42));
        }
    }
}

void translateArgumentGettext(benchmark::State& state) {
    speakFrom("arguments");
    std::array<char, bufferSize> buffer;
    for (auto _ : state) {
        for (const std::string& identifier : setup->withArgument) {
            std::snprintf(buffer.data(), buffer.size(), gettext(identifier.c_str()), 42);
            benchmark::DoNotOptimize(buffer);
        }
    }
}

void lookUpOurs(benchmark::State& state) {
    speakFrom("texts");
    for (auto _ : state) {
        for (const std::string& identifier : setup->identifiers) {
            benchmark::DoNotOptimize(Translator::getInstance()->getMessage(identifier));
        }
    }
}

void lookUpGettext(benchmark::State& state) {
    speakFrom("texts");
    for (auto _ : state) {
        for (const std::string& identifier : setup->identifiers) {
            benchmark::DoNotOptimize(gettext(identifier.c_str()));
        }
    }
}

/// Measures how long a new catalogue takes for a strings file of these bytes.
void load(benchmark::State& state, const std::string& bytes) {
    write(fs::path("scaling") / stringsFile, bytes);
    for (auto _ : state) {
        KVParser parser(stringsFile);
        parser.setLocaleDir((scratch / "scaling").string());
        parser.parse();
    }
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void loadEntries(benchmark::State& state) {
    std::vector<std::int64_t> numbers(static_cast<std::size_t>(state.range(0)));
    std::iota(numbers.begin(), numbers.end(), 0);
    std::ranges::shuffle(numbers, std::minstd_rand(1));
    std::string bytes;
    for (const std::int64_t number : numbers) {
        bytes += "\"This is the message with the number " + std::to_string(number) +
                 "\" = \"Das ist die Nachricht mit der Nummer " + std::to_string(number) + "\"\n";
    }
    load(state, bytes);
}

void loadLine(benchmark::State& state) {
    const std::size_t size = static_cast<std::size_t>(state.range(0)) << 20;
    load(state, "\"key\" = \"" + std::string(size, 'x') + "\"\n");
}

/// The line that takes the longest to search: every byte might begin a separator.
void loadLineOfQuotes(benchmark::State& state) {
    load(state, std::string(static_cast<std::size_t>(state.range(0)) << 20, '"'));
}

void repeated(benchmark::internal::Benchmark* benchmark) {
    benchmark->Repetitions(repetitions)->ReportAggregatesOnly();
}

void repeatedLoad(benchmark::internal::Benchmark* benchmark) {
    repeated(benchmark);
    benchmark->Iterations(loadsPerRepetition)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(loadOurs)->Apply(repeatedLoad);
BENCHMARK(loadGettext)->Apply(repeatedLoad);
BENCHMARK(translateOurs)->Apply(repeated);
BENCHMARK(translateGettext)->Apply(repeated);
BENCHMARK(translateArgumentOurs)->Apply(repeated);
BENCHMARK(translateArgumentGettext)->Apply(repeated);
BENCHMARK(lookUpOurs)->Apply(repeated);
BENCHMARK(lookUpGettext)->Apply(repeated);
BENCHMARK(loadEntries)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);
BENCHMARK(loadLine)
    ->RangeMultiplier(4)
    ->Range(1, 64)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);
BENCHMARK(loadLineOfQuotes)
    ->RangeMultiplier(4)
    ->Range(1, 64)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    try {
        Setup shared;
        setup = &shared;
        prepare();
        MedianReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        std::printf(
            "\nThe program's 18 texts, medians of processor time, below 1 ours is faster:\n");
        reporter.printRatio("load: ours/gettext", "loadOurs", "loadGettext");
        reporter.printRatio("translate with formatting: ours/gettext", "translateOurs",
                            "translateGettext");
        reporter.printRatio("the same with an argument: ours/gettext", "translateArgumentOurs",
                            "translateArgumentGettext");
        reporter.printRatio("look-up alone: ours/gettext", "lookUpOurs", "lookUpGettext");
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
