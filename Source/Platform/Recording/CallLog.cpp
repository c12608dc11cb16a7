#include "Platform/Recording/CallLog.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace Vexora::Recording {

void CallLog::add(std::string line) {
    const std::lock_guard lock(mutex_);
    if (!ended_) {
        lines_.push_back(std::move(line));
    }
}

void CallLog::end() {
    const std::lock_guard lock(mutex_);
    ended_ = true;
}

void CallLog::clear() {
    const std::lock_guard lock(mutex_);
    lines_.clear();
}

Lines CallLog::lines() const {
    const std::lock_guard lock(mutex_);
    return lines_;
}

Lines CallLog::beginningWith(const std::string& start) const {
    const std::lock_guard lock(mutex_);
    Lines found;
    std::copy_if(lines_.begin(), lines_.end(), std::back_inserter(found),
                 [&start](const std::string& line) { return line.starts_with(start); });
    return found;
}

std::size_t CallLog::count(const std::string& line) const {
    const std::lock_guard lock(mutex_);
    return static_cast<std::size_t>(std::ranges::count(lines_, line));
}

std::size_t CallLog::positionOf(const std::string& line) const {
    const std::lock_guard lock(mutex_);
    const auto found = std::ranges::find(lines_, line);
    if (found == lines_.end()) {
        throw std::out_of_range("never called: " + line);
    }
    return static_cast<std::size_t>(found - lines_.begin());
}

std::string written(double number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

std::string written(bool flag) {
    return flag ? "true" : "false";
}

} // namespace Vexora::Recording
