#pragma once

/// Replaces operator new for the whole program: link CountingNew.cpp into a test program of its own.
namespace pulselark {

extern long Allocations; ///< calls of operator new so far

} // namespace pulselark
