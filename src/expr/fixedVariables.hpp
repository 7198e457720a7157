// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_FIXEDVARIABLES_HPP
#define QXQRSCRIPT_EXPR_FIXEDVARIABLES_HPP

namespace QuorelScript {

// The variables whose values the platform fixes, for every query alike.

// The extension of the host's loadable modules, dot included.
inline constexpr char vrkName[] = "vrk";
inline constexpr char vrkValue[] = ".vrkilx";
// The host's tag for 32-bit x86 Linux.
inline constexpr char archName[] = "arch";
inline constexpr char archValue[] = "ia32lx";
// The extension of shared libraries, dot included.
inline constexpr char libName[] = "lib";
inline constexpr char libValue[] = ".so";

} // namespace QuorelScript

#endif
