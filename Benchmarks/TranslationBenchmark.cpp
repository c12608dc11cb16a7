// translation_benchmark peers                     names the peers that were installed
// translation_benchmark write COUNT FOLDER        writes that many texts in every form that a peer
//                                                 reads or compiles, in the order of their keys
//                                                 as the first of them writes these
// translation_benchmark PEER COUNT FOLDER CALLS   opens and checks them with one peer, and prints how
//                                                 many nanoseconds of a processor it takes to open
//                                                 them and translate one, to translate one more of
//                                                 that many in random order, and to do so for a
//                                                 window
#include "Peer.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <span>
#include <stdexcept>
#include <vector>

namespace {

using Random = std::minstd_rand;

constexpr std::size_t wordsPerText = 5;

constexpr std::array words{"the",     "archive", "plug-in", "folder",  "cannot", "install",
                           "version", "of",      "browser", "writing", "newer",  "removed"};
constexpr std::array translations{"Die",     "Größe",       "Dateien", "Ordner",
                                  "für",     "nicht",       "geprüft", "über",
                                  "während", "Einrichtung", "neuer",   "gelöscht"};

template <std::size_t Count>
std::string sentence(const std::array<const char*, Count>& vocabulary, Random& random) {
    std::string result;
    for (std::size_t count = 0; count < wordsPerText; ++count) {
        result += vocabulary[random() % Count] + std::string(" ");
    }
    return result;
}

/// One in four has an argument, and one in five an escape in its key or in its value.
std::vector<Text> makeTexts(std::size_t count) {
    Random random(1);
    std::vector<Text> texts(count);
    for (std::size_t index = 0; index < count; ++index) {
        Text& text = texts[index];
        const std::string number = std::to_string(index);
        text.key = sentence(words, random);
        text.value = sentence(translations, random);
        text.hasArgument = index % 4 == 1;
        text.key += text.hasArgument ? "%d of " : "all of ";
        text.value += text.hasArgument ? "%d von " : "alle ";
        text.key += index % 10 == 2 ? '"' + number + "\" here" : number;
        text.value += index % 10 == 7 ? '\n' + number : number;
        text.expected = text.value;
        if (text.hasArgument) {
            text.expected.replace(text.expected.find("%d"), 2, std::to_string(argument));
        }
    }
    return texts;
}

/// A text between quotes, as every format here writes one.
std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char byte : text) {
        if (byte == '\n') {
            result += "\\n";
        } else {
            result += byte == '"' ? "\\\"" : std::string(1, byte);
        }
    }
    return result + '"';
}

/// Writes a file of texts, with something in front of each key, between key and value, and behind.
class Form {
public:
    Form(const std::string& path, const std::string& head, std::array<const char*, 3> around)
        : file_(path, std::ios::binary), around_(around) {
        file_ << head;
    }

    void add(const std::string& key, const std::string& value) {
        file_ << around_[0] << quoted(key) << around_[1] << quoted(value) << around_[2];
    }

    void finish(const char* tail) {
        if (!(file_ << tail << std::flush)) {
            throw std::runtime_error("cannot write the texts");
        }
    }

private:
    std::ofstream file_;
    std::array<const char*, 3> around_;
};

void write(std::vector<Text> texts, const std::string& folder) {
    const std::string head = "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n";
    const std::array around{"msgid ", "\nmsgstr ", "\n"};
    Form strings(folder + "/texts.strings", "", {"", " = ", "\n"});
    Form catalogue(folder + "/texts.po", head, around);
    Form json(folder + "/texts.json", "{\n", {"", ": ", ",\n"});
    std::ranges::sort(texts, {}, [](const Text& text) { return quoted(text.key); });
    for (const Text& text : texts) {
        for (Form* form : {&strings, &catalogue, &json}) {
            form->add(text.key, text.value);
        }
    }
    strings.finish("");
    catalogue.finish("");
    json.finish("\"\": \"\"\n}\n");

    Form catalogueOfQt(folder + "/qt.po", head, around);
    Form bundle(folder + "/de.txt", "de {\n", {"", " { ", " }\n"});
    // The bundle's compiler takes for ever over any other order.
    std::ranges::reverse(texts);
    for (Text& text : texts) {
        bundle.add(text.key, text.value);
        if (text.hasArgument) {
            text.value.replace(text.value.find("%d"), 2, "%1");
        }
        catalogueOfQt.add(text.key, text.value);
    }
    catalogueOfQt.finish("");
    bundle.finish("}\n");
}

/// How many nanoseconds the process has had a processor, which other processes hardly change.
double busyNanoseconds() {
    timespec busy{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &busy);
    return double(busy.tv_sec) * 1e9 + double(busy.tv_nsec);
}

void require(bool right, const Text& text) {
    if (!right) {
        throw std::runtime_error("wrong translation of: " + text.key);
    }
}

/// How long each of these takes, once the same have been gone through for nothing.
template <class Use>
double measure(const std::vector<const Text*>& order, const Use& use) {
    std::size_t sum = 0;
    double begin = 0.0;
    for (int round = 0; round < 2; ++round) {
        begin = busyNanoseconds();
        for (const Text* text : order) {
            sum += std::size_t(use(*text).size());
        }
    }
    const double taken = (busyNanoseconds() - begin) / double(order.size());
    if (sum == 0) {
        throw std::runtime_error("nothing was translated");
    }
    return taken;
}

void measure(Peer& peer, const std::vector<Text>& texts, const std::string& folder,
             std::size_t calls) {
    const double begin = busyNanoseconds();
    peer.open(folder);
    const bool right = peer.translate(texts.front()) == texts.front().expected;
    const double opened = busyNanoseconds() - begin;

    require(right, texts.front());
    for (const Text& text : texts) {
        require(peer.translate(text) == text.expected, text);
        require(peer.translateForWindow(text).toStdString() == text.expected, text);
    }

    Random random(2);
    std::vector<const Text*> order(calls);
    for (const Text*& text : order) {
        text = &texts[random() % texts.size()];
    }
    const double translated =
        measure(order, [&peer](const Text& text) { return peer.translate(text); });
    const double shown =
        measure(order, [&peer](const Text& text) { return peer.translateForWindow(text); });
    std::cout << opened << ' ' << translated << ' ' << shown << '\n';
}

void run(std::span<char*> arguments) {
    auto peers = makePeers();
    const std::string what = arguments.size() > 1 ? arguments[1] : "";
    if (what == "peers") {
        for (const auto& [name, peer] : peers) {
            std::cout << name << '\n';
        }
        return;
    }
    if (arguments.size() != (what == "write" ? 4 : 5)) {
        throw std::runtime_error(
            "Usage: translation_benchmark peers | write COUNT FOLDER | PEER COUNT FOLDER CALLS");
    }
    const std::size_t count = std::stoul(arguments[2]);
    if (what == "write") {
        write(makeTexts(count), arguments[3]);
    } else {
        measure(*peers.at(what), makeTexts(count), arguments[3], std::stoul(arguments[4]));
    }
}

} // namespace

int main(int argc, char** argv) {
    try {
        run({argv, std::size_t(argc)});
    } catch (const std::exception& error) {
        std::cerr << "translation_benchmark: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
