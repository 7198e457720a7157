// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_WALKTREE_HPP
#define QXQR_BENCH_WALKTREE_HPP

#include <cstddef>
#include <string>

namespace qxqr::bench {

// A project tree for a walk: main.c and main.h at its root and, in each of
// `folders` folders src/dNNN, 500 sources fNNN.c, each beside its header
// fNNN.h. The walks go over a tree of 10 folders and one of 100, so that
// they show how the cost grows with the files.
constexpr std::size_t walkTreeFolderCounts[] = {10, 100};
constexpr std::size_t walkTreeFilesIn(std::size_t folders) {
    return 2 + folders * 1000;
}
// The larger tree, 100,002 empty files, which the target is about.
constexpr std::size_t walkTreeFiles = walkTreeFilesIn(100);

// Makes the tree at `root` unless a complete one is there already (a marker
// file beside it, written last, tells), so an interrupted run makes it anew.
void makeWalkTree(const std::string& root, std::size_t folders);

} // namespace qxqr::bench

#endif
