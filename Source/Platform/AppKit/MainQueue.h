// The main queue over the toolkit's event loop.
#pragma once

#include "Platform/Queues.h"

namespace Vexora {

class AppKitMainQueue : public MainQueue {
public:
    void async(std::function<void()> block) override;
    void after(double seconds, std::function<void()> block) override;
};

} // namespace Vexora
