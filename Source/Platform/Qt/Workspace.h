// The file viewer, asked over the session bus, and the default browser. Main thread only.
#pragma once

#include "Platform/Services.h"

#include <QString>

namespace Vexora {

class QtWorkspace : public Workspace {
public:
    /// Reveals the file. Without a file, or without a file viewer on the bus, the nearest folder
    /// that exists is opened.
    void selectFile(const std::string& path) override;
    void openUrl(const std::string& address) override;
};

/// The folder of a path, or the nearest one above it that exists.
QString nearestFolder(const QString& path);

} // namespace Vexora
