// Where one front end is meant to do otherwise than the other. The tests ask this table, so that
// each row is pinned on both sides.
#pragma once

#include <map>
#include <string>

namespace BackendTest {

enum class Habit {
    ReturnPressesAnyFocusedButton,
    TabGoesBackOutOfTheLicense,
    FailureHasItsIconOverTheTitle,
    FitsASmallScreen,
};

struct Difference {
    bool qt;
    bool appKit;
    std::string reason;
};

inline const std::map<Habit, Difference> differences{
    {Habit::ReturnPressesAnyFocusedButton,
     {true, false,
      "On the Mac Space presses the focused control, and Return the default button alone."}},
    {Habit::TabGoesBackOutOfTheLicense,
     {true, false, "GNUstep's scroll view hands the keys back to the text that it shows."}},
    {Habit::FailureHasItsIconOverTheTitle,
     {false, true,
      "The Mac's alerts have their icon over the text; elsewhere it stands before the title."}},
    {Habit::FitsASmallScreen,
     {true, false, "No Mac has a screen of 480 pixels; its definitions have places of their own."}},
};

} // namespace BackendTest
