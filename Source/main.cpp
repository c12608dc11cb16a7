#include "AppDelegate.h"
#include "Platform/Backend.h"
#include "ViewController.h"

int main(int argc, char** argv) {
    Vexora::Backend::endWellAlways();
    Vexora::Backend backend(argc, argv);
    const auto content = std::make_shared<Vexora::ViewController>(backend.platform());
    Vexora::AppDelegate delegate(backend.platform());
    return backend.run(*content->view(), [&delegate] { delegate.applicationDidFinishLaunching(); });
}
