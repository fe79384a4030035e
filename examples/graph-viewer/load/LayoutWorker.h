#pragma once

namespace GraphViewer {

/// The other side of LayoutProcess: our own program, started again to lay out one graph.
namespace LayoutWorker {

/// The argument that makes the program a worker; the file and the engine follow it.
inline constexpr char Switch[] = "--lay-out";

bool isMeant(int argc, char **argv);

/// Writes a LoadReply to standard output. Does not return.
[[noreturn]] void run(char **argv);

} // namespace LayoutWorker

} // namespace GraphViewer
