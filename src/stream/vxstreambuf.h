// VxStreamBuf: a positioned byte stream with random access.
//
// A store, for example bytes in memory or a file, derives from it and provides the operations that
// are pure; all others have a default that is written in terms of those, so that every store
// copies, transfers and checks its bounds alike. The class has no data: all state is the store's.
//
// The order of the virtual functions is binary: stores and their users are built apart. Nothing is
// inserted, removed or moved, and two functions of one name stay in their order.
//
// Units: positions and lengths are bytes from the start, 64 bits without a sign. Counts of the
// operations that are given a count have 32 bits without a sign.
//
// Positions may lie past the end. Where an operation counts what is left, nothing is left there.
//
// Buffers and streams that are handed in are borrowed for the length of the call. Two streams of
// one call may be the same. There are no locks: a stream is used by one thread at a time.
//
// Memory: bounded, whatever the count. Copies go through 4096 bytes on the stack that begin at a
// multiple of 4096: their frame takes up to 8191 bytes for them. Transfers go through 1024 bytes on
// the stack when that is enough, else through a heap array of as many bytes as are asked for, at
// most 1,048,576, which is released before the transfer returns.
//
// Failure: only getBytes reports one. Copies and transfers ask for all of their bytes, whether or
// not a store gave or took what it was asked for before; a stream moves on by as much as its store
// gave or took. What a store throws passes through, and positions stay where they were at that
// moment.
#pragma once

#include "stream/vxstreambufpos.h"

class __attribute__((visibility("default"))) VxStreamBuf
{
public:
    // What an offset counts from.
    enum SeekOrigin : int {
        kFromStart = 0, // the offset's 64 bits are read without a sign
        kFromCurrent = 1,
        kFromEnd = 2,
    };

    VxStreamBuf(const VxStreamBuf&) = delete;
    VxStreamBuf& operator=(const VxStreamBuf&) = delete;

    // Slots 1 and 2.
    virtual ~VxStreamBuf();

    // 3: Whether the position is at or past the end.
    virtual bool isEOS() const;

    // 4: The position.
    virtual unsigned long position() const = 0;

    // 5: The length.
    virtual unsigned long length() const = 0;

    // 6, 7: Makes the stream `length` bytes long; cuts it off at its position. Both do nothing
    // here: stores that can change their length override them.
    virtual void setlength(unsigned long length);
    virtual void truncate();

    // 8: Goes to the start. Returns what seek returned.
    virtual unsigned long rewind();

    // 9: Goes to `offset` bytes from `origin`, a SeekOrigin, and returns the new position. A result
    // other than the position asked for means that the store refused, and stayed where it was.
    virtual unsigned long seek(long offset, int origin) = 0;

    // 10: Reads one byte and moves past it: 0 to 255, or -1 when there is none. No default
    // operation uses it.
    virtual int readByte() = 0;

    // 11: Writes one byte and moves past it. Returns false when the store did not take it. No
    // default operation uses it.
    virtual bool writeByte(unsigned char byte) = 0;

    // 12: Reads `count` bytes to `buffer` and moves past them. Returns how many were read, which is
    // fewer at the end and where the store cannot give more at once.
    // REQUIRES: `buffer` has room for `count` bytes.
    [[nodiscard]] virtual unsigned int read(void* buffer, unsigned int count) = 0;

    // 13: Transfers `count` bytes from this stream's position to the START of `target`, whose
    // position afterwards is the one it had before; this stream moves on by as much as its store
    // gave. Returns what the seek back on `target` returned. Nothing is transferred when `count` is
    // 0 or one of the streams refuses the seek to where the transfer begins; `target` is sought
    // back all the same.
    // REQUIRES: `target` is not null.
    // Throws std::bad_alloc when there is no memory to transfer through.
    virtual unsigned long readBytes(VxStreamBuf* target, unsigned int count);

    // 14: Writes `count` bytes from `buffer` and moves past them. Returns how many were written.
    // REQUIRES: `buffer` holds `count` bytes.
    [[nodiscard]] virtual unsigned int write(const void* buffer, unsigned int count) = 0;

    // 15: The mirror: transfers `count` bytes from the START of `source` to this stream's position,
    // which moves on by as much as its store took. Returns what the seek back on `source` returned.
    // For the rest, see readBytes.
    virtual unsigned long writeBytes(VxStreamBuf* source, unsigned int count);

    // 16: Copies the bytes of `source` between two of ITS positions to this stream's position, and
    // moves on by as much as this store took. `source` goes back to its position. The bounds may be
    // given in either order. Both 0 mean from the source's position to its end; equal ones
    // otherwise, and a null `source`, mean nothing. As many bytes are written as the bounds say,
    // even past the source's end.
    virtual void copyFrom(VxStreamBuf* source, unsigned long start, unsigned long end);

    // 17: Copies bytes from this stream's position into `target`, between two of the TARGET's
    // positions. Unlike in copyFrom, the bounds place the target: it goes to the lower bound and is
    // left behind the last byte written; this stream goes back to its position when bytes were
    // copied. At most so many are copied as this stream has left. The bounds may be given in either
    // order. Both 0 mean at the target's position, as many bytes as the target has left; equal ones
    // otherwise, and a null `target`, mean nothing.
    virtual void copyTo(VxStreamBuf* target, unsigned long start, unsigned long end);

    // 18: Hands on what the store holds back. Returns whether that worked. No default operation
    // uses it.
    virtual bool flush() = 0;

    // 19 to 28 are for stores that can name their places. Here a position names this buffer and
    // nothing in it: it holds no byte, cannot be moved and is at no offset.

    // 19: The present place.
    virtual VxStreamBufPos currentStreamBufPosition() const;

    // 20, 21: The byte at a place, here 0; puts one there, here nothing.
    virtual unsigned char getByteByPos(const VxStreamBufPos& place);
    virtual void setByteByPos(const VxStreamBufPos& place, unsigned char byte);

    // 22, 23: Gets `count` bytes from a place on, into memory or another stream; here nothing.
    virtual void getBytesByPos(const VxStreamBufPos& place, unsigned char* buffer,
                               unsigned int count);
    virtual void getBytesByPos(const VxStreamBufPos& place, VxStreamBuf* target,
                               unsigned int count);

    // 24, 25: Puts `count` bytes from memory or another stream to a place; here nothing.
    virtual void setBytesByPos(const VxStreamBufPos& place, const unsigned char* buffer,
                               unsigned int count);
    virtual void setBytesByPos(const VxStreamBufPos& place, VxStreamBuf* source,
                               unsigned int count);

    // 26: The place as an offset; all bits set when it is at none, as here.
    virtual unsigned long getStreamPosition(const VxStreamBufPos* place) const;

    // 27, 28: Sets a place to an offset; moves it by a distance. Here nothing.
    virtual void setStreamPosition(VxStreamBufPos* place, unsigned long offset) const;
    virtual void moveStreamPosition(VxStreamBufPos* place, long distance) const;

    // 29: Reads `count` bytes to `buffer` if the stream has as many left, and returns what the
    // store's read returned. If not, it reads nothing and throws VxExceptionWithMsg*, "Out of
    // stream buffer!", of which the crash recorder was told; the object is the catcher's to delete.
    // REQUIRES: `buffer` has room for `count` bytes.
    virtual unsigned int getBytes(unsigned char* buffer, unsigned int count);

protected:
    VxStreamBuf() = default;
};
