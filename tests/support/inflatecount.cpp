// Each function of that name counts and hands on to zlib's.
#include "tests/support/inflatecount.h"

#include "refhost/core/dynamicsymbol.h"

#include <atomic>

#include <dlfcn.h>
#include <zlib.h>

namespace {

std::atomic<long> calls{0};

template<typename Function>
Function* next(const char* name)
{
    ++calls;
    return quelhost::functionNamed<Function*>(RTLD_NEXT, name);
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) int inflateInit_(z_streamp stream, const char* version,
                                                        int size)
{
    return next<int(z_streamp, const char*, int)>("inflateInit_")(stream, version, size);
}

__attribute__((visibility("default"))) int inflateInit2_(z_streamp stream, int bits,
                                                         const char* version, int size)
{
    return next<int(z_streamp, int, const char*, int)>("inflateInit2_")(stream, bits, version,
                                                                        size);
}

__attribute__((visibility("default"))) int inflate(z_streamp stream, int flush)
{
    return next<int(z_streamp, int)>("inflate")(stream, flush);
}

} // extern "C"

namespace testsupport {

long inflateCalls()
{
    return calls;
}

} // namespace testsupport
