#include "tests/stream/streamside.h"

#include "tests/support/filestore.h"

#include "host/errors.h"

#include <array>
#include <stdexcept>

namespace streams {

namespace {

Outcome runOnStream(const Step& step, VxStreamBuf& self, VxStreamBuf& other)
{
    Outcome outcome;
    const auto count = static_cast<unsigned int>(step.first);
    switch (step.kind) {
    case Step::IsEos:
        outcome.result = self.isEOS() ? 1 : 0;
        break;
    case Step::Rewind:
        outcome.result = self.rewind();
        break;
    case Step::Seek:
        outcome.result = self.seek(static_cast<long>(step.first), VxStreamBuf::kFromStart);
        break;
    case Step::GetBytes:
        outcome.got.resize(count);
        try {
            outcome.result = self.getBytes(outcome.got.data(), count);
        } catch (VxExceptionWithMsg* error) {
            delete error;
            outcome.result = std::nullopt;
            outcome.got.clear();
        }
        break;
    case Step::ReadBytes:
        outcome.result = self.readBytes(&other, count);
        break;
    case Step::WriteBytes:
        outcome.result = self.writeBytes(&other, count);
        break;
    case Step::CopyFrom:
        self.copyFrom(&other, step.first, step.second);
        break;
    case Step::CopyTo:
        self.copyTo(&other, step.first, step.second);
        break;
    }
    return outcome;
}

Side makeSide(char name, std::unique_ptr<VxStreamBuf> store, ModelStream model, Trace& trace)
{
    Side side{std::move(store), nullptr, std::move(model)};
    side.model.name = name;
    side.stream = std::make_unique<RecordingStore>(name, *side.store, trace);
    side.stream->readLimit = side.model.readLimit;
    side.stream->writeLimit = side.model.writeLimit;
    side.stream->refusedSeeks = side.model.refusedSeeks;
    side.store->seek(static_cast<long>(side.model.position), VxStreamBuf::kFromStart);
    return side;
}

bool holds(const VxStreamBuf& store, const Bytes& expected)
{
    if (const auto* const memory = dynamic_cast<const MemoryStore*>(&store))
        return memory->bytes() == expected;
    return dynamic_cast<const FileStore&>(store).bytes() == expected;
}

// Nothing while a stream is as its model says, else what differs.
std::string difference(const Side& side)
{
    if (side.store->position() != side.model.position)
        return "position " + std::to_string(side.store->position()) + " for " +
               std::to_string(side.model.position);
    return holds(*side.store, side.model.bytes) ? "" : "bytes";
}

} // namespace

Trace readsAndWrites(const Trace& trace)
{
    Trace result;
    for (const Call& call : trace) {
        if (call.operation == Call::Read || call.operation == Call::Write)
            result.push_back(call);
    }
    return result;
}

Side memorySide(char name, const ModelStream& model, Trace& trace)
{
    return makeSide(name, std::make_unique<MemoryStore>(model.bytes, model.lengthLimit), model,
                    trace);
}

Side fileSide(char name, const std::string& path, const ModelStream& model, Trace& trace)
{
    auto file = std::make_unique<FileStore>(path);
    file->setlength(0);
    const auto size = static_cast<unsigned int>(model.bytes.size());
    if (size > 0 && file->write(model.bytes.data(), size) != size)
        throw std::runtime_error("cannot fill the file");
    return makeSide(name, std::move(file), model, trace);
}

std::string stepDifference(const Step& step, Side& self, Side& other, Trace& trace)
{
    trace.clear();
    const Outcome seen = runOnStream(step, *self.stream, *other.stream);
    const Trace pieces = readsAndWrites(trace);
    const Outcome told = run(step, self.model, other.model);
    if (seen.result != told.result)
        return "result";
    if (seen.got != told.got)
        return "bytes got";
    if (!(pieces == told.pieces))
        return "pieces";
    const std::string ofSelf = difference(self);
    return ofSelf.empty() ? difference(other) : ofSelf;
}

std::string shown(const Step& step)
{
    const std::array<const char*, 8> names{"isEOS",     "rewind",     "seek",     "getBytes",
                                           "readBytes", "writeBytes", "copyFrom", "copyTo"};
    return std::string(names[step.kind]) + "(" + std::to_string(step.first) + ", " +
           std::to_string(step.second) + ")";
}

} // namespace streams
