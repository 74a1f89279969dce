// Whole processes as what is measured.
#pragma once

#include "bench/support/ratios.h"

#include <QByteArray>
#include <QStringList>

namespace ratios {

// Runs a program, without its output being seen, and returns its exit status; negative when it was
// not started or crashed.
int runQuietly(const QString& program, const QStringList& arguments);

// What a program writes to its standard output; empty when it does not end well.
QByteArray outputOf(const QString& program, const QStringList& arguments);

// From the start of the program to its end, which has to be a good one. The arguments are asked for
// before each start, outside of the time that counts. For Clock::ByHand.
Work process(const QString& program, const std::function<QStringList()>& arguments);

} // namespace ratios
