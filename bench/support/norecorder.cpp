// What a host's error objects need of a host: here it has no crash recorder.
#include "host/errors.h"

QuelCrashRecorder* quelGetCrashRecorder()
{
    return nullptr;
}
