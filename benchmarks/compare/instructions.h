#pragma once

/// Does each workload some times on the Figura side, for callgrind to count: one dump each, named
/// "workload/units", where units is what the count has to be divided by. False without callgrind.
bool countInstructions(int count);
