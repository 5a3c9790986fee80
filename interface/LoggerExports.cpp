#include "include/VelaAgent.h"
#include "log/ILog.h"

using namespace vela;

void InitLogger(const wchar_t* directory) {
    if (directory == nullptr) {
        // There is no default directory: the host would not look for the file there.
        GetLogger()->Log(kLogWarning, "InitLogger",
                         "InitLogger failed, directory is null pointer.");
        return;
    }
    GetLogger()->Initialize(directory);
}

void UnInitLogger() { GetLogger()->UnInitialize(); }
