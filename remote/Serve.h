// The library on standard input and output, with the peer process as its host: one JSON-RPC 2.0 message a line, as
// docs/remote-host.md tells.
#pragma once

#include <istream>
#include <ostream>

namespace cordboard::remote {

// A Run may be started while another waits for an answer of the host; up to this many stand inside each other, so that
// a peer cannot exhaust the stack (a level takes 3 kB of it and the worker's own, five times that under sanitizers).
inline constexpr int MaximumRunDepth = 100;

// Serves the peer until the input ends, and gives 0; 1 where the output breaks before. Writes nothing but messages to
// `out`, each flushed. The process has one host, so one Serve at a time.
//
// A program that serves on its standard streams ignores SIGPIPE, so that a peer that goes away does not end it, and
// calls std::ios::sync_with_stdio(false), without which every character is read on its own.
int Serve(std::istream& in, std::ostream& out, std::ostream& diagnostics);

}  // namespace cordboard::remote
