#pragma once

/// How a run without windows ends, for whoever started it.
namespace quor::exitStatus {

inline constexpr int success = 0;
inline constexpr int failure = 1;
inline constexpr int wrongUse = 2; ///< the command line, not what it led to, is at fault

} // namespace quor::exitStatus
