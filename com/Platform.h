// The platform's headers, included in one way everywhere.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// After windows.h.
#include <dispex.h>
#include <oleauto.h>
