# Every check that CI runs is one target here.
#   make               install what is missing, build into build/
#   make test          ... and run every test
#   make test-sanitize the same tests under AddressSanitizer and
#                      UndefinedBehaviorSanitizer, in build-sanitize/
#   make fuzz          fuzz the library with clang's libFuzzer, each target
#                      for FUZZ_SECONDS seconds, in build-fuzz/
#   make demo          run qxqr on the shipped example
#   make bench         a release build in build-bench/, then the benchmark
#                      suite, every figure beside its yardstick, and the
#                      targets; BENCH_ARGS=--benchmark_filter=REGEX runs a
#                      part, QXQR_BENCH_SKIP_HUGE_NAME=1 leaves out the
#                      query whose name is 1,000,000 slashes
#   make install PREFIX=/some/where

BUILD_DIR      ?= build
SANITIZE_DIR   ?= build-sanitize
FUZZ_DIR       ?= build-fuzz
FUZZ_SECONDS   ?= 60
FUZZ_TARGETS    = script file_reader elf
BENCH_DIR      ?= build-bench
BENCH_ARGS     ?=
BUILD_TYPE     ?= RelWithDebInfo
PREFIX         ?= /usr/local
JOBS           ?= $(shell nproc)

export ASAN_OPTIONS  = detect_leaks=1:abort_on_error=0:strict_string_checks=1
export UBSAN_OPTIONS = print_stacktrace=1:halt_on_error=1

.PHONY: all deps build test test-sanitize fuzz demo bench install clean

all: build

deps:
	@scripts/install-deps.sh

build: deps
	@cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) >/dev/null
	@cmake --build $(BUILD_DIR) -j $(JOBS)

test: build
	ctest --test-dir $(BUILD_DIR) --output-on-failure -j $(JOBS)

test-sanitize: deps
	@cmake -S . -B $(SANITIZE_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQXQR_SANITIZE=ON >/dev/null
	@cmake --build $(SANITIZE_DIR) -j $(JOBS)
	ctest --test-dir $(SANITIZE_DIR) --output-on-failure -j $(JOBS)

# Only the library and the fuzz targets, with clang; clang is installed for
# this target alone.
fuzz:
	@scripts/install-deps.sh fuzz
	@cmake -S . -B $(FUZZ_DIR) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++ \
	    -DQXQR_FUZZ=ON -DBUILD_TESTING=OFF -DQXQR_BUILD_TOOLS=OFF >/dev/null
	@cmake --build $(FUZZ_DIR) -j $(JOBS) --target $(addprefix fuzz_,$(FUZZ_TARGETS))
	@for target in $(FUZZ_TARGETS); do fuzz/run.sh $(FUZZ_DIR) $$target $(FUZZ_SECONDS) || exit 1; done

demo: build
	$(BUILD_DIR)/qxqr walk --explain --root examples/demo/install --cwd examples/demo/project \
	    examples/demo.rules -- examples/demo/project/src/main.c

# Benchmarks need an optimised build of their own and are no part of `make test`.
bench:
	@scripts/install-deps.sh bench
	@cmake -S . -B $(BENCH_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF -DQXQR_BUILD_BENCH=ON >/dev/null
	@cmake --build $(BENCH_DIR) -j $(JOBS) --target qxqr_bench
	$(BENCH_DIR)/bench/qxqr_bench $(BENCH_ARGS)

install: build
	cmake --install $(BUILD_DIR) --prefix $(PREFIX)

clean:
	rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(FUZZ_DIR) $(BENCH_DIR)
