// The file viewer and the default browser. Main thread only.
#pragma once

#include "Platform/Services.h"

namespace Vexora {

class AppKitWorkspace : public Workspace {
public:
    void selectFile(const std::string& path) override;
    void openUrl(const std::string& address) override;
};

} // namespace Vexora
