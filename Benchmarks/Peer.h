// What translates texts in the benchmark: the localisation library and its peers, each as it serves
// itself best.
#pragma once

#include <QString>

#include <map>
#include <memory>
#include <string>
#include <string_view>

/// A text, and what every peer has to make of it.
struct Text {
    /// Peers see its characters alone, as those of the literals that a program translates.
    std::string key;
    std::string value;
    /// Whether key and value hold a %d.
    bool hasArgument = false;
    /// The translation with the argument in it.
    std::string expected;
};

/// What stands for every %d.
constexpr int argument = 42;

class Peer {
public:
    Peer() = default;
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    virtual ~Peer() = default;

    /// Makes ready to translate by the texts in a folder.
    virtual void open(const std::string& folder) = 0;

    /// \return the formatted translation, valid until the next call.
    virtual std::string_view translate(const Text& text) = 0;

    /// Translates for a window.
    virtual QString translateForWindow(const Text& text) {
        const std::string_view translation = translate(text);
        return QString::fromUtf8(translation.data(), qsizetype(translation.size()));
    }
};

/// The library under the name "libtr", and those peers that were installed when this was built.
std::map<std::string, std::unique_ptr<Peer>> makePeers();
