// Any operations on two byte streams, against the model of them.
//
// The input is bytes: the two streams, then steps until the end. A byte names a size: itself up to
// 191, and above that one at the edges of the pieces that bytes are moved in, or far away.
#include "fuzz/support/broken.h"
#include "fuzz/support/fuzzinput.h"

#include "tests/stream/streampair.h"
#include "tests/stream/streamside.h"

#include "host/errors.h"

#include <array>

using fuzzing::FuzzInput;
using fuzzing::mustHold;
using streams::ModelStream;
using streams::Side;
using streams::Step;

namespace {

constexpr unsigned int kUnlimited = 0xFFFFFFFFU;
// A store is short of room from here on: writes reach far, and a gap is filled with zeros.
constexpr unsigned long kLongest = 1UL << 16;

unsigned long sizeOf(unsigned int byte)
{
    constexpr unsigned int firstEdge = 192;
    constexpr std::array<unsigned long, 15> edges{1023, 1024, 1025, 2047, 2048, 2049, 4095, 4096,
                                                  4097, 8191, 8192, 8193, 300,  5000, 20000};
    return byte < firstEdge ? byte : edges[(byte - firstEdge) % edges.size()];
}

unsigned long farAway(unsigned int byte)
{
    return 0xFFFFFFFFFFFFFFFEUL - byte % 32;
}

ModelStream streamOf(FuzzInput& input)
{
    ModelStream model;
    const unsigned int weakness = input.byte();
    model.bytes = streams::pattern(sizeOf(input.byte()), weakness);
    const unsigned int position = input.byte();
    model.position = (weakness & 1U) != 0 ? farAway(position) : sizeOf(position);
    model.lengthLimit = (weakness & 2U) != 0 ? model.bytes.size() + sizeOf(input.byte()) : kLongest;
    const auto limitOf = [&](unsigned int bit) {
        return (weakness & bit) != 0 ? static_cast<unsigned int>(sizeOf(input.byte())) : kUnlimited;
    };
    model.readLimit = limitOf(4);
    model.writeLimit = limitOf(8);
    if ((weakness & 16U) != 0) {
        const unsigned int refused = input.byte();
        for (int seek = 0; seek < 8; ++seek) {
            if ((refused & (1U << seek)) != 0)
                model.refusedSeeks.insert(seek + 1);
        }
    }
    return model;
}

// A step, and which of the streams does it with which.
struct Order
{
    Step step;
    unsigned int self = 0;
    unsigned int other = 0;
};

// Megabytes take their time: one transfer of an input may have as many.
Order orderOf(FuzzInput& input, bool& mayBeLarge)
{
    constexpr unsigned long mebibyte = 1UL << 20;
    const unsigned int what = input.byte();
    const unsigned int first = input.byte();
    const unsigned int second = input.byte();
    Order order{{static_cast<Step::Kind>(what % 8), sizeOf(first), sizeOf(second)},
                (what >> 3) & 1U,
                (what >> 4) & 1U};
    const bool isCopy = order.step.kind == Step::CopyFrom || order.step.kind == Step::CopyTo;
    if ((what >> 5) == 7 && isCopy) {
        order.step.first = farAway(first);
        order.step.second = order.step.first - second % 32;
    } else if ((what >> 5) == 7 && order.step.kind == Step::Seek) {
        order.step.first = farAway(first);
    } else if (what >= 252 && first == 'M' && mayBeLarge) {
        order.step.first = mebibyte - 1 + second % 4;
        mayBeLarge = false;
    }
    return order;
}

} // namespace

// The crash recorder of a host that keeps none.
QuelCrashRecorder* quelGetCrashRecorder()
{
    return nullptr;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    streams::Trace trace;
    const ModelStream first = streamOf(input);
    const ModelStream second = streamOf(input);
    std::array<Side, 2> sides{streams::memorySide('A', first, trace),
                              streams::memorySide('B', second, trace)};
    bool mayBeLarge = true;
    while (!input.isAtEnd()) {
        const Order order = orderOf(input, mayBeLarge);
        const std::string difference =
            streams::stepDifference(order.step, sides[order.self], sides[order.other], trace);
        if (!difference.empty())
            std::fprintf(stderr, "%s differs in its %s\n", streams::shown(order.step).c_str(),
                         difference.c_str());
        mustHold(difference.empty(), "a stream does what its model does");
    }
    return 0;
}
