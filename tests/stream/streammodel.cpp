#include "tests/stream/streammodel.h"

#include <algorithm>
#include <cstring>

namespace streams {

namespace {

unsigned long leftUntil(unsigned long end, unsigned long position)
{
    return position < end ? end - position : 0;
}

unsigned long leastOf(unsigned long count, unsigned long limit, unsigned long left)
{
    return std::min(count, std::min(limit, left));
}

class Model
{
public:
    Outcome outcome;

    static unsigned long seek(ModelStream& stream, unsigned long offset)
    {
        if (stream.refusedSeeks.count(++stream.seeks) > 0)
            return RecordingStore::kRefused;
        stream.position = offset;
        return offset;
    }

    unsigned int read(ModelStream& stream, Bytes& to, unsigned int count)
    {
        const unsigned long moved =
            leastOf(count, stream.readLimit, leftUntil(stream.bytes.size(), stream.position));
        if (moved > 0)
            std::memcpy(to.data(), stream.bytes.data() + stream.position, moved);
        stream.position += moved;
        outcome.pieces.push_back({stream.name, Call::Read, count, moved});
        return static_cast<unsigned int>(moved);
    }

    void write(ModelStream& stream, const Bytes& from, unsigned int count)
    {
        const unsigned long moved =
            leastOf(count, stream.writeLimit, leftUntil(stream.lengthLimit, stream.position));
        if (moved > 0 && stream.bytes.size() < stream.position + moved)
            stream.bytes.resize(stream.position + moved);
        if (moved > 0)
            std::memcpy(stream.bytes.data() + stream.position, from.data(), moved);
        stream.position += moved;
        outcome.pieces.push_back({stream.name, Call::Write, count, moved});
    }

    // In pieces of `room` bytes and a rest, each through the same bytes, which begin as zeros.
    void move(ModelStream& from, ModelStream& to, unsigned long count, unsigned int room)
    {
        Bytes through(room);
        for (; count >= room; count -= room)
            movePiece(from, to, through, room);
        if (count > 0)
            movePiece(from, to, through, static_cast<unsigned int>(count));
    }

    void transfer(ModelStream& from, ModelStream& to, unsigned int count)
    {
        if (count <= 1024)
            move(from, to, count, 1024);
        else if (count <= 1048576)
            move(from, to, count, count);
        else
            move(from, to, count, 1048576);
    }

    void getBytes(ModelStream& self, unsigned int count)
    {
        // No stream of the tests is longer than 2^32 bytes: then nothing can overflow.
        const bool inside =
            self.position <= 0xFFFFFFFFUL && self.position + count <= self.bytes.size();
        if (!inside) {
            outcome.result = std::nullopt;
            return;
        }
        outcome.got.resize(count);
        outcome.result = read(self, outcome.got, count);
    }

    void readBytes(ModelStream& self, ModelStream& target, unsigned int count)
    {
        const unsigned long back = target.position;
        const unsigned long here = self.position;
        if (count != 0) {
            if (seek(self, here) == here) {
                if (seek(target, 0) == 0)
                    transfer(self, target, count);
            }
        }
        outcome.result = seek(target, back);
    }

    void writeBytes(ModelStream& self, ModelStream& source, unsigned int count)
    {
        const unsigned long back = source.position;
        const unsigned long here = self.position;
        if (count != 0) {
            if (seek(source, 0) == 0) {
                if (seek(self, here) == here)
                    transfer(source, self, count);
            }
        }
        outcome.result = seek(source, back);
    }

    void copyFrom(ModelStream& self, ModelStream& source, unsigned long start, unsigned long end)
    {
        const unsigned long s = source.position;
        if (start == 0 && end == 0) {
            if (s >= source.bytes.size())
                return;
            move(source, self, source.bytes.size() - s, 4096);
        } else if (start < end) {
            seek(source, start);
            move(source, self, end - start, 4096);
        } else if (start > end) {
            seek(source, end);
            move(source, self, start - end, 4096);
        } else {
            return;
        }
        seek(source, s);
    }

    void copyTo(ModelStream& self, ModelStream& target, unsigned long start, unsigned long end)
    {
        const unsigned long s = self.position;
        unsigned long count = 0;
        if (start == 0 && end == 0) {
            if (target.position < target.bytes.size())
                count = target.bytes.size() - target.position;
        } else if (start < end) {
            seek(target, start);
            count = end - start;
        } else if (start > end) {
            seek(target, end);
            count = start - end;
        }
        if (s >= self.bytes.size())
            count = 0;
        else if (count > self.bytes.size() - s)
            count = self.bytes.size() - s;
        if (count == 0)
            return;
        move(self, target, count, 4096);
        seek(self, s);
    }

private:
    void movePiece(ModelStream& from, ModelStream& to, Bytes& through, unsigned int count)
    {
        read(from, through, count);
        write(to, through, count);
    }
};

} // namespace

Outcome run(const Step& step, ModelStream& self, ModelStream& other)
{
    Model model;
    switch (step.kind) {
    case Step::IsEos:
        model.outcome.result = self.position < self.bytes.size() ? 0 : 1;
        break;
    case Step::Rewind:
        model.outcome.result = Model::seek(self, 0);
        break;
    case Step::Seek:
        model.outcome.result = Model::seek(self, step.first);
        break;
    case Step::GetBytes:
        model.getBytes(self, static_cast<unsigned int>(step.first));
        break;
    case Step::ReadBytes:
        model.readBytes(self, other, static_cast<unsigned int>(step.first));
        break;
    case Step::WriteBytes:
        model.writeBytes(self, other, static_cast<unsigned int>(step.first));
        break;
    case Step::CopyFrom:
        model.copyFrom(self, other, step.first, step.second);
        break;
    case Step::CopyTo:
        model.copyTo(self, other, step.first, step.second);
        break;
    }
    return model.outcome;
}

} // namespace streams
