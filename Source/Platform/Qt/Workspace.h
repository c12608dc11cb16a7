// The file viewer, asked over the session bus, and the default browser. Main thread only.
#pragma once

#include "Platform/Services.h"

#include <QString>

namespace Vexora {

class QtApplication;

class QtWorkspace : public Workspace {
public:
    /// \param application tells what was pressed, and outlives the workspace.
    explicit QtWorkspace(const QtApplication& application) : application_(application) {}

    /// Reveals the file by the file viewer, or where none answers by the desktop's portal. Without a
    /// file, or without either on the bus, the nearest folder that exists is opened.
    void selectFile(const std::string& path) override;
    void openUrl(const std::string& address) override;

private:
    const QtApplication& application_;
};

/// The folder of a path, or the nearest one above it that exists.
QString nearestFolder(const QString& path);

} // namespace Vexora
