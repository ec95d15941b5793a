# Geoquill: the two commands of the README, and the other ways to exercise the code.
#   make run    install what is missing, build, start the app
#   make test   install what is missing, build, run the whole suite headless (CI runs this)
#   make bench  benchmarks (Release build)
#   make bench-convert  geoquill-convert against GeoConvert and cs2cs on a million points
#   make fuzz   each fuzz target for a short, bounded time (clang, libFuzzer)
#   make asan   the suite under AddressSanitizer and UndefinedBehaviorSanitizer
#   make screenshots  the README's pictures, from the widget tests
#   make format-check  fails when a source differs from what clang-format writes (CI runs it)
#   make package  the .deb (Release build, then CPack): build-package/geoquill_<version>_<arch>.deb

JOBS       ?= $(shell nproc)
CMAKE_GEN  := -G Ninja
FUZZ_SECONDS ?= 20
# Tests only: no screen. The app itself starts with nothing set.
HEADLESS   := QT_QPA_PLATFORM=offscreen

.PHONY: screenshots deps run build test bench bench-convert fuzz asan format format-check clean

deps:
	@./scripts/install-deps

build: deps
	cmake -S . -B build $(CMAKE_GEN) -DGEOQUILL_WERROR=ON
	cmake --build build -j $(JOBS)

run: build
	./build/shell/geoquill

test: build
	$(HEADLESS) ctest --test-dir build --output-on-failure -j $(JOBS)
	$(MAKE) --no-print-directory asan

asan: deps
	cmake -S . -B build-asan $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Debug -DGEOQUILL_SANITIZE=ON \
	      -DGEOQUILL_BUILD_SHELL=OFF
	cmake --build build-asan -j $(JOBS)
	$(HEADLESS) ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
	    ctest --test-dir build-asan --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B build-bench $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Release -DGEOQUILL_BUILD_BENCH=ON -DGEOQUILL_BUILD_SHELL=ON \
	      -DGEOQUILL_BUILD_TESTS=OFF
	cmake --build build-bench -j $(JOBS)
	$(HEADLESS) ./scripts/run-benchmarks build-bench

bench-convert: deps
	./bench/convert_vs_peers.sh

fuzz: deps
	CC=clang CXX=clang++ cmake -S . -B build-fuzz $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	      -DGEOQUILL_BUILD_FUZZ=ON -DGEOQUILL_BUILD_SHELL=OFF -DGEOQUILL_BUILD_TESTS=OFF
	cmake --build build-fuzz -j $(JOBS)
	./scripts/run-fuzzers build-fuzz $(FUZZ_SECONDS)

.PHONY: package
package: deps
	cmake -S . -B build-package $(CMAKE_GEN) -DCMAKE_BUILD_TYPE=Release -DGEOQUILL_BUILD_TESTS=OFF
	cmake --build build-package -j $(JOBS)
	cd build-package && cpack -G DEB

# The README's pictures, taken by the widget tests from the real window.
screenshots: build
	$(HEADLESS) ctest --test-dir build -R '^test_userflows$$'
	cp build/screenshots/map-pins.png docs/images/first-page.png
	cp build/screenshots/table-page.png docs/images/table-page.png

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

format-check: deps
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

clean:
	rm -rf build build-asan build-bench build-fuzz build-package build-release
