// The least that a window on wxWidgets costs.
#include <wx/wx.h>

class BareApplication : public wxApp {
public:
    bool OnInit() override {
        auto* window = new wxFrame(nullptr, wxID_ANY, wxEmptyString, wxDefaultPosition, {640, 580});
        new wxStaticText(window, wxID_ANY, "A window with one line of text.");
        return window->Show();
    }
};

wxIMPLEMENT_APP(BareApplication);
