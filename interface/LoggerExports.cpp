#include "include/VelaAgent.h"
#include "log/ILog.h"

using namespace vela;

void InitLogger(const wchar_t* directory) {
    if (directory == nullptr) {
        // A host that could not name a directory has no use for a file in some other one.
        GetLogger()->Log(kLogWarning, "InitLogger",
                         "InitLogger failed, directory is null pointer.");
        return;
    }
    GetLogger()->Initialize(directory);
}

void UnInitLogger() { GetLogger()->UnInitialize(); }
