// first_frame COMMAND [ARGUMENT...] starts a program and prints the milliseconds from there until
// the X server has the first frame of the program's window, those for which the program had a
// processor, and its process number. The end of the input ends the program.
//
// It looks from outside, as a client of the same display. The window is one that names the
// program's process. Its frame is there when drawing has covered it all and shows more than one
// colour, which an area that was cleared does not.
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto deadline = std::chrono::seconds(20);

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// The part of a window that has been drawn, as the smallest rectangle round it.
struct Drawn {
    int left = INT16_MAX;
    int top = INT16_MAX;
    int right = 0;
    int bottom = 0;

    void add(const xcb_rectangle_t& area) {
        left = std::min<int>(left, area.x);
        top = std::min<int>(top, area.y);
        right = std::max(right, area.x + area.width);
        bottom = std::max(bottom, area.y + area.height);
    }

    bool covers(const xcb_rectangle_t& window) const {
        return left <= 0 && top <= 0 && right >= window.width && bottom >= window.height;
    }
};

struct Moment {
    Clock::time_point time;
    /// How long the program has had a processor until then.
    double busy;
};

double busyMilliseconds(pid_t process) {
    clockid_t clock = 0;
    timespec busy{};
    if (clock_getcpuclockid(process, &clock) == 0) {
        clock_gettime(clock, &busy);
    }
    return double(busy.tv_sec) * 1e3 + double(busy.tv_nsec) / 1e6;
}

class Display {
public:
    Display() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_) != 0) {
            throw std::runtime_error("there is no display");
        }
        const auto* extension = xcb_get_extension_data(connection_, &xcb_damage_id);
        if (extension == nullptr || extension->present == 0) {
            throw std::runtime_error("the display does not report damage");
        }
        damageNotify_ = extension->first_event + XCB_DAMAGE_NOTIFY;
        const Owned<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
            connection_, xcb_damage_query_version(connection_, 1, 1), nullptr));
        pidAtom_ =
            Owned<xcb_intern_atom_reply_t>(
                xcb_intern_atom_reply(connection_,
                                      xcb_intern_atom(connection_, 0, 11, "_NET_WM_PID"), nullptr))
                ->atom;
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        const Owned<xcb_generic_error_t> error(xcb_request_check(
            connection_, xcb_change_window_attributes_checked(connection_, screen->root,
                                                              XCB_CW_EVENT_MASK, &events)));
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display() { xcb_disconnect(connection_); }

    /// Waits for the first frame of a window of that process; the result is of when it was reported.
    Moment awaitFrame(pid_t process) {
        const Clock::time_point last = Clock::now() + deadline;
        while (Clock::now() < last) {
            siginfo_t ended{};
            waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOHANG | WNOWAIT);
            if (ended.si_pid != 0) {
                throw std::runtime_error("the program ended without a frame");
            }
            pollfd readable{xcb_get_file_descriptor(connection_), POLLIN, 0};
            poll(&readable, 1, 100);
            const Moment now{Clock::now(), busyMilliseconds(process)};
            while (const auto event = Owned<xcb_generic_event_t>(xcb_poll_for_event(connection_))) {
                if (isFirstFrame(*event, process)) {
                    return now;
                }
            }
        }
        throw std::runtime_error("the program shows no frame");
    }

private:
    bool isFirstFrame(const xcb_generic_event_t& event, pid_t process) {
        const int type = event.response_type & 0x7f;
        if (type == XCB_CREATE_NOTIFY) {
            watch(reinterpret_cast<const xcb_create_notify_event_t&>(event).window);
        }
        if (type != damageNotify_) {
            return false;
        }
        const auto& damage = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
        drawn_[damage.drawable].add(damage.area);
        return drawn_[damage.drawable].covers(damage.geometry) &&
               processOf(damage.drawable) == process &&
               showsSomething(damage.drawable, damage.geometry);
    }

    void watch(xcb_window_t window) {
        // What a window showed before is reported too, so that a quick program is not missed.
        const xcb_damage_damage_t damage = xcb_generate_id(connection_);
        xcb_damage_create(connection_, damage, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(connection_);
    }

    pid_t processOf(xcb_window_t window) const {
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection_,
            xcb_get_property(connection_, 0, window, pidAtom_, XCB_ATOM_CARDINAL, 0, 1), nullptr));
        if (reply == nullptr || xcb_get_property_value_length(reply.get()) != 4) {
            return 0;
        }
        return *static_cast<const pid_t*>(xcb_get_property_value(reply.get()));
    }

    bool showsSomething(xcb_window_t window, const xcb_rectangle_t& area) const {
        const Owned<xcb_get_image_reply_t> image(
            xcb_get_image_reply(connection_,
                                xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                                              area.width, area.height, ~0U),
                                nullptr));
        if (image == nullptr) {
            return false;
        }
        const std::span pixels(
            reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get())), image->length);
        return std::ranges::any_of(pixels, [&pixels](std::uint32_t pixel) {
            return ((pixel ^ pixels.front()) & 0xffffffU) != 0;
        });
    }

    xcb_connection_t* connection_;
    int damageNotify_ = 0;
    xcb_atom_t pidAtom_ = XCB_ATOM_NONE;
    std::map<xcb_window_t, Drawn> drawn_;
};

pid_t start(char** command) {
    const pid_t process = fork();
    if (process == 0) {
        execvp(command[0], command);
        std::perror(command[0]);
        _exit(127);
    }
    if (process < 0) {
        throw std::runtime_error("no process can be made");
    }
    return process;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "Usage: first_frame COMMAND [ARGUMENT...]\n";
        return 2;
    }
    pid_t process = 0;
    int status = 0;
    try {
        Display display;
        const Clock::time_point begin = Clock::now();
        process = start(argv + 1);
        const Moment frame = display.awaitFrame(process);
        const std::chrono::duration<double, std::milli> taken = frame.time - begin;
        std::cout << taken.count() << ' ' << frame.busy << ' ' << process << std::endl;
        while (std::cin.get() != EOF) {
        }
    } catch (const std::exception& error) {
        std::cerr << "first_frame: " << error.what() << '\n';
        status = 1;
    }
    if (process > 0) {
        kill(process, SIGTERM);
        waitpid(process, nullptr, 0);
    }
    return status;
}
