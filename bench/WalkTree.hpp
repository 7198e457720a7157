// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_WALKTREE_HPP
#define QXQR_BENCH_WALKTREE_HPP

#include <cstddef>
#include <string>

namespace qxqr::bench {

// A project tree for a walk: main.c and main.h at its root and, in each of
// 100 folders src/dNNN, 500 sources fNNN.c, each beside its header fNNN.h:
// 100,002 empty files in all.
constexpr std::size_t walkTreeFiles = 100002;

// Makes the tree at `root` unless a complete one is there already (a marker
// file beside it, written last, tells), so an interrupted run makes it anew.
void makeWalkTree(const std::string& root);

} // namespace qxqr::bench

#endif
