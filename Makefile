# SPDX-License-Identifier: MIT
# Every check that CI runs is one target here.
#   make               install what is missing, build into build/
#   make test          ... and run every test
#   make test-sanitize the same tests under AddressSanitizer and
#                      UndefinedBehaviorSanitizer, in build-sanitize/
#   make test-i386     every test of a 32-bit x86 build, in build-i386/
#   make test-compilers  g++ and clang, C++17 and C++20, each warning-free
#                      (see COMPILER_BUILDS below), in build-compiler-*/
#   make abi-check     compares the library's interface, on x86_64 and on
#                      i386, with the baseline in abi/; fails on a change
#                      that breaks programs built against the baseline
#   make abi-baseline  writes that baseline anew, from the same two builds
#   make fuzz          fuzz the library with clang's libFuzzer, every target
#                      at once for FUZZ_SECONDS seconds, in build-fuzz/
#   make demo          run qxqr on the shipped example
#   make bench         a release build in build-bench/, then the benchmark
#                      suite, every figure beside its yardstick, and the
#                      targets; BENCH_ARGS=--benchmark_filter=REGEX runs a
#                      part, QXQR_BENCH_SKIP_HUGE_NAME=1 leaves out the
#                      query whose name is 1,000,000 slashes
#   make install PREFIX=/some/where   the library and the tool, built in
#                      build-install/ without the tests
#   make deb           Debian packages of the two install components, in
#                      build-deb/
#   make format-check  fails, naming the files, where a C++ file's layout
#                      differs from what .clang-format says (clang-format 14)
#   make format        lays those files out as .clang-format says
#   make tidy          clang-tidy 14, with the checks of .clang-tidy, over
#                      the library and the tool, from the compile commands
#                      of build-tidy/; any finding fails it
#
# Missing Debian packages are installed first, once for each set of them
# (the stamps in build-deps/); NO_DEPS=1 leaves that out. Ninja builds when
# it is installed, make otherwise (GENERATOR="Unix Makefiles" chooses).

BUILD_DIR      ?= build
SANITIZE_DIR   ?= build-sanitize
I386_DIR       ?= build-i386
I386_GTEST_DIR ?= build-i386-gtest
FUZZ_DIR       ?= build-fuzz
FUZZ_SECONDS   ?= 60
FUZZ_TARGETS    = script file_reader elf
BENCH_DIR      ?= build-bench
DEB_DIR        ?= build-deb
INSTALL_DIR    ?= build-install
TIDY_DIR       ?= build-tidy
BENCH_ARGS     ?=
BUILD_TYPE     ?= RelWithDebInfo
PREFIX         ?= /usr/local
JOBS           ?= $(shell nproc)
GENERATOR      ?= $(if $(shell command -v ninja),Ninja,Unix Makefiles)
DEPS_DIR        = build-deps
ABI_DIR         = abi

# The builds that CI checks make warnings errors; an installation or a
# package leaves them warnings, as a newer compiler may find new ones.
CONFIGURE_ONLY = cmake -S . -G "$(GENERATOR)"
CONFIGURE      = $(CONFIGURE_ONLY) -DQXQR_WERROR=ON

export ASAN_OPTIONS  = detect_leaks=1:abort_on_error=0:strict_string_checks=1
export UBSAN_OPTIONS = print_stacktrace=1:halt_on_error=1

.PHONY: all build test test-sanitize test-i386 test-i386-library test-compilers abi-check \
        abi-baseline fuzz demo bench install deb clean
.PHONY: format-check format tidy clean-tidy

all: build

# deps-SET: the packages of that set (see scripts/install-deps.sh) are there.
ifeq ($(NO_DEPS),1)
deps-%: ;
else
deps-%: $(DEPS_DIR)/%.stamp ;
endif
.PRECIOUS: $(DEPS_DIR)/%.stamp
$(DEPS_DIR)/%.stamp: scripts/install-deps.sh
	@scripts/install-deps.sh $(patsubst build,,$*)
	@mkdir -p $(DEPS_DIR) && touch $@

build: deps-build
	@$(CONFIGURE) -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) >/dev/null
	@cmake --build $(BUILD_DIR) -j $(JOBS)

test: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

# The sanitizer build is also CI's build of every test with clang and C++20.
test-sanitize: deps-build deps-compilers
	@$(CONFIGURE) -B $(SANITIZE_DIR) -DCMAKE_BUILD_TYPE=Debug -DQXQR_SANITIZE=ON \
	    -DCMAKE_CXX_COMPILER=clang++-14 -DCMAKE_CXX_STANDARD=20 >/dev/null
	@cmake --build $(SANITIZE_DIR) -j $(JOBS)
	cd $(SANITIZE_DIR) && ctest --output-on-failure -j $(JOBS)

# GoogleTest has no 32-bit library among the 64-bit packages: it is built
# from Debian's sources (/usr/src/googletest) with the same toolchain file.
I386_TOOLCHAIN = -DCMAKE_TOOLCHAIN_FILE=$(CURDIR)/cmake/toolchains/i686-linux-gnu.cmake
$(I386_GTEST_DIR)/prefix/include/gtest/gtest.h: | deps-i386
	@cmake -S /usr/src/googletest -B $(I386_GTEST_DIR) -G "$(GENERATOR)" $(I386_TOOLCHAIN) \
	    -DCMAKE_BUILD_TYPE=Release -DBUILD_GMOCK=OFF -DCMAKE_INSTALL_PREFIX=$(CURDIR)/$(I386_GTEST_DIR)/prefix >/dev/null
	@cmake --build $(I386_GTEST_DIR) -j $(JOBS) >/dev/null
	@cmake --install $(I386_GTEST_DIR) >/dev/null

# Without qxqr deps: libelf has no 32-bit package among the 64-bit ones, and
# a second architecture is no change to make to a developer's machine. Not
# optimised, which halves the build's time: the optimised build is x86_64's.
I386_CONFIGURE = $(CONFIGURE) -B $(I386_DIR) $(I386_TOOLCHAIN) -DCMAKE_BUILD_TYPE=Debug \
                 -DCMAKE_PREFIX_PATH=$(CURDIR)/$(I386_GTEST_DIR)/prefix -DQXQR_WITH_DEPS=OFF

test-i386: deps-i386 $(I386_GTEST_DIR)/prefix/include/gtest/gtest.h
	@$(I386_CONFIGURE) >/dev/null
	@cmake --build $(I386_DIR) -j $(JOBS)
	cd $(I386_DIR) && ctest --output-on-failure -j $(JOBS)

# Each build is NAME:COMPILER:STANDARD:WHAT[:LAYOUT,...] (see
# scripts/compiler-build.sh): WHAT "tests" builds everything and runs every
# test, "library" builds what is installed and runs the installed package's
# consumer test only, once for each LAYOUT: an absolute libdir ("absolute"),
# a static library ("static"), or both ("static-absolute"). g++ 12 with
# C++17 is the build of `make test` and `make test-i386`, clang 14 with
# C++20 that of `make test-sanitize`; these two prove the other pairs.
COMPILER_BUILDS ?= gcc20:g++-12:20:library:absolute clang17:clang++-14:17:library:static,static-absolute
test-compilers: deps-build deps-compilers
	@for build in $(COMPILER_BUILDS); do \
	    scripts/compiler-build.sh "$(GENERATOR)" $(JOBS) $$build || exit 1; \
	done

abi-check: deps-abi build test-i386-library
	scripts/abi.sh check $(BUILD_DIR) $(ABI_DIR)/libqxqrscript.so.1.abi
	scripts/abi.sh check $(I386_DIR) $(ABI_DIR)/libqxqrscript.so.1.i386.abi

abi-baseline: deps-abi build test-i386-library
	scripts/abi.sh write $(BUILD_DIR) $(ABI_DIR)/libqxqrscript.so.1.abi
	scripts/abi.sh write $(I386_DIR) $(ABI_DIR)/libqxqrscript.so.1.i386.abi

# Only what abi-check needs of the 32-bit build.
test-i386-library: deps-i386 $(I386_GTEST_DIR)/prefix/include/gtest/gtest.h
	@$(I386_CONFIGURE) >/dev/null
	@cmake --build $(I386_DIR) -j $(JOBS) --target qxqrscript

# Only the library and the fuzz targets, with clang; clang is installed for
# this target alone.
fuzz: deps-fuzz
	@$(CONFIGURE) -B $(FUZZ_DIR) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
	    -DQXQR_FUZZ=ON -DQXQR_BUILD_TESTS=OFF -DQXQR_BUILD_TOOLS=OFF -DQXQR_WITH_DEPS=ON >/dev/null
	@cmake --build $(FUZZ_DIR) -j $(JOBS) --target $(addprefix fuzz_,$(FUZZ_TARGETS))
	@fuzz/run.sh $(FUZZ_DIR) $(FUZZ_SECONDS) $(FUZZ_TARGETS)

demo: build
	$(BUILD_DIR)/qxqr walk --explain --root examples/demo/install --cwd examples/demo/project \
	    examples/demo.rules -- examples/demo/project/src/main.c

# Benchmarks need an optimised build of their own and are no part of `make test`.
bench: deps-bench
	@$(CONFIGURE) -B $(BENCH_DIR) -DCMAKE_BUILD_TYPE=Release -DQXQR_BUILD_TESTS=OFF -DQXQR_BUILD_BENCH=ON >/dev/null
	@cmake --build $(BENCH_DIR) -j $(JOBS) --target qxqr_bench
	$(BENCH_DIR)/bench/qxqr_bench $(BENCH_ARGS)

# What is installed, and nothing else, is built first, in a folder of its
# own: without the tests, and with warnings left warnings.
install: deps-build
	@$(CONFIGURE_ONLY) -B $(INSTALL_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DCMAKE_INSTALL_PREFIX=$(PREFIX) \
	    -DQXQR_BUILD_TESTS=OFF >/dev/null
	@cmake --build $(INSTALL_DIR) -j $(JOBS) --target installed_files
	cmake --install $(INSTALL_DIR)

# A release build of its own, installed to /usr, without tests.
deb: deps-build deps-deb
	@$(CONFIGURE_ONLY) -B $(DEB_DIR) -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) -DCMAKE_INSTALL_PREFIX=/usr \
	    -DQXQR_BUILD_TESTS=OFF >/dev/null
	@cmake --build $(DEB_DIR) -j $(JOBS)
	cd $(DEB_DIR) && cpack -G DEB

# Every file's layout is clang-format 14's, whichever version is the
# default: another version lays out some files otherwise.
format-check: deps-format
	@scripts/format.sh check

format: deps-format
	@scripts/format.sh apply

# clang-tidy reads the compile commands of a configured build and compiles
# each file itself, so build-tidy/ is configured, never built; without
# precompiled headers, which clang-tidy cannot read from g++. Without the
# tests, which would double the time (see scripts/tidy.sh).
tidy: deps-tidy
	@$(CONFIGURE_ONLY) -B $(TIDY_DIR) -DCMAKE_BUILD_TYPE=Debug -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
	    -DQXQR_BUILD_TESTS=OFF >/dev/null
	@scripts/tidy.sh $(TIDY_DIR) $(JOBS)

clean: clean-tidy
clean-tidy:
	rm -rf $(TIDY_DIR)

clean:
	rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(I386_DIR) $(I386_GTEST_DIR) $(FUZZ_DIR) $(BENCH_DIR) $(DEB_DIR) $(INSTALL_DIR) \
	    build-compiler-* $(DEPS_DIR)
