// SPDX-FileCopyrightText: 2026 The libzoeffect developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "results.h"

/// One side of a case: does the work in the loop over the state and checks what came of it afterwards. What it
/// works on is made once, before the rounds.
struct Contestant {
    std::string name;
    std::function<void(benchmark::State&)> run;
};

struct Case {
    std::string name;
    std::vector<Contestant> contestants;
    int iterations = 0; ///< Of one contestant in one round; 0 for as many as fill the time of a round.
};

struct Workload {
    std::string name;
    std::string title;
    /// The cases with at most so many items.
    std::function<std::vector<Case>(int)> cases;
    int repeats = 1;          ///< How often each round of the suite runs each case, its sides taking turns.
    bool timesItself = false; ///< Whether the contestants tell the time of each iteration themselves.
};

/// All workloads, in the order in which they run.
const std::vector<Workload>& workloads();

// The cases of each, with at most largest items.
std::vector<Case> buildCases(int largest);
std::vector<Case> setCases(int largest);
std::vector<Case> equalCases(int largest);
std::vector<Case> readCases(int largest);
std::vector<Case> insertCases(int largest);
std::vector<Case> assignCases(int largest);
std::vector<Case> customDefaultsCases(int largest);
std::vector<Case> isDefaultCases(int largest);
std::vector<Case> againCases(int largest);
std::vector<Case> watermarkCases(int largest);
std::vector<Case> otherSizeCases(int largest);
std::vector<Case> placeCases(int largest);
std::vector<Case> dragCases(int largest);
std::vector<Case> typingCases(int largest);
std::vector<Case> fontSizeCases(int largest);
std::vector<Case> transparencyCases(int largest);
std::vector<Case> logoSizeCases(int largest);
std::vector<Case> editingCases(int largest);
std::vector<Case> setInTurnCases(int largest);
std::vector<Case> readInTurnCases(int largest);
std::vector<Case> isDefaultInTurnCases(int largest);

/// For contestants that tell the time of each iteration themselves.
class StopWatch {
public:
    double seconds() const { return std::chrono::duration<double>(Clock::now() - m_start).count(); }

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point m_start = Clock::now();
};

struct Effort {
    int rounds;
    bool checksOnly; ///< A few iterations in place of a round's time, and no case of many items.
};

/// Runs \a workload and adds what it measured to \a results. False when a check failed, which is told on
/// standard error.
bool runWorkload(const Workload& workload, const Effort& effort, std::vector<Result>& results);
