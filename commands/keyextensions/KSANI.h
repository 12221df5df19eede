// KSANI as another command sees it: an edit of a category in EXCCS frees the additional numbers that use it.
#pragma once

#include "script/Module.h"

namespace cordboard {

extern const Module KSANI;

}  // namespace cordboard
