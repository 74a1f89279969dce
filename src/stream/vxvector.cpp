// The vectors that the module shows to its host.
#include "stream/vxvector.h"

template class __attribute__((visibility("default")))
VxVector<int, VxDefaultMemAllocator<int>, VxRefCounter, VxVectorDefaultGrowPolicy>;
