// Everything the application asks of the system it runs on, handed to each controller when it is
// created. The parts outlive every controller and every block.
#pragma once

#include "Platform/Application.h"
#include "Platform/FileSystem.h"
#include "Platform/Interface.h"
#include "Platform/Processes.h"
#include "Platform/Queues.h"
#include "Platform/Services.h"

namespace Vexora {

struct Platform {
    Application& application;
    InterfaceLoader& interfaces;
    MainQueue& mainQueue;
    BackgroundQueue& backgroundQueue;
    Clock& clock;
    FileSystem& files;
    ProcessLauncher& processes;
    Environment& environment;
    AdministratorScript& administratorScript;
    Workspace& workspace;
    SystemLog& systemLog;
};

} // namespace Vexora
