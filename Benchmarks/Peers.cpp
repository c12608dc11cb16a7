// All peers. gettext and Boost.Locale read one file, and so does Qt's translator in its own format;
// the two loaders read text into a hash map, as programs without a library do.
#include "Peer.h"

#include "kvparser.h"
#include "tr.h"

#include <QTranslator>

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <unordered_map>

#include <libintl.h>

#ifdef HAVE_BOOST_LOCALE
#include <boost/locale/gnu_gettext.hpp>
#include <boost/locale/message.hpp>
#endif
#ifdef HAVE_ICU
#include <unicode/ures.h>
#endif
#ifdef HAVE_SIMDJSON
#include <simdjson.h>
#endif

// All of them format texts that come from a table.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"

namespace {

class Library : public Peer {
public:
    void open(const std::string& folder) override {
        translator_.init(new VXLOCAL::KVParser("texts.strings"), "de", folder, "texts.strings");
    }

    std::string_view translate(const Text& text) override {
        last_ = translator_.tr(text.key.c_str(), argument);
        return last_;
    }

    QString translateForWindow(const Text& text) override {
        return QString::fromStdString(translator_.tr(text.key.c_str(), argument));
    }

private:
    VXLOCAL::Translator& translator_ = *VXLOCAL::Translator::getInstance();
    std::string last_;
};

/// Qt's own way to write an argument is %1.
class QtTranslator : public Peer {
public:
    void open(const std::string& folder) override {
        if (!translator_.load(QString::fromStdString(folder + "/texts.qm"))) {
            throw std::runtime_error("Qt reads no texts");
        }
    }

    std::string_view translate(const Text& text) override {
        last_ = translateForWindow(text).toUtf8();
        return {last_.data(), std::size_t(last_.size())};
    }

    QString translateForWindow(const Text& text) override {
        const QString translation = translator_.translate("", text.key.c_str());
        return text.hasArgument ? translation.arg(argument) : translation;
    }

private:
    QTranslator translator_;
    QByteArray last_;
};

/// Puts the argument in by printf's rules.
class PrintfPeer : public Peer {
protected:
    std::string_view format(const char* translation) {
        const int size = std::snprintf(buffer_.data(), buffer_.size(), translation, argument);
        return {buffer_.data(), std::size_t(size)};
    }

private:
    std::array<char, 1000> buffer_;
};

/// Translates in a locale that is not C.UTF-8, into the language that LANGUAGE names.
class Gettext : public PrintfPeer {
public:
    Gettext() {
        setenv("LANGUAGE", "de", 1);
        // Where there is no such locale, no text will be right.
        std::setlocale(LC_ALL, "de_DE");
    }

    void open(const std::string& folder) override {
        bindtextdomain("texts", folder.c_str());
        textdomain("texts");
    }

    std::string_view translate(const Text& text) override {
        return format(gettext(text.key.c_str()));
    }
};

#ifdef HAVE_BOOST_LOCALE
class BoostLocale : public PrintfPeer {
public:
    void open(const std::string& folder) override {
        namespace messages = boost::locale::gnu_gettext;
        messages::messages_info info;
        info.language = std::string("de");
        info.encoding = "UTF-8";
        info.domains.push_back(messages::messages_info::domain("texts"));
        info.paths.push_back(folder);
        locale_ = std::locale(std::locale::classic(), messages::create_messages_facet<char>(info));
    }

    std::string_view translate(const Text& text) override {
        return format(boost::locale::gettext(text.key.c_str(), locale_).c_str());
    }

private:
    std::locale locale_;
};
#endif

#ifdef HAVE_ICU
class IcuBundle : public PrintfPeer {
public:
    void open(const std::string& folder) override {
        bundle_.reset(ures_openDirect(folder.c_str(), "de", &status_));
    }

    std::string_view translate(const Text& text) override {
        auto size = std::int32_t(translation_.size());
        const char* translation = ures_getUTF8StringByKey(
            bundle_.get(), text.key.c_str(), translation_.data(), &size, false, &status_);
        return format(U_SUCCESS(status_) ? translation : u_errorName(status_));
    }

private:
    struct Close {
        void operator()(UResourceBundle* bundle) const { ures_close(bundle); }
    };

    UErrorCode status_ = U_ZERO_ERROR;
    std::unique_ptr<UResourceBundle, Close> bundle_;
    std::array<char, 1000> translation_;
};
#endif

/// What a loader fills.
class MapPeer : public PrintfPeer {
public:
    std::string_view translate(const Text& text) override {
        const auto found = texts_.find(std::string_view(text.key.c_str()));
        return format((found == texts_.end() ? text.key : found->second).c_str());
    }

protected:
    /// Looks up without a copy of the key. Tables keep the hashes of one that may throw.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const {
            return std::hash<std::string_view>()(key);
        }
    };
    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> texts_;
};

class MapLoader : public MapPeer {
public:
    void open(const std::string& folder) override {
        std::ifstream file(folder + "/texts.strings");
        const std::string separator = "\" = \"";
        for (std::string line; std::getline(file, line);) {
            const std::size_t middle = line.find(separator);
            if (middle != std::string::npos) {
                const std::size_t value = middle + separator.size();
                texts_[unescaped({line.data() + 1, middle - 1})] =
                    unescaped({line.data() + value, line.size() - value - 1});
            }
        }
    }

private:
    static std::string unescaped(std::string_view text) {
        std::string result;
        result.reserve(text.size());
        for (std::size_t index = 0; index < text.size(); ++index) {
            const bool escape = text[index] == '\\' && index + 1 < text.size();
            index += escape ? 1 : 0;
            result += escape && text[index] == 'n' ? '\n' : text[index];
        }
        return result;
    }
};

#ifdef HAVE_SIMDJSON
class SimdjsonLoader : public MapPeer {
public:
    void open(const std::string& folder) override {
        const simdjson::padded_string json =
            simdjson::padded_string::load(folder + "/texts.json").value();
        simdjson::ondemand::parser parser;
        simdjson::ondemand::document document = parser.iterate(json).value();
        for (auto field : document.get_object()) {
            const std::string_view key = field.unescaped_key();
            const std::string_view value = field.value().get_string();
            texts_.emplace(key, value);
        }
    }
};
#endif

} // namespace

std::map<std::string, std::unique_ptr<Peer>> makePeers() {
    std::map<std::string, std::unique_ptr<Peer>> peers;
    peers["libtr"] = std::make_unique<Library>();
    peers["Qt translator"] = std::make_unique<QtTranslator>();
    peers["gettext"] = std::make_unique<Gettext>();
    peers["hash map loader"] = std::make_unique<MapLoader>();
#ifdef HAVE_BOOST_LOCALE
    peers["Boost.Locale"] = std::make_unique<BoostLocale>();
#endif
#ifdef HAVE_ICU
    peers["ICU bundle"] = std::make_unique<IcuBundle>();
#endif
#ifdef HAVE_SIMDJSON
    peers["simdjson loader"] = std::make_unique<SimdjsonLoader>();
#endif
    return peers;
}
