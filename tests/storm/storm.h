#pragma once

#include <script.h>

#include <QString>

namespace Velmora::Figura::Storm {

/// What a storm is asked for.
struct Request
{
    quint32 firstSeed = 1;
    quint32 lastSeed = 1;
    qint64 operations = 10000; ///< For each seed.
};

/// Every world has so many operations; then a new one begins.
constexpr int operationsPerEpisode = 500;

/// Runs all that is asked for, in child processes, and prints how far it is. At the first fault it
/// prints the seed and the list, boiled down, and writes the list to a file. True without a fault.
bool raise(const Request &request);

/// Boils a list down that fails, and prints it. True when it does not fail.
bool explain(const Script &script);

// What the children do.

bool playFile(const QString &fileName); ///< False when there is a fault, or no such list.
bool playEpisodes(quint32 seed, quint32 first, quint32 last); ///< The last is not played.

} // namespace Velmora::Figura::Storm
