// The front end that is built, as its adapter shows it.
#pragma once

#ifdef __OBJC__
#include "Backend/AppKitFrontEnd.h"
#else
#include "Backend/QtFrontEnd.h"
#endif
