// A byte stream beside the model of it, and what differs when a step is run on both.
#pragma once

#include "tests/stream/streammodel.h"

#include <memory>
#include <string>

namespace streams {

// A stream and its model.
struct Side
{
    std::unique_ptr<VxStreamBuf> store;
    std::unique_ptr<RecordingStore> stream;
    ModelStream model;
};

// Both with the model's bytes and position; calls of the stream are noted in `trace`. The file at
// `path` gets the bytes in place of its own.
Side memorySide(char name, const ModelStream& model, Trace& trace);
Side fileSide(char name, const std::string& path, const ModelStream& model, Trace& trace);

// Runs the step on streams and models. Nothing when both did the same, else what differs. `trace`
// is the one of both sides.
std::string stepDifference(const Step& step, Side& self, Side& other, Trace& trace);

std::string shown(const Step& step);

Trace readsAndWrites(const Trace& trace);

} // namespace streams
