// What every store does alike.
#include "stream/vxstreambuf.h"

#include "host/errors.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>

namespace {

constexpr unsigned int kCopyRoom = 4096;
constexpr unsigned int kSmallTransfer = 1024;
constexpr unsigned int kTransferRoom = 1048576;

unsigned long leftOver(unsigned long length, unsigned long position)
{
    return length > position ? length - position : 0;
}

bool goesTo(VxStreamBuf& stream, unsigned long position)
{
    return stream.seek(static_cast<long>(position), VxStreamBuf::kFromStart) == position;
}

// Moves `count` bytes in pieces of at most `room`. A piece that was read short is written whole:
// callers rely on the count. Its missing bytes are those of the piece before, or what the room held
// at first, so the room must not come uninitialised.
void moveBytes(VxStreamBuf& source, VxStreamBuf& target, unsigned long count,
               unsigned char* staging, unsigned int room)
{
    while (count > 0) {
        const auto piece = static_cast<unsigned int>(std::min<unsigned long>(count, room));
        static_cast<void>(source.read(staging, piece));
        static_cast<void>(target.write(staging, piece));
        count -= piece;
    }
}

void copyBytes(VxStreamBuf& source, VxStreamBuf& target, unsigned long count)
{
    // From the start of a page on: where the room begins some bytes behind the source's place in a
    // page, a piece can take several times as long. So it never does for sources in the first half
    // of a page, such as a large block of the heap from its start.
    alignas(kCopyRoom) std::array<unsigned char, kCopyRoom> staging{};
    moveBytes(source, target, count, staging.data(), kCopyRoom);
}

void transferBytes(VxStreamBuf& source, VxStreamBuf& target, unsigned int count)
{
    if (count <= kSmallTransfer) {
        std::array<unsigned char, kSmallTransfer> staging{};
        moveBytes(source, target, count, staging.data(), kSmallTransfer);
        return;
    }
    const unsigned int room = std::min(count, kTransferRoom);
    const auto staging = std::make_unique<unsigned char[]>(room);
    moveBytes(source, target, count, staging.get(), room);
}

[[noreturn]] void raiseOutOfBuffer()
{
    // The context is a pair of double quotes, as everywhere in the host.
    auto error = std::make_unique<VxExceptionWithMsg>(L"\"\"", 0, L"Out of stream buffer!");
    if (QuelCrashRecorder* const recorder = quelGetCrashRecorder())
        recorder->record(error.get());
    throw error.release();
}

} // namespace

VxStreamBuf::~VxStreamBuf() = default;

bool VxStreamBuf::isEOS() const
{
    return position() >= length();
}

void VxStreamBuf::setlength(unsigned long) {}

void VxStreamBuf::truncate() {}

unsigned long VxStreamBuf::rewind()
{
    return seek(0, kFromStart);
}

unsigned long VxStreamBuf::readBytes(VxStreamBuf* target, unsigned int count)
{
    const unsigned long remembered = target->position();
    const unsigned long start = position();
    if (count != 0 && goesTo(*this, start) && goesTo(*target, 0))
        transferBytes(*this, *target, count);
    return target->seek(static_cast<long>(remembered), kFromStart);
}

unsigned long VxStreamBuf::writeBytes(VxStreamBuf* source, unsigned int count)
{
    const unsigned long remembered = source->position();
    const unsigned long start = position();
    if (count != 0 && goesTo(*source, 0) && goesTo(*this, start))
        transferBytes(*source, *this, count);
    return source->seek(static_cast<long>(remembered), kFromStart);
}

void VxStreamBuf::copyFrom(VxStreamBuf* source, unsigned long start, unsigned long end)
{
    if (source == nullptr)
        return;
    const unsigned long remembered = source->position();
    unsigned long count = 0;
    if (start == 0 && end == 0) {
        count = leftOver(source->length(), remembered);
    } else if (start != end) {
        const auto [first, last] = std::minmax(start, end);
        source->seek(static_cast<long>(first), kFromStart);
        count = last - first;
    }
    if (count == 0)
        return;
    copyBytes(*source, *this, count);
    source->seek(static_cast<long>(remembered), kFromStart);
}

void VxStreamBuf::copyTo(VxStreamBuf* target, unsigned long start, unsigned long end)
{
    if (target == nullptr)
        return;
    const unsigned long remembered = position();
    unsigned long count = 0;
    if (start == 0 && end == 0) {
        count = leftOver(target->length(), target->position());
    } else if (start != end) {
        const auto [first, last] = std::minmax(start, end);
        target->seek(static_cast<long>(first), kFromStart);
        count = last - first;
    }
    // On purpose, the length is asked for even where the bounds leave nothing to copy: a store sees
    // the same question whatever the bounds.
    count = std::min(count, leftOver(length(), remembered));
    if (count == 0)
        return;
    copyBytes(*this, *target, count);
    seek(static_cast<long>(remembered), kFromStart);
}

VxStreamBufPos VxStreamBuf::currentStreamBufPosition() const
{
    return {0, this};
}

unsigned char VxStreamBuf::getByteByPos(const VxStreamBufPos&)
{
    return 0;
}

void VxStreamBuf::setByteByPos(const VxStreamBufPos&, unsigned char) {}

void VxStreamBuf::getBytesByPos(const VxStreamBufPos&, unsigned char*, unsigned int) {}

void VxStreamBuf::getBytesByPos(const VxStreamBufPos&, VxStreamBuf*, unsigned int) {}

void VxStreamBuf::setBytesByPos(const VxStreamBufPos&, const unsigned char*, unsigned int) {}

void VxStreamBuf::setBytesByPos(const VxStreamBufPos&, VxStreamBuf*, unsigned int) {}

unsigned long VxStreamBuf::getStreamPosition(const VxStreamBufPos*) const
{
    return std::numeric_limits<unsigned long>::max();
}

void VxStreamBuf::setStreamPosition(VxStreamBufPos*, unsigned long) const {}

void VxStreamBuf::moveStreamPosition(VxStreamBufPos*, long) const {}

unsigned int VxStreamBuf::getBytes(unsigned char* buffer, unsigned int count)
{
    const unsigned long start = position();
    const unsigned long end = length();
    if (start > end || count > end - start)
        raiseOutOfBuffer();
    return read(buffer, count);
}
