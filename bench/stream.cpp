// Copies and transfers between byte streams in memory, beside loops by hand.
#include "bench/support/ratios.h"

#include "tests/support/memorystore.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

using streams::Bytes;
using streams::MemoryStore;

namespace {

constexpr unsigned int kSize = 64U << 20;
constexpr unsigned long kCopyPiece = 4096;
constexpr unsigned long kTransferPiece = 1048576;

Bytes pattern()
{
    Bytes bytes(kSize);
    for (unsigned long i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(i % 251);
    return bytes;
}

// What both kinds of work have in common: it moves everything, and everything must arrive.
template<typename Move>
void measure(benchmark::State& state, const Bytes& source, const Bytes& target, const Move& move)
{
    for (auto _ : state) {
        move();
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * kSize);
    if (source != target)
        state.SkipWithError("the target is not as the source");
}

// The work of the streams. Their length is there from the start, so that nothing grows.
ratios::Work betweenStreams(void (*move)(MemoryStore& source, MemoryStore& target))
{
    return [move](benchmark::State& state) {
        MemoryStore source(pattern());
        MemoryStore target{Bytes(kSize)};
        measure(state, source.bytes(), target.bytes(), [&] {
            source.seek(0, VxStreamBuf::kFromStart);
            target.seek(0, VxStreamBuf::kFromStart);
            move(source, target);
        });
    };
}

// The same two copies of each piece without streams: of a size that only the run tells, as in a
// store, since the compiler knows another way to copy where it sees the size.
void moveByHand(const Bytes& source, Bytes& target, unsigned char* staging, unsigned long room)
{
    benchmark::DoNotOptimize(room);
    for (unsigned long done = 0; done < source.size(); done += room) {
        const unsigned long piece = std::min(room, source.size() - done);
        std::memcpy(staging, source.data() + done, piece);
        benchmark::ClobberMemory();
        std::memcpy(target.data() + done, staging, piece);
    }
}

void copyByHand(benchmark::State& state)
{
    const Bytes source = pattern();
    Bytes target(kSize);
    measure(state, source, target, [&] {
        // On a page of its own, as the streams have it: elsewhere it would be luck that is
        // measured.
        alignas(kCopyPiece) std::array<unsigned char, kCopyPiece> staging;
        benchmark::DoNotOptimize(staging.data());
        moveByHand(source, target, staging.data(), staging.size());
    });
}

void transferByHand(benchmark::State& state)
{
    const Bytes source = pattern();
    Bytes target(kSize);
    measure(state, source, target, [&] {
        const std::unique_ptr<unsigned char[]> staging(new unsigned char[kTransferPiece]);
        benchmark::DoNotOptimize(staging.get());
        moveByHand(source, target, staging.get(), kTransferPiece);
    });
}

} // namespace

int main(int argc, char** argv)
{
    constexpr double kLeast = 0.9;
    const std::string copies = "a loop by hand with pieces of 4,096 bytes";
    const std::string transfers = "a loop by hand with pieces of 1,048,576 bytes";
    return ratios::run(argc, argv,
                       {{"copyFrom", betweenStreams([](MemoryStore& source, MemoryStore& target) {
                             target.copyFrom(&source, 0, 0);
                         }),
                         copies, copyByHand, kLeast},
                        {"copyTo", betweenStreams([](MemoryStore& source, MemoryStore& target) {
                             source.copyTo(&target, 0, kSize);
                         }),
                         copies, copyByHand, kLeast},
                        {"readBytes", betweenStreams([](MemoryStore& source, MemoryStore& target) {
                             source.readBytes(&target, kSize);
                         }),
                         transfers, transferByHand, kLeast},
                        {"writeBytes", betweenStreams([](MemoryStore& source, MemoryStore& target) {
                             target.writeBytes(&source, kSize);
                         }),
                         transfers, transferByHand, kLeast}});
}
