// How long random and thinned-out tests run, and what they begin with.
#pragma once

#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>

// The number of rounds, or of cases that are picked from many: `usual`, unless QUELHOST_TEST_ROUNDS
// asks for another one.
inline int wantedRounds(int usual)
{
    const char* wanted = std::getenv("QUELHOST_TEST_ROUNDS");
    const int rounds = wanted ? std::stoi(wanted) : usual;
    if (rounds < 1)
        throw std::invalid_argument("QUELHOST_TEST_ROUNDS is no number above 0");
    return rounds;
}

// From QUELHOST_TEST_SEED, or a new one each time; a test says which it was.
inline unsigned int wantedSeed()
{
    const char* wanted = std::getenv("QUELHOST_TEST_SEED");
    return wanted ? static_cast<unsigned int>(std::stoul(wanted)) : std::random_device()();
}
