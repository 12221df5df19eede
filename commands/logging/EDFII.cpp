// EDFII: names of files that external devices take.

#include "script/Module.h"
#include "shared/UsedFiles.h"

namespace cordboard {

extern const Module EDFII{
    .SetInfo = AddFile,
    .EditInfo = EditFile,
    .DeleteInfo = DeleteFile,
};

}  // namespace cordboard
